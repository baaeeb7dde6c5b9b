"""Runs the simulated indicator as a child process."""

import subprocess
from pathlib import Path

PROGRAM = Path(__file__).resolve().parents[1] / "indicator" / "indicator"


class Indicator:
    def __init__(self, link, weight, layout):
        self.process = subprocess.Popen(
            [PROGRAM, "--link", str(link), "--weight", str(weight), "--layout", layout],
            text=True, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self._expect("ready")

    def hold(self, weight):
        """Puts this weight on the scale, settled."""
        self.process.stdin.write(f"weight {weight}\n")
        self.process.stdin.flush()
        self._expect("ok")

    def _expect(self, beginning):
        answer = self.process.stdout.readline()
        if not answer.startswith(beginning):
            raise RuntimeError(f"the indicator answered {answer!r}")

    def stop(self):
        self.process.terminate()
        self.process.wait()
