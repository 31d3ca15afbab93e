#!/usr/bin/env python3
"""Writes the seven letter tables to resources/custom/. Run by hand when a table changes; the results are
checked in. Entries are separated by "/"; zero bytes fill the file up to a multiple of four and belong to
the last entry."""
import pathlib

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "resources" / "custom"

GEORGIAN = range(33)  # the modern alphabet: U+10D0..U+10F0
KEYS = "abgdevzTiklmnopJrstufqRySCcZwWxjh"
# The legacy font also has four letters that the modern alphabet dropped.
FONT_CODES = [code for code in range(0xC0, 0xE5) if code not in (0xC7, 0xCE, 0xD5, 0xE2)]
# Capitals, capital Yo, small letters, small yo: (byte of the Cyrillic code page, Unicode number).
RUSSIAN = (
    [(0xC0 + i, 0x410 + i) for i in range(32)]
    + [(0xA8, 0x401)]
    + [(0xE0 + i, 0x430 + i) for i in range(32)]
    + [(0xB8, 0x451)]
)


def reference(number):
    return f"&#{number};".encode("ascii")


TABLES = {
    "GRIGOLIA": [KEYS[i].encode("ascii") for i in GEORGIAN],
    "QARTULI_FONTCODES": [bytes([FONT_CODES[i]]) for i in GEORGIAN],
    "QARTULI_TEXT_UTF8": [chr(0x10D0 + i).encode("utf-8") for i in GEORGIAN],
    "QARTULI_HEX_UTF8": [reference(0x10D0 + i) for i in GEORGIAN],
    "QARTULI_HEX_XUCURI": [reference(0x10A0 + i) for i in GEORGIAN],
    "RUSULI_FONTCODES": [bytes([code]) for code, _ in RUSSIAN],
    "RUSULI_HEX": [reference(number) for _, number in RUSSIAN],
}

for name, entries in TABLES.items():
    data = b"/".join(entries)
    data += bytes(-len(data) % 4)
    (FOLDER / f"{name}.bin").write_bytes(data)
    print(f"{name}: {len(entries)} entries, {len(data)} bytes")
