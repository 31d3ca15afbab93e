#!/usr/bin/env python3
"""Makes Zervo's five fonts from DejaVu, so that a page is readable on a machine without a Georgian font.

Usage: make_fonts.py DEJAVU_FOLDER OUTPUT_FOLDER

The same input gives the same bytes. The fonts bear new names, as DejaVu's licence asks, and keep its notices.
"""
import os
import sys

from fontTools import subset
from fontTools.pens.recordingPen import DecomposingRecordingPen
from fontTools.pens.transformPen import TransformPen
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import TTFont

# The legacy encoding is the whole alphabet in its old order from C0 on, the four letters that left the alphabet
# in their places (C7, CE, D5 and E2).
LEGACY = dict(zip(range(0xC0, 0xE5), "აბგდევზჱთიკლმნჲოპჟრსტჳუფქღყშჩცძწჭხჴჯჰ"))
# The Latin letter that types each letter of today's alphabet.
KEYBOARD = dict(zip(map(ord, "abgdevzTiklmnopJrstufqRySCcZwWxjh"), "აბგდევზთიკლმნოპჟრსტუფქღყშჩცძწჭხჯჰ"))
RUSSIAN = {byte: bytes([byte]).decode("cp1251") for byte in (0xA8, 0xB8, *range(0xC0, 0x100))}

BOX = "zervobox"
# Bytes without a letter in Windows-1252, and the private characters that stand for them, NUL, LF and CR in the
# code view: all are drawn as a small hollow box.
LETTERLESS = [0x81, 0x8D, 0x8F, 0x90, 0x9D]
BOXED = [*LETTERLESS, *(0xE000 + byte for byte in (0x00, 0x0A, 0x0D, *LETTERLESS))]
# In a field of UTF-8 text the bytes that are no UTF-8, and NUL.
MALFORMED = [0xE000, *range(0xE080, 0xE100)]


def windows1252():
    """The characters of all printable bytes, as the code view holds them."""
    for byte in [*range(0x20, 0x7F), *range(0x80, 0x100)]:
        try:
            yield ord(bytes([byte]).decode("cp1252"))
        except UnicodeDecodeError:
            yield byte


def add_box(font):
    advance = font["hmtx"]["space"][0]
    left, right, top, line = advance // 4, advance - advance // 4, advance * 3 // 4, advance // 12
    pen = TTGlyphPen(None)
    outer = [(left, 0), (left, top), (right, top), (right, 0)]
    inner = [(left + line, line), (right - line, line), (right - line, top - line), (left + line, top - line)]
    for contour in (outer, inner):
        pen.moveTo(contour[0])
        for point in contour[1:]:
            pen.lineTo(point)
        pen.closePath()
    font["glyf"][BOX] = pen.glyph()  # also puts it into the glyph order
    font["hmtx"][BOX] = (advance, left)


def borrow(font, other, characters):
    """Letters that `font` has not, from `other`, as narrow as all of it; the characters that `other` has."""
    advance = font["hmtx"]["space"][0]
    names, glyphs = other.getBestCmap(), other.getGlyphSet()
    borrowed = [character for character in characters if character in names]
    for character in borrowed:
        name = names[character]
        narrowed = min(1, advance / glyphs[name].width)
        aside = (advance - glyphs[name].width * narrowed) / 2
        drawn, pen = DecomposingRecordingPen(glyphs), TTGlyphPen(None)
        glyphs[name].draw(drawn)
        drawn.replay(TransformPen(pen, (narrowed, 0, 0, 1, aside, 0)))
        glyph = pen.glyph()
        font["glyf"][name] = glyph
        glyph.recalcBounds(font["glyf"])
        font["hmtx"][name] = (advance, glyph.xMin)
        for table in font["cmap"].tables:
            if table.isUnicode():
                table.cmap[character] = name
    return borrowed


def rename(font, family):
    names = font["name"]
    kept = {0, 13, 14}  # copyright, licence with the trademark notice, the licence's address
    notices = [record for record in names.names if record.nameID in kept and record.platformID == 3]
    names.names = notices
    for number, text in {1: family, 2: "Regular", 3: family + " 1.0", 4: family, 5: "Version 1.0",
                         6: family.replace(" ", "")}.items():
        names.setName(text, number, 3, 1, 0x409)


def make(source, target, family, glyph_of, code_pages, hinting=True, lent=()):
    """glyph_of: code point shown -> code point of DejaVu whose glyph is drawn, or BOX. lent: a file and the characters
    that come from there if it has them."""
    font = TTFont(source, recalcTimestamp=False)
    add_box(font)
    if lent:
        glyph_of = glyph_of | {character: character for character in borrow(font, TTFont(lent[0]), lent[1])}
    original = font.getBestCmap()
    cmap = {shown: BOX if drawn == BOX else original[drawn] for shown, drawn in glyph_of.items()}
    tables = [table for table in font["cmap"].tables if (table.platformID, table.platEncID) in ((0, 3), (3, 1))]
    for table in tables:
        table.cmap = dict(cmap)
    font["cmap"].tables = tables

    options = subset.Options()
    options.layout_features = []
    options.drop_tables += ["FFTM", "GDEF", "GPOS", "GSUB", "MATH", "kern"]
    options.name_IDs = ["*"]
    options.name_languages = ["*"]
    options.notdef_outline = True
    options.hinting = hinting
    subsetter = subset.Subsetter(options)
    subsetter.populate(unicodes=cmap)
    subsetter.subset(font)

    rename(font, family)
    font["OS/2"].ulCodePageRange1 = sum(1 << bit for bit in code_pages)
    font["OS/2"].ulCodePageRange2 = 0
    font["OS/2"].achVendID = "ZRVO"
    font.save(target)


def main():
    dejavu, output = sys.argv[1:]
    os.makedirs(output, exist_ok=True)
    sans, mono = os.path.join(dejavu, "DejaVuSans.ttf"), os.path.join(dejavu, "DejaVuSansMono.ttf")
    latin, cyrillic = 0, 2  # bits of the code pages that Windows asks a font for

    ansi = {character: character for character in windows1252()} | {character: BOX for character in BOXED}
    georgian = {character: character for character in [*range(0x10D0, 0x10FD)]}

    def drawn(letters):
        return {shown: ord(letter) for shown, letter in letters.items()}

    interface = ansi | georgian
    for block in (range(0x20, 0x7F), range(0xA0, 0x180), range(0x400, 0x460), range(0x2010, 0x2028),
                  [0x2039, 0x203A, 0x20AC, 0x2116, 0x2122, 0x2190, 0x2191, 0x2192, 0x2193, 0x21B5, 0x2026, 0x2713, 0x2717]):
        interface |= {character: character for character in block}
    make(sans, os.path.join(output, "ZervoSans.ttf"), "Zervo Sans", interface, [latin, cyrillic])
    make(mono, os.path.join(output, "ZervoISO.ttf"), "Zervo ISO", ansi | drawn(LEGACY), [latin])
    make(mono, os.path.join(output, "ZervoASCII.ttf"), "Zervo ASCII", ansi | drawn(KEYBOARD), [latin])
    make(mono, os.path.join(output, "ZervoRUS.ttf"), "Zervo RUS", ansi | drawn(RUSSIAN), [latin, cyrillic])

    # Unicode; unhinted, since it is shown only where the system smooths letters, and so a third of the size.
    unicode = ansi | georgian | {character: BOX for character in MALFORMED}
    known = TTFont(mono).getBestCmap()
    for block in (range(0x20, 0x7F), range(0xA0, 0x180), range(0x2C6, 0x2DE), range(0x400, 0x530),
                  range(0x2010, 0x2060), range(0x20A0, 0x20C0), range(0x2190, 0x2194), [0x2116, 0x2122, 0x21B5]):
        unicode |= {character: character for character in block if character in known}
    old_georgian = [*range(0x10A0, 0x10D0), *range(0x10FD, 0x1100), *range(0x1C90, 0x1CC0)]
    make(mono, os.path.join(output, "ZervoMono.ttf"), "Zervo Mono", unicode, [latin, cyrillic], hinting=False,
         lent=(sans, old_georgian))


if __name__ == "__main__":
    main()
