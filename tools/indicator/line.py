"""The indicator's end of a serial line: a pseudo-terminal with a symbolic link of a chosen name."""

import errno
import fcntl
import os
import select
import termios
import tty


LOCKS = "/var/lock" if os.access("/var/lock", os.W_OK) else "/tmp"


def lock_file(device):
    """The lock file of a device; its name contains the device name without the folder."""
    return f"{LOCKS}/LCK..{device.removeprefix('/dev/').replace('/', '_')}"


class LockName:
    """Reserves the lock name of a device. The system reuses the name of a pseudo-terminal immediately,
    often before its last user has removed the lock; and containers may share the lock folder but have
    pseudo-terminals with the same names."""

    def __init__(self, device):
        """Raises BlockingIOError if another process has reserved the name or left it locked."""
        self._file = lock_file(device).replace("/LCK..", "/claim..")
        self._claim = os.open(self._file, os.O_RDWR | os.O_CREAT, 0o666)
        try:
            if not self._is_mine() or os.path.exists(lock_file(device)):
                raise BlockingIOError(errno.EAGAIN, "is in use", device)
        except BlockingIOError:
            self.release()
            raise

    def _is_mine(self):
        """True if this process has the lock, and the previous owner has not just removed the file."""
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
    """Opens a pseudo-terminal with a free name; returns both ends and the reservation."""
    in_use = []
    try:
        while True:
            ends = os.openpty()
            try:
                return *ends, LockName(os.ttyname(ends[1]))
            except (BlockingIOError, PermissionError):
                in_use += ends  # kept open, so that the next one gets another number
    finally:
        for end in in_use:
            os.close(end)


class Line:
    """Without a listener sent bytes are lost, as on a real line; nothing is buffered."""

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
        # The station's end must not be open here, so that poll reports whether a listener exists.
        os.close(slave)
        os.set_blocking(self._master, False)
        self._publish(name)

    def _publish(self, name):
        if os.path.lexists(self._link) and not os.path.islink(self._link):
            raise OSError(errno.EEXIST, "exists and is not a link", self._link)
        new = f"{self._link}.{os.getpid()}"
        os.symlink(name, new)
        os.replace(new, self._link)
        self.device = name

    def hang_up(self):
        """Disconnects the cable: listeners get an error, and the link is removed."""
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
        """Must be called often: detects that a listener has closed the line."""
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
        """Drops the bytes that the last listener has not read. If it was killed and left the line
        locked, another line replaces it."""
        try:
            slave = os.open(self.device, os.O_RDWR | os.O_NOCTTY | os.O_NONBLOCK)
        except OSError:
            self.connect()
            return
        termios.tcflush(slave, termios.TCIFLUSH)
        os.close(slave)
