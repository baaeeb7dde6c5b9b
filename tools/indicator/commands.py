"""Commands while the indicator runs: one on a line, on standard input or through a named pipe."""

import errno
import os
import select
import stat
import sys


class CommandInput:
    """Whole lines from standard input, and from a pipe that this makes if it is not there."""

    def __init__(self, pipe_path=None):
        self._buffers = {}
        self._made = None
        try:
            os.fstat(0)
            self._buffers[0] = b""
        except OSError as error:
            if error.errno != errno.EBADF:
                raise
        if pipe_path:
            self._buffers[self._open_pipe(pipe_path)] = b""

    def _open_pipe(self, path):
        if not os.path.exists(path):
            os.mkfifo(path, 0o600)
            self._made = path
        elif not stat.S_ISFIFO(os.stat(path).st_mode):
            raise OSError(errno.EEXIST, "is there already and is no pipe", path)
        # Open for both: with a writer of its own it never ends when others close it.
        return os.open(path, os.O_RDWR | os.O_NONBLOCK)

    def close(self):
        if self._made:
            os.unlink(self._made)

    def lines(self, wait):
        """What has come within so many seconds."""
        ready, _, _ = select.select(list(self._buffers), [], [], wait)
        lines = []
        for source in ready:
            lines += self._read(source)
        return lines

    def _read(self, source):
        data = os.read(source, 4096)
        if not data:
            rest = self._buffers.pop(source)
            return [rest.decode(errors="replace")] if rest else []
        *lines, self._buffers[source] = (self._buffers[source] + data).split(b"\n")
        return [line.decode(errors="replace") for line in lines]


def run(indicator, line):
    """Runs one command and tells the outcome on standard output."""
    words = line.split()
    if not words:
        return
    try:
        indicator.command(words[0], words[1:])
        print("ok " + " ".join(words), flush=True)
    except (ValueError, OSError) as error:
        print(f"refused {' '.join(words)}: {error}", flush=True)
    except BrokenPipeError:
        sys.exit(0)
