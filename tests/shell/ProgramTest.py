"""The built program: its output without a display, and the arguments that it refuses."""

import os
import subprocess
import tempfile
import unittest

PROGRAM = os.environ["QUILLANE_PROGRAM"]
VERSION = os.environ["QUILLANE_VERSION"]


def run(*arguments, **variables):
    """Runs the program without a display, with only these environment variables."""
    with tempfile.TemporaryDirectory() as home:
        environment = {"PATH": os.environ["PATH"], "HOME": home, **variables}
        return subprocess.run([PROGRAM, *arguments], env=environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                              timeout=60)


class WithoutADisplayTest(unittest.TestCase):
    def test_the_version_is_written(self):
        for option in ("--version", "-v"):
            answer = run(option)
            self.assertEqual(answer.returncode, 0, answer.stderr)
            self.assertEqual(answer.stdout, f"Quillane {VERSION}\n")
            self.assertEqual(answer.stderr, "")

    def test_the_options_are_written(self):
        for option in ("--help", "-h"):
            answer = run(option)
            self.assertEqual(answer.returncode, 0, answer.stderr)
            for named in ("--station FOLDER", "--version", "--help", "QUILLANE_STATION",
                          "/var/lib/quillane"):
                self.assertIn(named, answer.stdout)

    def test_nothing_is_set_up_meanwhile(self):
        with tempfile.TemporaryDirectory() as folder:
            for option in ("--version", "--help"):
                run("--station", folder, option)
            self.assertEqual(os.listdir(folder), [])


class WrongArgumentsTest(unittest.TestCase):
    def test_they_are_named_and_nothing_starts(self):
        cases = {
            ("--staton", "/gate"): "Unknown option 'staton'. See --help.\n",
            ("/gate",): "Unexpected argument '/gate'. See --help.\n",
            ("--station",): "Missing value after '--station'. See --help.\n",
        }
        for arguments, expected in cases.items():
            with self.subTest(arguments):
                answer = run(*arguments, QT_QPA_PLATFORM="offscreen")
                self.assertEqual(answer.returncode, 2)
                self.assertIn(expected, answer.stderr)
                self.assertEqual(answer.stdout, "")


if __name__ == "__main__":
    unittest.main()
