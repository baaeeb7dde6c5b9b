"""The indicator's end of a serial line: a pseudo-terminal behind a link of a chosen name."""

import errno
import os
import select
import termios
import tty


class Line:
    """While nobody listens, what is sent is lost, as on a real line; nothing waits in it."""

    def __init__(self, link):
        self._link = link
        self._master = None
        self._heard = False
        self.connect()

    def connect(self):
        self.hang_up()
        self._master, slave = os.openpty()
        tty.setraw(slave)
        name = os.ttyname(slave)
        # With no end of ours open on the station's side, the line tells whether one listens.
        os.close(slave)
        os.set_blocking(self._master, False)
        self._publish(name)

    def _publish(self, name):
        if os.path.lexists(self._link) and not os.path.islink(self._link):
            raise OSError(errno.EEXIST, "is there already and is no link", self._link)
        new = f"{self._link}.{os.getpid()}"
        os.symlink(name, new)
        os.replace(new, self._link)
        self.device = name

    def hang_up(self):
        """The cable is pulled: whoever listens gets an error, and the link is gone."""
        if self._master is None:
            return
        os.close(self._master)
        self._master = None
        self._heard = False
        if os.path.islink(self._link) and os.readlink(self._link) == self.device:
            os.unlink(self._link)

    def is_connected(self):
        return self._master is not None

    def has_listener(self):
        if self._master is None:
            return False
        poll = select.poll()
        poll.register(self._master, 0)
        return not any(events & select.POLLHUP for _, events in poll.poll(0))

    def tend(self):
        """Run often: notices when a listener goes."""
        listener = self.has_listener()
        if self._heard and not listener:
            self._forget()
        self._heard = listener

    def send(self, data):
        if not self.has_listener():
            return
        try:
            os.write(self._master, data)
        except BlockingIOError:
            pass  # the listener does not read; its buffer is full
        except OSError as error:
            if error.errno != errno.EIO:
                raise

    def _forget(self):
        """Empties what the last listener left unread. One that died with the line to itself leaves
        it locked: then another takes its place."""
        try:
            slave = os.open(self.device, os.O_RDWR | os.O_NOCTTY | os.O_NONBLOCK)
        except OSError:
            self.connect()
            return
        termios.tcflush(slave, termios.TCIFLUSH)
        os.close(slave)
