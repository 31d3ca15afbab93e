#!/usr/bin/env python3
"""Makes Zervo.chm from the pages of docs/help: a project with contents and index for the compiler of Free Pascal.

Usage: make_help.py DOCS/HELP OUTPUT.CHM

Labels of contents and index are the titles of the English pages, since the format keeps them in 8 bits. The compiler
ends with success in some cases in which it has written nothing, so what it wrote is looked at. The same pages give the
same bytes: the time of day is taken out of the file, and there is no binary index, which holds what happens to be in
the compiler's memory.
"""
import html
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile

FIRST = ["index", "conversion", "typing", "documents", "window", "html", "keyboard"]
TITLE = re.compile(r"<title>(.*?)</title>")


def title(page):
    return html.unescape(TITLE.search(page.read_text(encoding="utf-8")).group(1))


def item(label, target):
    return (f'<LI><OBJECT type="text/sitemap"><param name="Name" value="{html.escape(label)}">'
            f'<param name="Local" value="{target}"></OBJECT>\n')


def contents(folder, names):
    text = "<HTML><BODY><UL>\n"
    for language, heading in (("ka", "Kartuli"), ("en", "English")):
        text += item(heading, f"{language}/index.htm") + "<UL>\n"
        text += "".join(item(title(folder / "en" / f"{name}.htm"), f"{language}/{name}.htm") for name in names)
        text += "</UL>\n"
    return text + "</UL></BODY></HTML>\n"


def index(folder, names):
    rows = sorted((title(folder / "en" / f"{name}.htm"), name) for name in names)
    return ("<HTML><BODY><UL>\n" +
            "".join(item(f"{label} ({language})", f"{language}/{name}.htm") for label, name in rows
                    for language in ("en", "ka")) + "</UL></BODY></HTML>\n")


def without_time(data):
    """The milliseconds of the day stand in the header, and behind the compiler's name in the system section."""
    data = data[:16] + bytes(4) + data[20:]
    entry = b"\x03\x00\x00\x00" + struct.pack("<HH", 10, 4)
    place = data.find(entry, data.find(b"Compiled by CHMCmd")) + len(entry)
    return data[:place] + bytes(4) + data[place + 4:]


def main():
    source, output = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    names = sorted(page.stem for page in (source / "ka").glob("*.htm"))
    names.sort(key=lambda name: FIRST.index(name) if name in FIRST else len(FIRST))
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder) / "help"
        shutil.copytree(source, work)
        pages = [f"{language}/{name}.htm" for language in ("ka", "en") for name in names] + ["help.css"]
        (work / "Zervo.hhc").write_text(contents(work, names), encoding="ascii")
        (work / "Zervo.hhk").write_text(index(work, names), encoding="ascii")
        (work / "Zervo.hhp").write_text(
            "[OPTIONS]\nCompatibility=1.1 or later\nCompiled file=Zervo.chm\nContents file=Zervo.hhc\n"
            "Index file=Zervo.hhk\nDefault topic=ka/index.htm\nLanguage=0x409\nTitle=Zervo\nFull-text search=No\nBinary Index=No\n\n"
            "[FILES]\n" + "\n".join(pages) + "\n", encoding="ascii")
        run = subprocess.run(["chmcmd", "Zervo.hhp"], cwd=work, capture_output=True, text=True)
        made = work / "Zervo.chm"
        if run.returncode != 0 or not made.exists() or made.stat().st_size < 1000:
            sys.exit(f"chmcmd failed ({run.returncode}):\n{run.stdout}{run.stderr}")
        output.write_bytes(without_time(made.read_bytes()))


main()
