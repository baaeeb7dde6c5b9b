"""The simulated indicator: its frames, and its behaviour on a real pseudo-terminal."""

import os
import select
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

TOOL = Path(__file__).resolve().parents[2] / "tools" / "indicator"
sys.path.insert(0, str(TOOL))
sys.dont_write_bytecode = True

from layouts import LAYOUTS, OVERLOAD
from line import LockName, lock_file
from sending import PARITIES, Wire
from weighing import Scale, TruckRound

DEADLINE = 20.0


def write(name, weight, moving=False):
    return LAYOUTS[name](weight, moving)


class LayoutTest(unittest.TestCase):
    def test_each_layout_writes_its_frame(self):
        cases = {
            "plain": (b"+012540 kg\r\n", b"-000250 kg\r\n"),
            "header": (b"ST,GS,+0012540kg\r\n", b"ST,GS,-0000250kg\r\n"),
            "header-blank": (b"ST,GS,+ 012540kg\r\n", b"ST,GS,- 000250kg\r\n"),
            "checked": (b"\x02+012540019\x03", b"\x02-00025001A\x03"),
            "equals-reversed": (b"=04521000", b"=0520000-"),
            "equals": (b"=00012540", b"=-0000250"),
            "status-bytes": (b"\x02*0 012540000000\r+", b"\x02*2 000250000000\r."),
            "stx-unit": (b"\x02   12540KG \r\n", b"\x02-    250KG \r\n"),
            "cr-first": (b"\r+012540  kg g  \x03", b"\r-000250  kg g  \x03"),
            "lf-first": (b"\n 1G       12540kg \r", b"\n 1G        -250kg \r"),
            "one-decimal": (b"ST,GS,+012540.0kg\r\n", b"ST,GS,-000250.0kg\r\n"),
        }
        self.assertEqual(set(cases), set(LAYOUTS))
        for name, (load, below_zero) in cases.items():
            with self.subTest(name):
                self.assertEqual(write(name, 12540.0), load)
                self.assertEqual(write(name, -250.0), below_zero)

    def test_the_check_bytes_fit(self):
        for weight in (0.0, 7.0, 12540.0, 999999.0, -250.0):
            frame = write("checked", weight)
            check = 0
            for byte in frame[1:-3]:
                check ^= byte
            self.assertEqual(int(frame[-3:-1], 16), check)
            self.assertEqual(sum(write("status-bytes", weight)) % 128, 0)

    def test_motion_shows_where_a_layout_has_a_place_for_it(self):
        for name in ("header", "header-blank", "status-bytes", "stx-unit", "cr-first", "lf-first",
                     "one-decimal"):
            with self.subTest(name):
                self.assertNotEqual(write(name, 12540.0, True), write(name, 12540.0, False))

    def test_frames_keep_their_length_whatever_the_weight(self):
        for name in LAYOUTS:
            lengths = {len(write(name, weight, moving)) for moving in (False, True)
                       for weight in (0.0, 7.0, 99999.0, 12345678901.0, -7.0)}
            if name != "lf-first":  # ten digits are more than any scale shows
                self.assertEqual(len(lengths), 1, name)


    def test_an_overload_shows_an_error_text_in_the_place_of_the_digits(self):
        for name in LAYOUTS:
            with self.subTest(name):
                frame, usual = write(name, OVERLOAD), write(name, 12540.0)
                self.assertEqual(len(frame), len(usual))
                text = b"32 rrE" if name == "equals-reversed" else b"Err 23"
                self.assertIn(text, frame)


class WireTest(unittest.TestCase):
    """The bytes of the frames A1, B2, C3 ... that have arrived, with their times."""

    def setUp(self):
        self.wire = Wire(100.0)  # ten bytes in a second
        frames = iter([b"A1", b"B2", b"C3", b"D4", b"E5", b"F6", b"G7", b"H8", b"I9"])
        self.at = lambda now: self.wire.carry(now, lambda: next(frames))

    def test_bytes_come_through_at_the_rate_of_the_line(self):
        self.assertEqual([self.at(time) for time in (0.05, 0.15, 0.25, 0.251, 0.45)],
                         [b"", b"A", b"1", b"", b"B2"])
        self.wire.set_rate(200.0)
        self.assertEqual(self.at(0.601), b"C3D4")

    def test_each_frame_is_followed_by_the_pause(self):
        self.wire.pause = 0.4
        self.assertEqual([self.at(time) for time in (0.15, 0.25, 0.55, 0.65, 0.75, 0.85, 1.25, 1.35)],
                         [b"A", b"1", b"", b"", b"B", b"2", b"", b"C"])

    def test_a_halt_is_not_made_up_for(self):
        self.assertEqual(self.at(0.15), b"A")
        self.assertEqual(self.at(100.0), b"1B2C3")
        self.assertEqual(self.at(100.15), b"D")

    def test_parity_bits_are_those_that_the_station_does_not_expect(self):
        text = b"+012540 kg\r\n"
        self.assertEqual(PARITIES["none"](text), text)
        self.assertEqual(PARITIES["even"](text), b"+0\xb1\xb25\xb40\xa0\xeb\xe7\x8d\n")
        self.assertEqual(PARITIES["odd"](text), b"\xab\xb012\xb54\xb0 kg\r\x8a")


class LockNameTest(unittest.TestCase):
    def test_a_name_has_one_user_at_a_time(self):
        device = f"/dev/pts/one-user-{os.getpid()}-python"
        first = LockName(device)
        for _ in range(2):
            with self.assertRaises(BlockingIOError):
                LockName(device)
        first.release()
        LockName(device).release()

    def test_a_name_that_is_still_locked_is_not_taken(self):
        device = f"/dev/pts/locked-{os.getpid()}-python"
        Path(lock_file(device)).write_text("")
        self.addCleanup(os.unlink, lock_file(device))
        with self.assertRaises(BlockingIOError):
            LockName(device)


class ScaleTest(unittest.TestCase):
    def test_a_truck_drives_on_settles_and_drives_off(self):
        scale = Scale(0.0)
        scale.drive_on(12540.0, 10.0)
        self.assertTrue(scale.reading(10.5)[1])
        self.assertLess(scale.reading(10.1)[0], 6000)
        self.assertTrue(scale.reading(14.0)[1])
        self.assertEqual(scale.reading(15.1), (12540.0, False))
        scale.drive_off(30.0)
        weight, moving = scale.reading(31.0)
        self.assertTrue(0 < weight < 12540 and moving)
        self.assertEqual(scale.reading(32.1), (0.0, False))

    def test_trucks_come_and_go_without_end(self):
        scale, trucks, settled = Scale(0.0), TruckRound(12540.0, 4320.0), []
        for tenth in range(1000):
            trucks.advance(scale, tenth / 10)
            weight, moving = scale.reading(tenth / 10)
            if not moving and settled[-1:] != [weight]:
                settled.append(weight)
        self.assertEqual(settled[:6], [12540.0, 0.0, 4320.0, 0.0, 12540.0, 0.0])


class LineTest(unittest.TestCase):
    """The tool itself, as the station uses it."""

    def setUp(self):
        self._folder = tempfile.TemporaryDirectory()
        self.addCleanup(self._folder.cleanup)
        self.link = os.path.join(self._folder.name, "scale")
        self.listener = None

    def start(self, *options):
        self.tool = subprocess.Popen(
            [sys.executable, TOOL / "indicator", "--link", self.link, "--baud", "19200", *options],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, bufsize=1)
        self.addCleanup(self.stop)
        self.assertTrue(self.tool.stdout.readline().startswith(f"ready {self.link} /dev/"))

    def stop(self):
        self.tool.terminate()
        self.tool.wait(DEADLINE)
        self.tool.stdin.close()
        self.tool.stdout.close()
        self.close_listener()

    def send_command(self, command):
        print(command, file=self.tool.stdin)
        return self.tool.stdout.readline().strip()

    def listen(self):
        self.listener = os.open(self.link, os.O_RDONLY | os.O_NOCTTY | os.O_NONBLOCK)

    def close_listener(self):
        if self.listener is not None:
            os.close(self.listener)
            self.listener = None

    def read_until(self, wanted):
        received, end = b"", time.monotonic() + DEADLINE
        while wanted not in received:
            self.assertLess(time.monotonic(), end, received[-200:])
            if select.select([self.listener], [], [], 0.5)[0]:
                received += os.read(self.listener, 4096)
        return received

    def test_it_repeats_the_weight_and_takes_another_while_it_runs(self):
        self.start("--weight", "12540")
        self.listen()
        self.read_until(b"+012540 kg\r\n+012540 kg\r\n")
        self.assertEqual(self.send_command("weight 4320"), "ok weight 4320")
        self.read_until(b"+004320 kg\r\n")
        self.assertEqual(self.send_command("layout equals-reversed"), "ok layout equals-reversed")
        self.read_until(b"=02340000=02340000")

    def test_it_takes_commands_through_a_pipe_too(self):
        pipe = os.path.join(self._folder.name, "control")
        self.start("--control", pipe)
        self.listen()
        with open(pipe, "w") as control:
            print("weight 777", file=control)
        self.read_until(b"+000777 kg")
        self.stop()
        self.assertFalse(os.path.exists(pipe))

    def test_it_goes_on_when_standard_input_ends(self):
        self.start()
        self.tool.stdin.close()
        self.listen()
        self.read_until(b"+012540 kg\r\n")
        self.assertIsNone(self.tool.poll())

    def test_it_is_silent_until_told_to_talk(self):
        self.start("--scenario", "silence")
        self.listen()
        self.assertEqual(select.select([self.listener], [], [], 0.3)[0], [])
        self.send_command("talk")
        self.read_until(b"+012540 kg")

    def test_noise_and_cuts_spoil_frames_but_not_all(self):
        for spoil in ("noise", "cut"):
            with self.subTest(spoil):
                self.start("--scenario", spoil, "--seed", "1")
                self.listen()
                received = b""
                while received.count(b"\r\n+012540 kg\r\n") < 20:
                    received += self.read_until(b"kg\r\n")
                self.assertNotEqual(received.replace(b"+012540 kg\r\n", b""), b"")
                self.stop()

    def test_it_sends_with_another_parity_or_an_error_text(self):
        self.start("--parity", "even")
        self.listen()
        self.read_until(b"+0\xb1\xb25\xb40")
        self.send_command("parity none")
        self.assertEqual(self.send_command("overload on"), "ok overload on")
        self.read_until(b"+Err 23 kg\r\n")
        self.send_command("overload off")
        self.read_until(b"+012540 kg\r\n")

    def test_it_pauses_after_each_frame(self):
        self.start()
        self.listen()
        self.assertEqual(self.send_command("pause 60"), "ok pause 60")
        received, end = b"", time.monotonic() + DEADLINE
        while select.select([self.listener], [], [], 0.5)[0]:
            self.assertLess(time.monotonic(), end, "it does not pause")
            received += os.read(self.listener, 4096)
        self.assertTrue(received.endswith(b"+012540 kg\r\n"), received[-200:])

    def test_a_new_connection_takes_no_name_that_is_still_locked(self):
        self.start()
        device = os.path.realpath(self.link)
        self.send_command("hangup")
        Path(lock_file(device)).write_text("")
        self.addCleanup(os.unlink, lock_file(device))
        self.send_command("connect")
        self.assertNotEqual(os.path.realpath(self.link), device)

    def test_a_hang_up_ends_the_line_and_a_connection_makes_a_new_one(self):
        self.start()
        self.listen()
        self.read_until(b"kg")
        self.assertEqual(self.send_command("hangup"), "ok hangup")
        with self.assertRaises(OSError):
            while os.read(self.listener, 4096):
                pass
            raise OSError  # the end of the file is a hang-up too
        self.assertFalse(os.path.lexists(self.link))
        self.close_listener()
        self.assertEqual(self.send_command("connect"), "ok connect")
        self.listen()
        self.read_until(b"+012540 kg")

    def test_what_nobody_heard_is_lost(self):
        self.start("--weight", "111")
        self.listen()
        self.read_until(b"000111")
        self.close_listener()
        self.send_command("weight 222")
        # The line is served after each round of commands, that is, before the second answer.
        self.send_command("talk")
        self.listen()
        self.assertNotIn(b"000111", self.read_until(b"000222"))

    def test_wrong_commands_are_refused_and_change_nothing(self):
        self.start()
        for command in ("weigh 5", "weight", "weight x", "weight inf", "layout nonsense",
                        "noise maybe", "baud 0", "pause -1", "pause 61", "pause nan",
                        "parity wrong", "overload maybe", "__init__"):
            self.assertTrue(self.send_command(command).startswith(f"refused {command}"), command)
        self.listen()
        self.read_until(b"+012540 kg")

    def test_the_link_goes_when_the_tool_ends(self):
        for ending in (signal.SIGTERM, signal.SIGINT):
            self.start()
            self.assertTrue(os.path.islink(self.link))
            self.tool.send_signal(ending)
            self.assertEqual(self.tool.wait(DEADLINE), 0)
            self.assertFalse(os.path.lexists(self.link))
            self.stop()

    def test_a_file_in_the_links_place_is_left_alone(self):
        Path(self.link).write_text("mine")
        ended = subprocess.run([sys.executable, TOOL / "indicator", "--link", self.link],
                               stdin=subprocess.DEVNULL, capture_output=True, text=True,
                               timeout=DEADLINE)
        self.assertEqual(ended.returncode, 1)
        self.assertIn(self.link, ended.stderr)
        self.assertEqual(Path(self.link).read_text(), "mine")


if __name__ == "__main__":
    unittest.main()
