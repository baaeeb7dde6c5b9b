"""Enters, weighs, saves and prints a load on the weighment screen."""

import subprocess
from dataclasses import dataclass, field

import rows
from conditions import Missed, wait_until
from display import wait_gone
from setting_up import COMPANY
from station import PREVIEW, WEIGHMENT

PARTIES = {"Chaudhry Grain Traders-Okara": "6010001", "Malik Wheat Store-Sahiwal": "6010003",
           "Hamza Traders-Okara": "6010001"}
CLASSES = {"Jute New": 1, "Jute Old": 2, "Polypropylene": 3, "Loose": 4}
TYPES = {"100 Kg": 1, "50 Kg": 2, "40 Kg": 3}


@dataclass
class Load:
    seller: str
    vehicle: str
    builty: str
    driver: str
    loaded: int
    empty: int
    deduction: int
    bag_lines: list = field(default_factory=list)  # class, type, number of bags

    def header(self):
        return {"SellerId": PARTIES[self.seller], "CommodityId": 1, "IsPosted": 0,
                "ArrivalDate": rows.today()}

    def net(self):
        return self.loaded - self.empty - self.deduction

    def body(self):
        """The bag lines as stored: the save divides the load among the bags."""
        gross = self.loaded - self.empty
        total = sum(bags for _, _, bags in self.bag_lines)
        return [{"CommodityId": 1, "BagsClassId": CLASSES[bag_class], "BagsTypeId": TYPES[kind],
                 "NoOfBags": float(bags), "VehicleNo": "" if number else self.vehicle,
                 "TareWeight": 0.0 if number else float(self.empty), "ScaleDeduction": 0.0,
                 "BagWeight": gross / total, "BagsDeduction": 0.0,
                 "OtherDeduction": self.deduction / total * bags,
                 "NetWeight": (gross - self.deduction) / total * bags,
                 "DriverName": self.driver, "BiltyNo": self.builty, "VehicleNoText": self.vehicle}
                for number, (bag_class, kind, bags) in enumerate(self.bag_lines)]


def choose_commodity(station, keys):
    """Ends with the focus on the seller."""
    station.press(*keys)
    station.write("Wheat")
    station.press("Return", "Return")  # all kinds of sellers


def take_gross(station, load):
    station.log(f"gross weight at {load.loaded}")
    station.wait_for_reading()
    station.press("space")


def take_tare(station, load, reading):
    """Replaces the weight on the scale by that of the empty vehicle and takes it."""
    station.log(f"tare weight at {load.empty}")
    station.indicator.hold(load.empty)
    station.wait_for_reading(other_than=reading)
    station.press("space")


def enter_papers(station, load):
    """Starts at the vehicle; ends on the deduction."""
    station.write(load.vehicle)
    station.press("Return")
    station.write(load.builty)
    station.press("Return")
    station.write(load.driver)
    station.press(*["shift+Tab"] * 3)
    station.write(str(load.deduction))


def enter_bag_lines(station, load):
    """Starts and ends on the deduction."""
    station.press("shift+Tab")
    for number, (bag_class, kind, bags) in enumerate(load.bag_lines):
        if number:
            station.press("Down", "Left", "Left")
        station.write(bag_class)
        station.press("Right")
        station.write(kind)
        station.press("Right")
        station.write(str(bags))
    station.press("Tab")


def save(station, print_it, name=None):
    station.log("Ctrl+S, Yes")
    station.press("ctrl+s")
    station.answer("Alert", "Return", name and f"{name}-question")
    station.answer("Confirmation", "y" if print_it else "n", "print-question" if name else None)
    if not print_it:
        station.window(WEIGHMENT)


def keep_slip(station, name, wanted):
    """Saves the slip as PDF and checks its texts; ends on the weighment screen."""
    station.log(f"the slip, saved as {name}.pdf")
    preview = station.window(PREVIEW)
    station.look(f"{name}-preview")
    station.press("ctrl+s")
    station.window("Save as PDF")
    file = station.out / f"{name}.pdf"
    station.press("ctrl+a")
    station.write(str(file))
    station.press("Return")
    wait_until("the slip's PDF", file.exists)
    station.window(PREVIEW)
    station.press("Escape")
    wait_gone(preview, PREVIEW)
    station.window(WEIGHMENT)
    text = subprocess.run(["pdftotext", "-layout", file, "-"], check=True,
                          stdout=subprocess.PIPE, text=True).stdout
    missing = [each for each in (COMPANY[0].upper(), *wanted) if str(each) not in text]
    if missing:
        raise Missed(f"the slip {name}.pdf does not show {missing}")
