#!/usr/bin/env python3
"""Compares the made fonts with DejaVu letter by letter; what a byte means is asked of iconv.

Usage: check_fonts.py DEJAVU_FOLDER FONTS_FOLDER
"""
import pathlib
import re
import subprocess
import sys

from fontTools.pens.recordingPen import DecomposingRecordingPen
from fontTools.ttLib import TTFont

failures = []


def check(condition, what):
    if not condition:
        failures.append(what)


def iconv(charset, byte):
    run = subprocess.run(["iconv", "-f", charset, "-t", "UTF-8"], input=bytes([byte]), capture_output=True)
    return run.stdout.decode() if run.returncode == 0 else None


def outline(font, character):
    name = font.getBestCmap().get(ord(character))
    if name is None:
        return None
    glyphs = font.getGlyphSet()
    pen = DecomposingRecordingPen(glyphs)
    glyphs[name].draw(pen)
    return pen.value


def check_letters(original, font, name, letter_of):
    """letter_of: character in the code view -> character whose letter it must show."""
    for shown, letter in letter_of.items():
        expected = outline(original, letter)
        check(expected is not None and outline(font, shown) == expected, f"{name}: U+{ord(shown):04X} does not show {letter}")


def interface_characters():
    """Every character that stands in a text of the sources of the program."""
    top = pathlib.Path(__file__).resolve().parents[2]
    folders = "base ui app convert editor search project generators recent desktop program platform".split()
    for path in (path for folder in folders for path in (top / folder).rglob("*.cpp")):
        for line in path.read_text().splitlines():
            for text in re.findall(r'"((?:[^"\\]|\\.)*)"', line.split(" //")[0]):
                yield from (character for character in text if ord(character) >= 0x80)


def main():
    dejavu, folder = sys.argv[1:]
    mono = TTFont(f"{dejavu}/DejaVuSansMono.ttf")
    sans = TTFont(f"{dejavu}/DejaVuSans.ttf")
    ansi = {}
    unused = []
    for byte in range(0x80, 0x100):
        character = iconv("CP1252", byte)
        if character is None:
            unused.append(chr(byte))
        else:
            ansi[character] = character
    ascii_letters = {chr(code): chr(code) for code in range(0x21, 0x7F)}
    legacy = {chr(byte): iconv("GEORGIAN-PS", byte) for byte in range(0xC0, 0xE5)}
    russian = {chr(byte): iconv("CP1251", byte) for byte in [0xA8, 0xB8, *range(0xC0, 0x100)]}
    # As printed on the keys of a Georgian keyboard.
    keyboard = dict(zip("qwertyuiopasdfghjklzxcvbnm", "ქწერტყუიოპასდფგჰჯკლზხცვბნმ")) | dict(
        zip("WRTSJZC", "ჭღთშჟძჩ"))
    check(len(unused) == 5 and legacy["À"] == "ა" and legacy["ä"] == "ჰ", "iconv does not know the encodings")

    for name, letters in {"ISO": ascii_letters | ansi | legacy, "ASCII": ascii_letters | ansi | keyboard,
                          "RUS": ascii_letters | ansi | russian}.items():
        font = TTFont(f"{folder}/Zervo{name}.ttf")
        check_letters(mono, font, name, letters)
        check(len({width for width, _ in font["hmtx"].metrics.values()}) == 1, f"{name}: widths differ")
        for character in [*unused, "\ue000", "\ue00a", "\ue00d"]:
            check(outline(font, character), f"{name}: U+{ord(character):04X} is not drawn")
        check(font["post"].isFixedPitch, f"{name}: not marked as monospaced")

    font = TTFont(f"{folder}/ZervoMono.ttf")
    pages = ("CP1252", "CP1251", "ISO-8859-2", "GEORGIAN-PS")
    letters = {iconv(page, byte) for page in pages for byte in range(0xA1, 0x100)} - {None, "\u00ad"}
    check_letters(mono, font, "Mono", ascii_letters | ansi | {letter: letter for letter in letters | {*"→№€„“”—…"}})
    check({advance for advance, _ in font["hmtx"].metrics.values()} == {mono["hmtx"]["a"][0]}, "Mono: widths differ")
    check(font["post"].isFixedPitch, "Mono: not marked as monospaced")
    # Letters of old inscriptions, and the stand-ins of bytes that are no UTF-8.
    for code in [*range(0x10A0, 0x10C6), ord("↵"), 0xE000, *range(0xE080, 0xE100)]:
        check(outline(font, chr(code)), f"Mono: U+{code:04X} is not drawn")

    font = TTFont(f"{folder}/ZervoSans.ttf")
    georgian = {chr(code): chr(code) for code in range(0x10D0, 0x10F1)}
    cyrillic = {letter: letter for letter in russian.values()}
    used = {character: character for character in interface_characters()}
    check(len(used) > 33, "the sources have no Georgian texts")
    check_letters(sans, font, "Sans", ascii_letters | ansi | georgian | cyrillic | used)

    for name in ("Sans", "ISO", "ASCII", "RUS", "Mono"):
        font = TTFont(f"{folder}/Zervo{name}.ttf")
        text = {number: font["name"].getDebugName(number) or "" for number in range(20)}
        check(text[1] == text[4] == f"Zervo {name}" and text[6] == f"Zervo{name}", f"{name}: wrong name")
        check(not any(word in text[number] for word in ("Bitstream", "Vera", "DejaVu") for number in (1, 3, 4, 6, 16)),
              f"{name}: a protected name")
        check("Bitstream, Inc" in text[0], f"{name}: no copyright notice")
        check("trademark" in text[13] and "Permission is hereby granted" in text[13], f"{name}: no licence")

    for failure in failures:
        print(failure)
    print(f"fonts: {len(failures)} differences")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
