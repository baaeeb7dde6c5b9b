"""A separate display with a window manager; sends real keys and takes screenshots."""

import os
import re
import subprocess

from conditions import DEADLINE, Missed, wait_until


def run(*command):
    """Runs a command and returns its output, or None if it failed."""
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    return result.stdout if result.returncode == 0 else None


CARET_HEIGHT = 40  # lines of the display
FEW_COLOURS = ["+dither", "-colors", "255", "-strip", "-define", "png:compression-level=9"]


class Display:
    """An X server with a free display number, and a window manager."""

    def __init__(self, size="1280x800", dots_per_inch=96):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{size}x24", "-dpi",
             str(dots_per_inch), "-nolisten", "tcp", "-noreset"],
            pass_fds=[writing], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start")
        os.environ["DISPLAY"] = f":{number}"
        os.environ.pop("WAYLAND_DISPLAY", None)
        os.environ.pop("QT_QPA_PLATFORM", None)
        self.manager = subprocess.Popen(["openbox"], stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        wait_until("the window manager", self._is_managed)

    @staticmethod
    def _is_managed():
        answer = run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK")
        return answer and "window id" in answer

    def stop(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


def windows(title):
    found = run("xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}$")
    return found.split() if found else []


def active_window():
    found = run("xdotool", "getactivewindow")
    return found.strip() if found else None


def title_of(window):
    found = run("xdotool", "getwindowname", window) if window else None
    return found.rstrip("\n") if found else ""


def has_keyboard(window):
    """True if the window has the keyboard focus of the display."""
    found = run("xdotool", "getwindowfocus", "-f")
    return found is not None and found.strip() == window


def wait_for_window(program, process, title, deadline=DEADLINE):
    """Waits until a window is active and returns it; fails early if its program has ended."""

    def is_active():
        if process.poll() is not None:
            raise Missed(f'{program} ended with code {process.returncode} instead of showing '
                         f'"{title}"')
        active = active_window()
        return active if active in windows(title) and has_keyboard(active) else None

    try:
        return wait_until(f'the window "{title}"', is_active, deadline)
    except Missed as missed:
        raise Missed(f'{missed}; the active window is "{title_of(active_window())}"') from None


def wait_gone(window, title, deadline=DEADLINE):
    wait_until(f'the window "{title}" to close', lambda: window not in windows(title), deadline)


def press(*keys):
    """Presses keys in sequence, by their X names: Tab, Return, ctrl+s."""
    subprocess.run(["xdotool", "key", "--delay", "30", *keys], check=True)


def write(text):
    subprocess.run(["xdotool", "type", "--delay", "30", "--", text], check=True)


def place_of(window):
    """Left, top, width and height of the contents of a window."""
    output = run("xwininfo", "-id", window)
    return [int(re.search(rf"{name}:\s+(-?\d+)", output)[1])
            for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]


def title_height(window):
    """The height of the title bar of a window."""
    output = run("xprop", "-id", window, "_NET_FRAME_EXTENTS") or ""
    extents = re.findall(r"\d+", output.partition("=")[2])
    return int(extents[2]) if len(extents) == 4 else 0


def picture(path):
    """A screenshot of the display."""
    subprocess.run(["import", "-silent", "-window", "root", str(path)], check=True)


def rest(deadline=10.0):
    """Waits until two successive screenshots are equal, except for a caret."""
    before = []

    def is_still():
        nonlocal before
        lines = _lines_of_display()
        changed = sum(old != new for old, new in zip(before, lines))
        unchanged = len(before) == len(lines) and changed <= CARET_HEIGHT
        before = lines
        return unchanged

    wait_until("the display to stop changing", is_still, deadline)


def _lines_of_display():
    seen = subprocess.run(["import", "-silent", "-window", "root", "-depth", "8", "ppm:-"],
                          stdout=subprocess.PIPE, check=True).stdout
    _, size, _, points = seen.split(b"\n", 3)
    line = 3 * int(size.split()[0])
    return [points[start:start + line] for start in range(0, len(points), line)]


def crop_to_window(source, window, target):
    """Cuts a window with its title bar out of a screenshot, with few colours to keep it small."""
    left, top, width, height = place_of(window)
    title = title_height(window)
    subprocess.run(["convert", str(source), "-crop",
                    f"{width}x{height + title}+{left}+{top - title}", "+repage", *FEW_COLOURS,
                    f"png8:{target}"], check=True)


def dark_area(window):
    """The number of pixels of a window that are as dark as letters."""
    grab = subprocess.run(["import", "-silent", "-window", window, "png:-"],
                          stdout=subprocess.PIPE, check=True)
    answer = subprocess.run(
        ["convert", "png:-", "-colorspace", "gray", "-threshold", "30%", "-negate", "-format",
         "%[fx:mean*w*h]", "info:"],
        input=grab.stdout, stdout=subprocess.PIPE, check=True).stdout.decode()
    return int(float(answer))


def coloured_area(window, colour):
    """The number of pixels with a colour, and a hash of that part of the window."""
    grab = subprocess.run(["import", "-silent", "-window", window, "png:-"],
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    if grab.returncode != 0:
        return 0, ""
    answer = subprocess.run(
        ["convert", "png:-", "-fuzz", "20%", "-fill", "black", "+opaque", colour, "-fill", "white",
         "-opaque", colour, "-format", "%[fx:mean*w*h] %#", "info:"],
        input=grab.stdout, stdout=subprocess.PIPE, check=True).stdout.decode()
    area, mark = answer.split()
    return int(float(area)), mark
