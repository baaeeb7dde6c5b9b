#!/usr/bin/env python3
"""Sums arrivals by day, party and commodity, apart from the program, in exact fractions.

    day-book-sums.py LINES

LINES is a CSV file of bag lines: ArrivalId,Day,Party,Commodity,Bags,BagWeight,Tare,ScaleDeduction,
Net. Writes a line for each sum: what it is by, its id, how many arrivals it has, how many trucks are
still inside, bags, first weight, tare, gross, deduction, net, mounds. Weights of an arrival are
rounded to hundredths of a kilogram, ties away from zero, and then added up.
"""
import csv
import sys
from decimal import Decimal, ROUND_HALF_UP, localcontext
from fractions import Fraction
from itertools import groupby


def hundredths(kilograms):
    """What is a tie in six further decimals counts as one: stored shares are not exact."""
    with localcontext() as context:
        context.prec = 60
        exact = Decimal(kilograms.numerator) / Decimal(kilograms.denominator)
        near = exact.quantize(Decimal("0.00000001"), ROUND_HALF_UP)
        return Fraction(near.quantize(Decimal("0.01"), ROUND_HALF_UP))


def figures(lines):
    """None where the truck is still inside."""
    def total(column):
        return sum(Fraction(float(line[column])) for line in lines)

    tare = total("Tare")
    if tare == 0:
        return None
    stored_gross = sum(
        Fraction(float(line["Bags"])) * Fraction(float(line["BagWeight"])) for line in lines)
    scale = Fraction(float(lines[0]["ScaleDeduction"]))
    first = hundredths(stored_gross + scale + tare)
    tare = hundredths(tare)
    net = hundredths(total("Net"))
    gross = first - tare
    return [total("Bags"), first, tare, gross, gross - net, net]


def text(number):
    written = format(Decimal(number.numerator) / Decimal(number.denominator), "f")
    return written.rstrip("0").rstrip(".") if "." in written else written


def main():
    sums = {}
    with open(sys.argv[1], newline="", encoding="utf-8") as file:
        for _, group in groupby(csv.DictReader(file), key=lambda line: line["ArrivalId"]):
            lines = list(group)
            found = figures(lines)
            for by in ("Day", "Party", "Commodity"):
                entry = sums.setdefault((by, lines[0][by]), [0, 0, [Fraction(0)] * 6])
                if found is None:
                    entry[1] += 1
                else:
                    entry[0] += 1
                    entry[2] = [a + b for a, b in zip(entry[2], found)]
    for (by, key), (arrivals, inside, total) in sorted(sums.items()):
        cells = [by, key, str(arrivals), str(inside)]
        print(",".join(cells + [text(number) for number in total] + [text(total[5] / 40)]))


main()
