"""Writes all rows of a station's database, a line each.

Left out are the schema version, which an update changes, and tables that the update adds.
"""

import sqlite3
import sys

LEFT_OUT = {"StationSchema", "StationTrial"}


def main():
    database = sqlite3.connect(f"file:{sys.argv[1]}?mode=ro", uri=True)
    tables = [name for name, in database.execute(
        "SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY name")]
    for table in tables:
        if table not in LEFT_OUT:
            for row in sorted(map(repr, database.execute(f'SELECT * FROM "{table}"'))):
                print(table, row)


if __name__ == "__main__":
    main()
