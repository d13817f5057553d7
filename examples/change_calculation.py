#!/usr/bin/env python3
"""Reads a calculation, changes it and saves it under another name, through the handle functions.

    change_calculation.py [--library FILE] TABLE RECORDS OUTPUT

The library is the file given, else the one that the environment variable TABVEX_LIBRARY names, else the one beside
this program, else the one that the system finds.
"""

import argparse
import ctypes
import os
import sys
from ctypes import POINTER, byref, c_char_p, c_double, c_int, create_string_buffer

CLAIM_NUMBER = 1020
DATE = 1030
MILEAGE = 1060
OPTION = 2120  # the key item of the options: with it, callers step over them
OPTION_PRICE = 2125
GUIDE_NUMBER = 4030  # the part that a repair position is about

# Of tabvex/result_codes.h. 0 or more is success.
OK = 0
FIND_NOTHING = 0
ENTRY_NO_MORE = -5
VALUE_BLANK = -101

LIBRARY_NAME = "TabVex32X.dll" if os.name == "nt" else "libTabVex32X.so"
TEXTS = "cp1252"  # the library takes and gives texts in windows-1252

# The functions used here with the types of their arguments; each gives an int unless it is listed below as one that
# gives nothing. Without them ctypes would have to guess, and gets numbers with decimals wrong.
TEXT = c_char_p  # a text that is only read; also a buffer to fill
FUNCTIONS = {
    "MifCreateInstance": [],
    "MifDestroyInstance": [c_int],
    "MifUseX4New": [c_int, c_int],
    "MifLoadTable": [c_int, TEXT, c_int, c_int],
    "MifReadAllRecordsEx": [c_int, TEXT],
    "MifReadItem": [c_int, c_int, TEXT, c_int],
    "MifReadDateItem": [c_int, c_int, TEXT, TEXT, c_int],
    "MifReadIntItem": [c_int, c_int, POINTER(c_int)],
    "MifReadFloatItem": [c_int, c_int, POINTER(c_double)],
    "MifReadFirst": [c_int, c_int],
    "MifReadNext": [c_int, c_int],
    "MifFindFirst": [c_int, c_int, TEXT],
    "MifWriteIntItem": [c_int, c_int, c_int],
    "MifAddX4Mutation": [c_int, TEXT],
    "MifGetX4MutationsCount": [c_int],
    "MifReadX4Mutation": [c_int, c_int, TEXT, c_int, POINTER(c_double), TEXT, c_int, TEXT, c_int],
    "MifSaveAllRecords": [c_int, TEXT, c_int],
}
WITHOUT_RESULT = {"MifDestroyInstance"}


class Failure(Exception):
    """What could not be done, and the library's code for why."""


def load_library(path):
    beside = os.path.join(os.path.dirname(os.path.abspath(__file__)), LIBRARY_NAME)
    if path is None:
        path = os.environ.get("TABVEX_LIBRARY") or (beside if os.path.exists(beside) else LIBRARY_NAME)
    try:
        library = ctypes.CDLL(path)
    except OSError as error:
        raise Failure(f"the library cannot be loaded: {error}") from error
    for name, arguments in FUNCTIONS.items():
        function = getattr(library, name)
        function.argtypes = arguments
        function.restype = None if name in WITHOUT_RESULT else c_int
    return library


def checked(what, code):
    if code < 0:
        raise Failure(f"{what}: failed with {code}")
    return code


class Calculation:
    """One calculation file in memory; use it in a with statement, which frees it at the end."""

    def __init__(self, library):
        self.library = library
        self.handle = library.MifCreateInstance()
        if self.handle == 0:
            raise Failure("out of memory")

    def __enter__(self):
        return self

    def __exit__(self, *unused):
        self.library.MifDestroyInstance(self.handle)

    def load(self, table, records):
        # repair positions with mutations that can be added and deleted
        self.library.MifUseX4New(self.handle, 1)
        checked("loading the table", self.library.MifLoadTable(self.handle, os.fsencode(table), 3, 2))
        checked("reading the records", self.library.MifReadAllRecordsEx(self.handle, os.fsencode(records)))

    def text(self, item):
        buffer = create_string_buffer(129)  # no item is longer than a line
        checked("reading an item", self.library.MifReadItem(self.handle, item, buffer, len(buffer)))
        # Items come in their full length, padded with blanks.
        return buffer.value.decode(TEXTS).rstrip(" ")

    def date(self, item):
        buffer = create_string_buffer(11)
        checked(
            "reading the date",
            self.library.MifReadDateItem(self.handle, item, b"YYYY-MM-DD", buffer, len(buffer)),
        )
        return buffer.value.decode(TEXTS)

    def integer(self, item):
        value = c_int()
        checked("reading the mileage", self.library.MifReadIntItem(self.handle, item, byref(value)))
        return value.value

    def number(self, item):
        """The number in a field, or None when it is blank."""
        value = c_double()
        code = self.library.MifReadFloatItem(self.handle, item, byref(value))
        if code == VALUE_BLANK:
            return None
        checked("reading a price", code)
        return value.value

    def entries(self, item):
        """Steps over the entries of the group with this key item; each is the current one in turn."""
        step = self.library.MifReadFirst(self.handle, item)
        while step == OK:
            yield
            step = self.library.MifReadNext(self.handle, item)
        if step != ENTRY_NO_MORE:
            checked("stepping over the options", step)

    def write_integer(self, item, value):
        checked("changing the mileage", self.library.MifWriteIntItem(self.handle, item, value))

    def find_part(self, part):
        """Makes the repair position of a part the current one: mutations are added to it and read from it."""
        found = self.library.MifFindFirst(self.handle, GUIDE_NUMBER, part.encode(TEXTS))
        if checked("finding a part", found) == FIND_NOTHING:
            raise Failure(f"no repair position for part {part}")

    def add_mutation(self, part, mutation):
        self.find_part(part)
        checked("adding a mutation", self.library.MifAddX4Mutation(self.handle, mutation.encode(TEXTS)))

    def mutations(self, part):
        """The code and the value of each mutation of a repair position."""
        self.find_part(part)
        count = checked("counting mutations", self.library.MifGetX4MutationsCount(self.handle))
        return [self.mutation(index) for index in range(1, count + 1)]

    def mutation(self, index):
        # One more than the size told: a text of exactly its size fits.
        code, text1, text2 = create_string_buffer(4), create_string_buffer(17), create_string_buffer(17)
        value = c_double()
        checked(
            "reading a mutation",
            self.library.MifReadX4Mutation(self.handle, index, code, 3, byref(value), text1, 16, text2, 16),
        )
        return code.value.decode(TEXTS).rstrip(" "), value.value

    def save(self, output):
        # The result is the number of record objects written, to which each that could not be written adds -8: a failure
        # can hide in it. Programs that must be sure read the saved file again.
        return checked("saving", self.library.MifSaveAllRecords(self.handle, os.fsencode(output), 1))


def print_options(calculation):
    prices = []
    for _ in calculation.entries(OPTION):
        price = calculation.number(OPTION_PRICE)
        if price is not None:  # places at the end of the last line may be free
            print(f"option {calculation.text(OPTION):<19} {price:8.2f}")
            prices.append(price)
    print(f"{len(prices)} options, {sum(prices):.2f} in all")


def change(library, table, records, output):
    with Calculation(library) as calculation:
        calculation.load(table, records)
        print(f"claim {calculation.text(CLAIM_NUMBER)}")
        print(f"date {calculation.date(DATE)}")
        print(f"mileage {calculation.integer(MILEAGE)} km")
        print_options(calculation)
        calculation.write_integer(MILEAGE, 48350)
        print("mileage changed to 48350 km")
        # TM is the one code of the sample table that can be added as it is; the others need their kinds to be told by
        # SetMutationList, which C++ and Java have, after the table is loaded and before the records are read.
        calculation.add_mutation("0301", "TM/99.50")
        print("mutation TM/99.50 added to part 0301")
        mutations = calculation.mutations("0301")
        print(f"mutations of part 0301: {len(mutations)}")
        for code, value in mutations:
            print(f"mutation {code} {value:.2f}")
        print(f"{calculation.save(output)} record objects saved")


def main():
    parser = argparse.ArgumentParser(description="Reads a calculation, changes it and saves it under another name.")
    parser.add_argument("--library", help=f"the library, {LIBRARY_NAME}")
    parser.add_argument("table")
    parser.add_argument("records")
    parser.add_argument("output")
    arguments = parser.parse_args()
    try:
        change(load_library(arguments.library), arguments.table, arguments.records, arguments.output)
    except Failure as failure:
        print(f"change_calculation.py: {failure}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
