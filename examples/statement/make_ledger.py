#!/usr/bin/env python3
"""Writes a ledger of any number of rows to standard output, the same for the same number.

    make_ledger.py 1000000 >ledger.csv

Dates and amounts stand as people in Germany write them, in the different forms that one finds side by side.
"""
import datetime
import random
import sys

TEXTS = ["Miete", "Strom und Wasser", "Rechnung, Möbelhaus Krüger", "Gehälter", "Bürobedarf", '"Porto; Pakete"',
         "Gutschrift", "Versicherung", "Reisekosten"]
MONTHS = ["Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"]
FIRST_DAY = datetime.date(1993, 1, 1)
DAYS = 20 * 365


def shown_date(day, form):
    if form == 0:
        return f"{day.day}-{MONTHS[day.month - 1]}-{day.year}"
    if form == 1:
        return day.isoformat()
    return f"{day.day:02}.{day.month:02}.{day.year}"


def shown_amount(pfennigs, form):
    marks, rest = divmod(abs(pfennigs), 100)
    text = f"{marks:,}".replace(",", ".") + f",{rest:02}"
    if pfennigs < 0:
        text = text + "-" if form == 0 else "-" + text
    return text if form == 1 else text + " DM"


def main():
    if len(sys.argv) != 2 or not sys.argv[1].isdigit():
        sys.exit("usage: make_ledger.py ROWS")
    sys.stdout.reconfigure(encoding="utf-8")
    rows = int(sys.argv[1])
    chance = random.Random(rows)
    print("# convention: German\nDatum;Text;Betrag")
    for row in range(rows):
        day = FIRST_DAY + datetime.timedelta(days=row * DAYS // rows)
        pfennigs = int(chance.lognormvariate(10, 2)) * chance.choice((1, -1))
        form = chance.randrange(8)
        print(f"{shown_date(day, form)};{chance.choice(TEXTS)};{shown_amount(pfennigs, form)}")


if __name__ == "__main__":
    main()
