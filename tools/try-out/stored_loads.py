"""Work with a stored load: find, open, change, print again, remove."""

from datetime import date, timedelta

from conditions import Missed, wait_until
from display import wait_gone
from station import PREVIEW, WEIGHMENT

SEARCH, PARTIES = "Search Arrivals", "Search Parties"


def find(station, *steps, name=None):
    """Ctrl+O and then each step, a text to type or a list of keys; the last one selects."""
    station.press("ctrl+o")
    search = station.window(SEARCH)
    for step in steps[:-1]:
        _do(station, step)
    if name:
        station.look(name)
    _do(station, steps[-1])
    wait_gone(search, SEARCH)
    station.window(WEIGHMENT)


def _do(station, step):
    if isinstance(step, str):
        station.write(step)
    else:
        station.press(*step)


def find_by_name(station, name, keys, picture=None):
    """Enter moves from the id to the name and into the list."""
    station.log(f"Ctrl+O, by the name {name}")
    find(station, ["Return"], name, ["Return", *keys], ["Return"], name=picture)


def find_by_id(station, number, picture=None):
    station.log(f"Ctrl+O, by the id {number}")
    find(station, str(number), ["Return", "Return"], ["Return"], name=picture)


def find_up_to(station, days_ago, picture=None):
    """Selects the newest arrival up to a day."""
    last = date.today() - timedelta(days=days_ago)
    station.log(f"Ctrl+O, up to {last:%d/%m/%Y}")
    find(station, ["Tab"] * 6, f"{last:%d%m%Y}", ["shift+Tab"] * 4, ["Return"], name=picture)


def open_typed(station, number):
    """Starts at the date, the first focus of a new weighment."""
    station.log(f"the id {number}, typed")
    station.press("shift+Tab")
    station.write(str(number))
    station.press("Return")


def print_again(station):
    station.log("F9, the slip")
    station.window(WEIGHMENT)
    station.press("F9")
    station.window(PREVIEW)


def choose_party(station, name, picture=None):
    """Starts at the seller: F1, the name, Down into the list, Select."""
    station.log(f"F1, the party {name}")
    station.press("F1")
    search = station.window(PARTIES)
    station.write(name)
    station.press("Down")
    if picture:
        station.look(picture)
    station.press("Tab", "Return")
    wait_gone(search, PARTIES)
    station.window(WEIGHMENT)


def ask_to_remove(station, key, picture=None):
    station.press("ctrl+shift+Delete")
    station.answer("Alert", key, picture)


def wait_removed(station, number):
    wait_until(f"the removal of arrival {number}", lambda: not any(station.arrival(number)))


def expect_unchanged(station, number, before):
    if station.arrival(number) != before:
        raise Missed(f"arrival {number} has changed")
