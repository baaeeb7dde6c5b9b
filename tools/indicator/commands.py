"""Commands for the running indicator, one per line, from the standard input or a named pipe."""

import errno
import os
import select
import stat
import sys


class CommandInput:
    """Reads lines from the standard input and from a pipe, which is created if it is missing."""

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
            raise OSError(errno.EEXIST, "exists and is not a pipe", path)
        # Open for reading and writing, so that it does not end when the last other writer closes it.
        return os.open(path, os.O_RDWR | os.O_NONBLOCK)

    def close(self):
        if self._made:
            os.unlink(self._made)

    def lines(self, wait):
        """The lines received within this number of seconds."""
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
    """Runs one command and prints the result."""
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
