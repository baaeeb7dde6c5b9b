"""Reads the stored rows while the station is running."""

import sqlite3
from datetime import date
from pathlib import Path


def ask(file, statement, *values):
    """All rows of a query as dictionaries; none if the file or table does not exist yet."""
    if not Path(file).exists():
        return []
    connection = sqlite3.connect(f"file:{file}?mode=ro", uri=True, timeout=10)
    connection.row_factory = sqlite3.Row
    try:
        return [dict(row) for row in connection.execute(statement, values)]
    except sqlite3.OperationalError:
        return []
    finally:
        connection.close()


def stored_arrival(file, arrival):
    header = ask(file, "Select * From Arrivals Where ArrivalID = ?", arrival)
    lines = ask(file, "Select * From ArrivalsBody Where ArrivalId = ? Order By rowid", arrival)
    return header, lines


def as_text(header, lines):
    """The rows as readable text, one column per line."""
    page = []
    for title, table in (("Arrivals", header), ("ArrivalsBody", lines)):
        for number, row in enumerate(table, 1):
            page.append(f"{title}, row {number} of {len(table)}")
            page += [f"    {name:16}{'Null' if value is None else value}"
                     for name, value in row.items()]
            page.append("")
    return "\n".join(page)


def differences(expected, row):
    """The columns of a row that differ from the expected values, to nine decimals."""
    found_differences = []
    for name, wanted in expected.items():
        found = row.get(name)
        same = (isinstance(found, (int, float)) and abs(found - wanted) < 1e-9
                if isinstance(wanted, float) else str(found) == str(wanted))
        if not same:
            found_differences.append(f"{name} is {found!r} where {wanted!r} was expected")
    return found_differences


def today():
    return date.today().isoformat() + "T00:00:00"
