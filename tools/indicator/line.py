"""The indicator's end of a serial line: a pseudo-terminal behind a link of a chosen name."""

import errno
import fcntl
import os
import select
import termios
import tty


LOCKS = "/var/lock" if os.access("/var/lock", os.W_OK) else "/tmp"


def lock_file(device):
    """By which programs lock a device; what they call it is the name without its folder."""
    return f"{LOCKS}/LCK..{device.removeprefix('/dev/').replace('/', '_')}"


class LockName:
    """The name by which a device is locked, for one user at a time. The name of a pseudo-terminal is
    given out again at once, often before its last user has removed its lock; and containers may
    share the folder of locks while each has pseudo-terminals of the same names."""

    def __init__(self, device):
        """Fails (BlockingIOError) while another has the name or has left it locked."""
        self._file = lock_file(device).replace("/LCK..", "/claim..")
        self._claim = os.open(self._file, os.O_RDWR | os.O_CREAT, 0o666)
        try:
            if not self._is_mine() or os.path.exists(lock_file(device)):
                raise BlockingIOError(errno.EAGAIN, "is in use", device)
        except BlockingIOError:
            self.release()
            raise

    def _is_mine(self):
        """Locked by this process, and not just removed by the one that had it before."""
        fcntl.flock(self._claim, fcntl.LOCK_EX | fcntl.LOCK_NB)
        try:
            return os.path.samestat(os.fstat(self._claim), os.stat(self._file))
        except FileNotFoundError:
            return False

    def release(self):
        try:
            if self._is_mine():
                os.unlink(self._file)
        except BlockingIOError:
            pass
        os.close(self._claim)


def _open_terminal():
    """Both ends of a pseudo-terminal whose name is free, and the claim to the name."""
    in_use = []
    try:
        while True:
            ends = os.openpty()
            try:
                return *ends, LockName(os.ttyname(ends[1]))
            except (BlockingIOError, PermissionError):
                in_use += ends  # open until another is found: its number is taken
    finally:
        for end in in_use:
            os.close(end)


class Line:
    """While nobody listens, what is sent is lost, as on a real line; nothing waits in it."""

    def __init__(self, link):
        self._link = link
        self._master = None
        self._name = None
        self._heard = False
        self.connect()

    def connect(self):
        self.hang_up()
        self._master, slave, self._name = _open_terminal()
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
        self._name.release()
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
