#!/usr/bin/env python3
"""Looks into the compiled help file with another program than the one that made it: every form has its page in both
languages, the pages are whole, and every link and every line of contents and index leads to a page that is there.

Usage: check_help.py Zervo.chm SOURCE
"""
import html.parser
import pathlib
import posixpath
import re
import subprocess
import sys
import tempfile

VOID = {"meta", "link", "br", "hr", "img", "param"}
failures = []


def check(condition, what):
    if not condition:
        failures.append(what)


class Page(html.parser.HTMLParser):
    def __init__(self, name):
        super().__init__()
        self.name, self.open, self.links, self.words = name, [], [], 0

    def handle_starttag(self, tag, attributes):
        if tag not in VOID:
            self.open.append(tag)
        self.links += [value for key, value in attributes if key in ("href", "src")]

    def handle_endtag(self, tag):
        if tag in ("p", "li") or tag not in VOID:
            check(self.open and self.open.pop() == tag, f"{self.name}: </{tag}> ends nothing")

    def handle_data(self, data):
        self.words += len(data.split())


def main():
    chm, source = sys.argv[1], pathlib.Path(sys.argv[2])
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["extract_chmLib", chm, folder], check=True, capture_output=True)
        top = pathlib.Path(folder)
        there = {str(path.relative_to(top)) for path in top.rglob("*") if path.is_file()}
        pages = {language: {path.name for path in (top / language).glob("*.htm")} for language in ("ka", "en")}
        check(pages["ka"] == pages["en"], f"in one language only: {pages['ka'] ^ pages['en']}")
        forms = {path.stem for path in (source / "resources/dialogs").glob("*.rc")}
        check(len(forms) > 10, "no dialogs found")
        for form in forms:
            for language, names in pages.items():
                check(form + ".htm" in names, f"{language}: {form} has no page")
        for page in pages["ka"]:
            check(not page.startswith("frm") or page[:-4] in forms, f"{page} is about a dialog that is not there")
        for language, names in pages.items():
            for name in names:
                file = f"{language}/{name}"
                page = Page(file)
                page.feed((top / file).read_text(encoding="utf-8"))
                check(not page.open, f"{file}: not ended: {page.open}")
                check(page.words > 10, f"{file} says nothing")
                for link in page.links:
                    target = posixpath.normpath(posixpath.join(language, link))
                    check(link.startswith("https:") or target in there, f"{file} links to {link}")
        for list_file in ("Zervo.hhc", "Zervo.hhk"):
            targets = re.findall(r'name="Local" value="([^"]+)"', (top / list_file).read_text(encoding="ascii"))
            check(set(targets) >= {f"{lang}/{name}" for lang in pages for name in pages[lang]},
                  f"{list_file} leaves pages out")
            for target in targets:
                check(target in there, f"{list_file} leads to {target}")
    for failure in failures:
        print(failure)
    print("help:", "FAILED" if failures else f"{sum(map(len, pages.values()))} pages good")
    sys.exit(bool(failures))


main()
