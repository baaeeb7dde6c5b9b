"""A display of its own with a window manager, real keys on it, and pictures of it."""

import os
import re
import subprocess

from conditions import wait_until


def run(*command):
    """Runs a command and returns what it wrote, or None where it failed."""
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    return result.stdout if result.returncode == 0 else None


class Display:
    """An X server that picks its own free number, and a window manager on it."""

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


def wait_for_window(title, deadline=20.0):
    """Waits until a window of that title is there and has the keys; returns its id."""

    def is_active():
        window = active_window()
        return window if window in windows(title) else None

    return wait_until(f'the window "{title}"', is_active, deadline)


def wait_gone(window, title, deadline=20.0):
    wait_until(f'the window "{title}" to close', lambda: window not in windows(title), deadline)


def press(*keys):
    """Presses keys one after the other, by their X names: Tab, Return, ctrl+s."""
    subprocess.run(["xdotool", "key", "--delay", "30", *keys], check=True)


def write(text):
    subprocess.run(["xdotool", "type", "--delay", "30", "--", text], check=True)


def picture(path):
    """A picture of the whole display."""
    subprocess.run(["import", "-silent", "-window", "root", str(path)], check=True)


def coloured_area(window, colour):
    """How much of a window has a colour, and a mark that changes when that part changes."""
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
