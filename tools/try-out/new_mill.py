"""A new mill: set-up without sample rows, its lists, its line and a user in the
office, weighments by that user on the station, and the day book with their sums."""

from dataclasses import replace

import setting_up
import weighing
from conditions import Missed, wait_until
from display import wait_gone
from office import Office
from station import START, WEIGHMENT
from weighing import Load

COMPANY = setting_up.COMPANY[0]
CITY, PARTY, COMMODITY = "Okara", "Hamza Traders", "Wheat"
BAG_CLASS, BAG_TYPE = "Jute New", "100 Kg"
USER, PASSWORD = "Imran", "wheat-and-barley"

FIRST = Load(f"{PARTY}-{CITY}", "LEA-4521", "8811", "Ghulam Abbas", 12540, 4320, 17,
             [(BAG_CLASS, BAG_TYPE, 100)])
SECOND = replace(FIRST, vehicle="OKR-77", builty="8812", driver="Bashir", loaded=9860, empty=3620,
                 deduction=12, bag_lines=[(BAG_CLASS, BAG_TYPE, 75)])

# Pictures of this part that the guide to the office shows.
GUIDE = {"office-party", "office-parties", "office-station", "office-day-book", "office-picture",
         "office-backup", "office-move", "office-move-server"}


def expect_rows(station, statement, *wanted):
    """The rows of a query, each as a tuple."""
    found = [tuple(row.values()) for row in station.ask(statement)]
    if found != list(wanted):
        raise Missed(f"{statement}: {found} where {list(wanted)} was expected")


def fill_lists(station, office):
    station.log("a city, a party, a commodity, a bag class and a bag type")
    office.fill_form("Add a city", CITY)
    office.go_to_list("Parties")
    office.fill_form("Add a party", PARTY, ["Tab"], CITY, ["Tab", "Tab"], "Shop 8, Ghalla Mandi",
                     ["alt+e"], name="office-party")
    station.look("office-parties")
    office.go_to_list("Commodities")
    office.fill_form("Add a commodity", COMMODITY, ["alt+p", "alt+w"])
    office.go_to_list("Bag classes")
    office.fill_form("Add a bag class", BAG_CLASS)
    office.go_to_list("Bag types")
    office.fill_form("Add a bag type", BAG_TYPE)
    expect_rows(station, "Select AccountName, CityName, Address, IsSeller From ChartOfAccounts Join "
                "Parties On PartyId = AccountNo Join Cities On Cities.CityId = Parties.CityId",
                (PARTY, CITY, "Shop 8, Ghalla Mandi", 1))
    expect_rows(station, "Select CommodityId, CommodityName, IsPurchaseable, IsWheatCommodity From "
                "Commodities", (1, COMMODITY, 1, 1))
    expect_rows(station, "Select BagsClassId, BagsClass From BagsClasses", (1, BAG_CLASS))
    expect_rows(station, "Select BagsTypeId, BagsType From BagsTypes", (1, BAG_TYPE))


def add_user(station, office):
    station.log(f"the user {USER} of level 2")
    office.go_to("Users")
    office.fill_form("Add a user", USER, ["alt+p"], PASSWORD, ["alt+t"], PASSWORD)
    station.look("office-users")
    expect_rows(station, "Select UserName, UserLevel From StationUsers Where UserName <> "
                f"'{setting_up.USER}'", (USER, 2))


def set_the_line(station, office):
    station.log("the line of the indicator: F9, length 6, saved")
    office.go_to("Station")
    station.press("alt+r")
    station.write("2400")
    station.press("alt+c", "l", "alt+g", "ctrl+a", "6", "Tab")
    station.wait_for_text(office.window(office.title), lambda: station.press("F9"))
    station.look("office-station", moves=True)
    station.press("F9", "ctrl+s")
    wait_until("the settings of the line", lambda: setting_up.stored_line(station) ==
               setting_up.SETTINGS)


def back_up(station, office):
    station.log("a backup, and its check")
    office.go_to("Backup")
    station.press("ctrl+b")
    office.window("Quillane Office")
    station.press("Return")
    office.window(office.title)
    station.press("ctrl+k")
    station.look("office-backup")
    if len(list((station.folder / "backups").glob("Account1-*.db"))) != 1:
        raise Missed("the folder backups does not hold one backup")


def choose_server(station, office):
    """The server is only entered: the form is cancelled."""
    station.log("the page of the move, and the form for the server")
    office.go_to("Move")
    station.look("office-move")
    station.press("ctrl+g")
    form = office.window("Move to a SQL Server")
    station.look("office-move-server")
    station.press("Escape")
    wait_gone(form, "Move to a SQL Server")
    office.window(office.title)


def weigh(station, load, keys, print_it):
    """Starts at a new weighment and moves to the commodity; returns the number of the arrival."""
    number = station.ask("Select Coalesce(Max(ArrivalID), 0) + 1 As Id From Arrivals")[0]["Id"]
    station.indicator.hold(load.loaded)
    station.wait_for_reading()
    weighing.choose_commodity(station, keys)
    station.write(load.seller)
    station.press("Return")
    reading = station.wait_for_reading()
    weighing.take_gross(station, load)
    weighing.take_tare(station, load, reading)
    weighing.enter_papers(station, load)
    weighing.enter_bag_lines(station, load)
    station.look(f"mill-weighment-{number}")
    weighing.save(station, print_it)
    if print_it:
        weighing.keep_slip(station, "mill-slip", [number, load.vehicle, load.loaded,
                                                  load.net(), PARTY])
    station.expect(number, load.header(), load.body(), f"new mill, arrival {number}")
    return number


def weigh_as_user(station):
    station.log(f"the station, as {USER}")
    station.start()
    setting_up.sign_in(station, USER, PASSWORD)
    station.press("Return")
    station.window(WEIGHMENT)
    numbers = [weigh(station, FIRST, ["Return", "Return"], True),
               weigh(station, SECOND, ["Return"], False)]
    station.window(WEIGHMENT)
    station.press("ctrl+q")
    close_station(station)
    return numbers


def close_station(station):
    start = station.window(START)
    station.press("alt+F4")
    station.wait_for_end()
    wait_gone(start, START)


def figures_of(load):
    """The figures in the form of a file of the day book."""
    return {"Bags": sum(bags for _, _, bags in load.bag_lines), "FirstWeightKg": load.loaded,
            "TareKg": load.empty, "GrossKg": load.loaded - load.empty,
            "DeductionKg": load.deduction, "NetKg": load.net()}


def expect_figures(row, wanted):
    different = [f"{name} is {row[name]} where {figure} was expected"
                 for name, figure in wanted.items() if float(row[name]) != figure]
    if different:
        raise Missed("the day book: " + "; ".join(different))


def check_day_book(station, office, numbers):
    station.log("the day book and its sums")
    station.look("office-day-book")
    loads = dict(zip(numbers, (FIRST, SECOND)))
    rows = office.export_table(station.out / "arrivals.csv")
    if [int(row["ArrivalId"]) for row in rows] != numbers:
        raise Missed(f"the day book has {rows}")
    for row in rows:
        load = loads[int(row["ArrivalId"])]
        expect_figures(row, figures_of(load))
        if (row["Party"], row["VehicleNo"], row["StillInside"]) != (load.seller, load.vehicle, "0"):
            raise Missed(f"the day book has {row}")
    station.press("alt+b")
    sums = office.export_table(station.out / "by-party.csv")
    both = [figures_of(load) for load in loads.values()]
    if len(sums) != 1:
        raise Missed(f"the sums by party are {sums}")
    expect_figures(sums[0], {name: both[0][name] + both[1][name] for name in both[0]})
    station.press("alt+u")
    station.look("office-picture")


def walk(station, office):
    """Ends with the station and the office closed."""
    station.start()
    setting_up.set_up(station, sample_rows=False)
    setting_up.sign_in(station)
    office.start(setting_up.USER, setting_up.PASSWORD)
    fill_lists(station, office)
    add_user(station, office)
    set_the_line(station, office)
    back_up(station, office)
    choose_server(station, office)
    office.close()
    close_station(station)
    numbers = weigh_as_user(station)
    office.start(USER, PASSWORD)
    check_day_book(station, office, numbers)
    office.close()


def make_office(station, command):
    return Office(station, command, COMPANY.upper())
