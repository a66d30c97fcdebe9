#!/usr/bin/env python3
"""Formats a table through pictures, with the library called from Python by ctypes.

    table.py [NUMBER-PICTURE [DATE-PICTURE]]

The library is the one that MORVL15_LIBRARY names, or that of the build beside this file, or the installed one.
"""
import ctypes
import os
import pathlib
import sys

ROWS = [
    # text, date, amount in plain digits
    ("Opening balance", "2003-01-02", "12480.37"),
    ("Rent", "2003-01-03", "-1150"),
    ("Invoice 2003-001", "2003-01-07", "3999.95"),
    ("Power and water", "2003-01-09", "-214.08"),
]

DEFAULT_PICTURES = ["#,##0.00_);(#,##0.00)", "MMM d, yyyy"]

TYPE_DATE = 1
TYPE_PICTURE = 6
LONG_PICTURE_FORM = 0


class Number(ctypes.Structure):
    """A decimal value of 22 digits."""

    _pack_ = 1
    _fields_ = [("bytes", ctypes.c_uint8 * 13)]


def fields(types):
    """Fields in the order of the header, a line of names for each type in turn."""
    return [(name, kind) for names, kind in types for name in names.split()]


class ControlBlock(ctypes.Structure):
    """FMTCntlBlock of morvl15/format.h: the order, the texts and the values of an operation."""

    _pack_ = 1
    _fields_ = fields([
        ("Type", ctypes.c_int32),
        ("Input", ctypes.c_char_p),
        ("Output", ctypes.c_void_p),
        ("ShortDatePic LongDatePic", ctypes.c_char_p),
        ("TimeIs24Hour", ctypes.c_int32),
        ("TimeSep", ctypes.c_char_p),
        ("TimeLZero", ctypes.c_int32),
        ("AMString PMString", ctypes.c_char_p),
        ("UseProfile Month Day Year Hour Minute Second Microsecond DateForm", ctypes.c_int32),
        ("Picture", ctypes.c_char_p),
        ("ThousandSep DecimalSep", ctypes.c_char),
        ("DoubleValue", ctypes.c_double),
        ("LeadingZero Digits", ctypes.c_int32),
        ("Currency", ctypes.c_char_p),
        ("CurrencyPos NegCurrency Country EmpDateBoundryCheck reserved", ctypes.c_int32),
        ("Flags", ctypes.c_uint32),
        ("Value", Number),
        ("Window", ctypes.c_void_p),
        ("Message", ctypes.c_uint32),
        ("WParam LParam Result", ctypes.c_void_p),
        ("reserved2", ctypes.c_int32 * 2),
    ])


def load_library():
    built = pathlib.Path(__file__).resolve().parents[2] / "build/release/lib/libmorvl15.so"
    named = os.environ.get("MORVL15_LIBRARY")
    return ctypes.CDLL(named or (str(built) if built.exists() else "libmorvl15.so"))


class Formatter:
    """Numbers and dates as text. Pictures are written in the conventions of the user's profile."""

    def __init__(self, library):
        self.library = library
        self.code_page = "cp%d" % library.GetACP()

    def _block(self, kind):
        block = ControlBlock()
        self.library.FMTInitCntlBlock(ctypes.byref(block))
        block.Type = kind
        return block

    def _text(self, operation, block, picture, what):
        # Names are at most four times as long as the letters that stand for them, a number has at most 203 digits.
        room = ctypes.create_string_buffer(4 * len(picture) + 512)
        block.Output = ctypes.addressof(room)
        if not operation(ctypes.byref(block)):
            raise ValueError(f"{what} can't be shown")
        return room.value.decode(self.code_page)

    def number(self, plain, picture):
        block = self._block(TYPE_PICTURE)
        block.UseProfile = 1
        block.Picture = picture.encode(self.code_page)
        if not self.library.FMTIsNumberPicValid(ctypes.byref(block)):
            raise ValueError(f"{picture!r} is no number picture (docs/number-pictures.md)")
        value = Number()
        if self.library.NumAsciiToNumber(ctypes.byref(value), plain.encode()) != len(plain):
            raise ValueError(f"{plain!r} is no number")
        block.Value = value
        return self._text(self.library.FMTFormatNumber, block, picture, plain)

    def date(self, iso, picture):
        if not self.library.FMTIsDatePicValid(picture.encode(self.code_page)):
            raise ValueError(f"{picture!r} is no date picture (docs/date-pictures.md)")
        block = self._block(TYPE_DATE)
        block.DateForm = LONG_PICTURE_FORM
        block.LongDatePic = picture.encode(self.code_page)
        block.Year, block.Month, block.Day = map(int, iso.split("-"))
        return self._text(self.library.FMTFormatDateTime, block, picture, iso)


def print_table(formatter, number_picture, date_picture):
    table = [(text, formatter.date(date, date_picture), formatter.number(amount, number_picture))
             for text, date, amount in ROWS]
    widths = [max(len(cell) for cell in column) for column in zip(*table)]
    for text, date, amount in table:
        print(f"{text:<{widths[0]}}  {date:>{widths[1]}}  {amount:>{widths[2]}}")


def main():
    number_picture, date_picture = (sys.argv[1:] + DEFAULT_PICTURES[len(sys.argv) - 1:])[:2]
    try:
        print_table(Formatter(load_library()), number_picture, date_picture)
    except ValueError as problem:
        sys.exit(f"table.py: {problem}")


if __name__ == "__main__":
    main()
