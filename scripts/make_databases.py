#!/usr/bin/env python3
"""Builds the two material databases from the tables in databases/: make_databases.py [FOLDER]

They go to FOLDER, to share/Database without one.

Each table of a database is one value of the column "Table"; its columns are the others, in their
order and under their own names. Cells of the number columns become floating-point numbers, empty
ones NULL. The same input gives the same bytes.
"""

import csv
import pathlib
import sqlite3
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DATABASES = {
    "Acoustic.mdb": "acoustic_materials.csv",
    "pzmatls.mdb": "piezo_materials.csv",
}
TEXT_COLUMNS = {"Material", "Vendor", "Formula", "Comments", "Data source"}


def quoted(name):
    return '"' + name.replace('"', '""') + '"'


def stored(column, cell):
    if column in TEXT_COLUMNS:
        return cell
    return float(cell) if cell else None


def make_database(path, source):
    path.unlink(missing_ok=True)
    with open(source, newline="", encoding="utf-8") as file:
        rows = csv.DictReader(file)
        columns = [name for name in rows.fieldnames if name != "Table"]
        declared = ", ".join(
            quoted(name) + (" TEXT" if name in TEXT_COLUMNS else " REAL") for name in columns
        )
        places = ", ".join("?" * len(columns))
        database = sqlite3.connect(path)
        tables = set()
        for row in rows:
            table = row["Table"]
            if table not in tables:
                tables.add(table)
                database.execute(f"CREATE TABLE {quoted(table)} ({declared})")
            cells = [stored(name, row[name]) for name in columns]
            database.execute(f"INSERT INTO {quoted(table)} VALUES ({places})", cells)
        database.commit()
        database.execute("VACUUM")
        database.close()


folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "share" / "Database"
for name, source in DATABASES.items():
    make_database(folder / name, ROOT / "databases" / source)
