#!/usr/bin/env python3
"""Makes the sample pages of samples/ from the poem in Unicode: run it after changing samples/*.utf8.txt.

The legacy page is what a web author of around 2000 would have written: letters of an 8-bit Georgian font, named in
FONT tags. The Latin sample is plain text, since the conversion commands would take tags for Georgian as well.
"""
import os

ALPHABET = "აბგდევზთიკლმნოპჟრსტუფქღყშჩცძწჭხჯჰ"
LEGACY = bytes(code for code in range(0xC0, 0xE5) if code not in (0xC7, 0xCE, 0xD5, 0xE2)).decode("latin-1")
KEYBOARD = "abgdevzTiklmnopJrstufqRySCcZwWxjh"

HEAD = """<HTML>
<HEAD>
<TITLE>{title}</TITLE>
</HEAD>
<BODY BGCOLOR="#FFFFFF">
<FONT FACE="Geo_Times">
<H1>{title}</H1>
<H3>{author}</H3>
"""
TAIL = """</FONT>
</BODY>
</HTML>
"""


def page(title, author, stanzas):
    body = "".join("<P>\n" + "<BR>\n".join(stanza.splitlines()) + "\n</P>\n" for stanza in stanzas)
    return HEAD.format(title=title, author=author) + body + TAIL


def main():
    folder = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "samples")
    with open(os.path.join(folder, "vepkhistqaosani.utf8.txt"), encoding="utf-8") as file:
        poem = file.read()
    heading, *stanzas = poem.strip().split("\n\n")
    title, author = heading.splitlines()

    def write(name, text, letters):
        with open(os.path.join(folder, name), "wb") as file:
            file.write(text.translate(str.maketrans(ALPHABET, letters)).replace("\n", "\r\n").encode("latin-1"))

    write("vepkhistqaosani-legacy.html", page(title, author, stanzas), LEGACY)
    write("vepkhistqaosani-latin.txt", poem, KEYBOARD)


if __name__ == "__main__":
    main()
