#!/usr/bin/env python3
"""How often zervo-cli tells the form of a page and of a run rightly, on texts that its statistics were not made from.

Usage: measure_detector.py ZERVO_CLI FOLDER [PAGES]    (FOLDER: for the package that holds the texts; PAGES of each kind)

The texts are MediaWiki's translations. Pages are made of them with tags, attributes and English between, in each form,
with and without fonts.
"""
import json
import pathlib
import random
import re
import subprocess
import sys
import tempfile

PACKAGE = "mediawiki"
KEYS = dict(zip((chr(0x10D0 + i) for i in range(33)), "abgdevzTiklmnopJrstufqRySCcZwWxjh"))
GEORGIAN = {"legacy": "GEORGIAN-PS", "academy": "GEORGIAN-ACADEMY", "keyboard": None, "references": None, "utf-8": None,
            "double-utf-8": None}
FONTS = {"legacy": "Geo_Times", "keyboard": "AcadNusx"}


def fetch(folder):
    folder.mkdir(parents=True, exist_ok=True)
    if not (folder / PACKAGE).exists():
        subprocess.run(["apt-get", "download", "-q", PACKAGE], cwd=folder, check=True)
        subprocess.run(["dpkg-deb", "-x", next(folder.glob(f"{PACKAGE}_*.deb")), folder / PACKAGE], check=True)


def sentences(folder, language):
    found = []
    for path in sorted((folder / PACKAGE).glob(f"**/i18n/**/{language}.json")):
        for key, text in json.loads(path.read_text("utf-8")).items():
            if isinstance(text, str) and not key.startswith("@"):
                text = re.sub(r"\{\{.*?\}\}|\[\[|\]\]|\[\S+|\$\d|<[^>]*>|'''?|https?:\S+|&\w+;|[{}\[\]|=*#<>&_]", " ", text)
                text = re.sub(r"\s+", " ", text).strip()
                if len(text) > 3:
                    found.append(text)
    return found


def georgian_only(texts):
    """Sentences whose letters are Georgian."""
    return [t for t in texts if re.search("[\u10d0-\u10f0]", t) and not re.search("[A-Za-z\u0400-\u04ff]", t)]


def encode(text, form):
    if form in ("legacy", "academy"):
        out = by_iconv(text, GEORGIAN[form])
        return out
    if form == "keyboard":
        return "".join(KEYS.get(c, c) for c in text).encode("cp1252", "ignore")
    if form == "references":
        return "".join(f"&#{ord(c)};" if ord(c) > 127 else c for c in text).encode()
    if form == "double-utf-8":
        return "".join(chr(b) if not 0x80 <= b < 0xA0 else bytes([b]).decode("cp1252", "ignore") or chr(b)
                       for b in text.encode()).encode()
    return text.encode()


TABLES = {}


def by_iconv(text, charset):
    """As iconv does, which is asked once for each letter."""
    table = TABLES.setdefault(charset, {})
    out = bytearray()
    for c in text:
        if c not in table:
            run = subprocess.run(["iconv", "-f", "UTF-8", "-t", charset], input=c.encode(), capture_output=True)
            table[c] = run.stdout if run.returncode == 0 else c.encode("cp1252", "ignore")
        out += table[c]
    return bytes(out)


def letters(text):
    return sum(0x10D0 <= ord(c) <= 0x10F0 for c in text)


def some(rng, texts, least, most):
    """Sentences with so many Georgian letters together."""
    while True:
        picked, count = [], 0
        while count < least:
            text = rng.choice(texts)
            picked.append(text)
            count += letters(text)
        if count <= most:
            return picked
        if len(picked) == 1 and count > most:
            words, cut, n = picked[0].split(" "), [], 0
            for word in words:
                cut.append(word)
                n += letters(word)
                if least <= n <= most:
                    return [" ".join(cut)]


def page(rng, texts, form, english, fonts):
    out = [b"<HTML>\r\n<HEAD>\r\n"]
    if rng.random() < 0.5:
        out.append(b'<META HTTP-EQUIV="Content-Type" CONTENT="text/html; charset=' +
                   rng.choice([b"iso-8859-1", b"windows-1252", b"windows-1251", b"utf-8"]) + b'">\r\n')
    out.append(b"<TITLE>" + (encode(rng.choice(texts), form) if rng.random() < 0.5 else b"Home page") + b"</TITLE></HEAD>\r\n<BODY>")
    for text in texts:
        data = encode(text, form)
        if fonts and form in FONTS:
            data = b'<FONT FACE="' + FONTS[form].encode() + b'">' + data + b"</FONT>"
        out.append(rng.choice([b"<P>%s</P>\r\n", b"<TR><TD ALIGN=left>%s</TD></TR>\r\n", b"<LI>%s\r\n",
                               b'<A HREF="index.html">%s</A><BR>\r\n']) % data)
        if rng.random() < 0.3:
            words = " ".join(rng.choice(english).split()[:rng.randint(1, 5)])
            if fonts:
                out.append(b'<FONT FACE="Arial">%s</FONT>' % words.encode("ascii", "ignore"))
            else:
                out.append(b"<P>%s</P>" % words.encode("ascii", "ignore"))
    return b"".join(out) + b"</BODY></HTML>\r\n"


def detect(cli, pages, extra=()):
    with tempfile.TemporaryDirectory() as folder:
        names = []
        for i, data in enumerate(pages):
            path = pathlib.Path(folder) / f"{i}.html"
            path.write_bytes(data)
            names.append(str(path))
        lines = []
        for start in range(0, len(names), 500):
            run = subprocess.run([cli, "detect", *extra, *names[start:start + 500]], capture_output=True, text=True)
            lines += run.stdout.splitlines()
    return lines


def forms(lines):
    return [line.split(": ", 1)[1].split(" ")[0] for line in lines]


def main():
    cli, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    count = int(sys.argv[3]) if len(sys.argv) > 3 else 1000
    rng = random.Random(7)
    fetch(folder)
    texts = {language: sentences(folder, language) for language in ("ka", "en", "de", "fr", "ru", "es", "pl", "tr", "fi")}
    ka = georgian_only(texts["ka"])
    print({language: len(found) for language, found in texts.items()}, "Georgian alone:", len(ka))
    for least, most in ((100, 2000), (20, 100)):
        for form in GEORGIAN:
            for fonts in (False, True) if form in FONTS else (False,):
                pages = [page(rng, some(rng, ka, least, most), form, texts["en"], fonts) for _ in range(count)]
                found = forms(detect(cli, pages))
                bad = [f for f in found if f != form]
                print(f"pages of {least}..{most} letters, {form}{' with fonts' if fonts else ''}: "
                      f"{100 * (1 - len(bad) / count):.2f}% right", dict((f, bad.count(f)) for f in set(bad)))
    for form in ("legacy", "academy", "keyboard"):
        for fonts in (False, True) if form in FONTS else (False,):
            data = []
            for _ in range(count):
                run = encode(" ".join(some(rng, ka, 20, 26)), form)
                data.append(b'<FONT FACE="%s">%s</FONT>' % (FONTS[form].encode(), run) if fonts else run)
            found = forms(detect(cli, data))
            bad = [f for f in found if f != form]
            print(f"runs of 20 letters, {form}{' with fonts' if fonts else ''}: {100 * (1 - len(bad) / count):.2f}% right",
                  dict((f, bad.count(f)) for f in set(bad)))
    for language, charset in (("en", "cp1252"), ("de", "cp1252"), ("fr", "cp1252"), ("es", "cp1252"), ("ru", "cp1251"),
                              ("pl", "utf-8"), ("tr", "utf-8"), ("fi", "cp1252"), ("ru", "utf-8"), ("fr", "utf-8")):
        pages, size = [], 0
        for _ in range(count):
            lines = [rng.choice(texts[language]) for _ in range(rng.randint(1, 12))]
            pages.append(b"<HTML><HEAD><TITLE>x</TITLE></HEAD><BODY>" + b"".join(
                b"<P>" + line.encode(charset, "ignore") + b"</P>\r\n" for line in lines) + b"</BODY></HTML>")
        bad = [(f, p) for f, p in zip(forms(detect(cli, pages)), pages) if f in ("legacy", "academy", "keyboard", "mixed")]
        print(f"{language} in {charset}: {len(bad)} of {count} taken for Georgian", [(f, p[40:200]) for f, p in bad[:2]])


main()
