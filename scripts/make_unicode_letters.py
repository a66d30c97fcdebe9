#!/usr/bin/env python3
"""Writes src/host/locale/unicode_letters.inc: the Unicode facts about every letter and digit that a byte of the ANSI
code pages can stand for, and about the double-byte characters that have another case.

Run it from the root of the tree and format nothing afterwards. The facts come from Python's unicodedata.
"""
import unicodedata

SINGLE_BYTE = ["cp874"] + [f"cp{page}" for page in range(1250, 1259)] + ["cp932"]
DOUBLE_BYTE = ["cp932", "gbk", "cp949", "cp950"]
OUTPUT = "src/host/locale/unicode_letters.inc"

# Letters that Unicode doesn't take apart, and the letter with which they are sorted.
SORTED_WITH = {
    "ß": "s", "æ": "a", "œ": "o", "ø": "o", "đ": "d", "ð": "d", "ł": "l", "ħ": "h", "þ": "t", "ı": "i", "ŋ": "n",
    "ŧ": "t", "ƒ": "f", "ĸ": "k",
}
# Comes back as another letter, yet is a small sigma.
FINAL_SIGMA = "ς"


def decoded(codes, page):
    for code in codes:
        try:
            text = bytes(code).decode(page)
        except UnicodeDecodeError:
            continue
        if len(text) == 1:
            yield text


def simple(mapping, character):
    mapped = mapping(character)
    return mapped if len(mapped) == 1 else character


def upper(character):
    """The upper case, where the way back leads to the character again: micro sign, dotless i and the like stay."""
    mapped = simple(str.upper, character)
    if character == FINAL_SIGMA or simple(str.lower, mapped) == character:
        return mapped
    return character


def lower(character):
    mapped = simple(str.lower, character)
    return mapped if simple(str.upper, mapped) == character else character


def is_letter(character):
    return unicodedata.category(character).startswith("L")


def is_digit(character):
    return unicodedata.digit(character, None) is not None


def sorted_with(character):
    small = simple(str.lower, character)
    if small in SORTED_WITH:
        return SORTED_WITH[small]
    first = unicodedata.normalize("NFKD", small)[0]
    return simple(str.lower, first) if is_letter(first) or is_digit(first) else small


def kind(character):
    if is_letter(character):
        return "L"
    return "D" if is_digit(character) else "O"


def main():
    singles = {c for page in SINGLE_BYTE for c in decoded(((b,) for b in range(256)), page)}
    doubles = {
        c for page in DOUBLE_BYTE for c in decoded(((a, b) for a in range(0x81, 0xFF) for b in range(0x40, 0xFF)), page)
    }
    wanted = {c for c in singles if kind(c) != "O"}
    wanted |= {c for c in doubles if upper(c) != c or lower(c) != c}
    wanted |= {mapped for c in wanted for mapped in (upper(c), lower(c))}
    rows = []
    for c in sorted(c for c in wanted if ord(c) < 0x10000):
        codes = ", ".join(f"0x{ord(x):04X}" for x in (c, upper(c), lower(c), sorted_with(c)))
        rows.append(f"{{{codes}, {kind(c)}}},")
    with open(OUTPUT, "w", encoding="ascii") as out:
        out.write("// Made by scripts/make_unicode_letters.py from Unicode ")
        out.write(f"{unicodedata.unidata_version}: do not edit.\n")
        out.write("// Code point, upper case, lower case, the letter or digit with which it is sorted, "
                  "L letter, D digit, O other.\n")
        for i in range(0, len(rows), 3):
            out.write(" ".join(rows[i:i + 3]) + "\n")


if __name__ == "__main__":
    main()
