"""From the first start to a station that reads its indicator: set-up, sign-in, bench."""

from conditions import Missed
from display import wait_gone
from station import START

COMPANY = ["Veltrane Flour Mills", "14 Canal Road, Okara", "044 555 0147", "gate@veltrane.example"]
USER, PASSWORD = "nadia", "grain-and-chaff"

# The stored settings do not fit this layout: the digits after the weight are a checksum.
LAYOUT = "checked"
SETTINGS = {"PortName": "1", "PortSettings": "2400,n,8,1", "DataDirection": "Left",
            "DataLength": "6", "IsReversed": "0"}


def set_up(station, sample_rows=True):
    station.log("set-up: company, first user" + (", sample rows" if sample_rows else ""))
    dialog = station.window("Set up the station")
    station.look("set-up")
    for text in [*COMPANY, USER, PASSWORD, PASSWORD]:
        station.write(text)
        station.press("Return")
    if sample_rows:
        station.press("space")
    station.look("set-up-filled")
    station.press("Return")
    wait_gone(dialog, "Set up the station", 60)


def sign_in(station, user=USER, password=PASSWORD):
    station.log("signing in")
    dialog = station.window("Sign in", 60)
    station.look("sign-in")
    station.write(user)
    station.press("Return")
    station.write(password)
    station.press("Return")
    wait_gone(dialog, "Sign in")
    station.window(START)
    station.look("start-screen")


def stored_line(station):
    return {row["RegistryKey"]: row["RegistryValue"]
            for row in station.ask("Select RegistryKey, RegistryValue From PortSettings")}


def work_out_the_line(station):
    station.log("the bench: line settings, raw text, test, save")
    station.press("Tab", "space")
    bench = station.window("Port Testing")
    station.look("bench-new")
    station.press(*["Tab"] * 5, "space", "Tab")  # Open Port
    station.look("bench-open")
    station.press("space", "Tab", "Tab")  # Get Weight
    station.look("bench-raw-text")
    station.write(SETTINGS["DataLength"])
    station.press(*["Tab"] * 3)
    station.wait_for_text(bench, lambda: station.press("space"))  # Get Weight, below: the test
    station.look("scale-setting")
    station.press(*["Tab"] * 3, "space")  # Save
    station.answer("Confirmation", "Return", "bench-saved")
    if stored_line(station) != SETTINGS:
        raise Missed(f"the bench stored {stored_line(station)}")
    station.press("Tab", "space")  # Close
    wait_gone(bench, "Port Testing")
    station.window(START)
