#!/usr/bin/env python3
"""zervo-cli as a user runs it: words, exit codes, files; and that another parser of HTML finds the same text before and
after a conversion.

Usage: check_cli.py ZERVO_CLI [COMMAND...]    (COMMAND runs it, such as wine)
"""
import html.parser
import json
import pathlib
import re
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parent.parent.parent
CLI = sys.argv[2:] + [sys.argv[1]]
failures = []


def check(condition, what):
    if not condition:
        failures.append(what)
        print("not so:", what)


def run(*words, data=b""):
    done = subprocess.run(CLI + list(words), input=data, capture_output=True)
    return done.returncode, done.stdout, done.stderr.decode()


class Texts(html.parser.HTMLParser):
    """All that a reader sees, and all attributes."""

    def __init__(self, page):
        super().__init__()
        self.found = []
        self.feed(page)
        self.close()

    def handle_starttag(self, tag, attributes):
        if tag != "meta" or not any(name in ("charset", "http-equiv") for name, _ in attributes):
            self.found.append((tag, [pair for pair in attributes if pair[0] != "face"]))

    def handle_data(self, data):
        if self.found and isinstance(self.found[-1], str):
            self.found[-1] += data
        elif data.strip():
            self.found.append(data)

    def handle_comment(self, data):
        self.found.append(("comment", data))


def texts(page):
    return [one.strip() if isinstance(one, str) else one for one in Texts(page).found if not isinstance(one, str) or one.strip()]


def decode(data, charset):
    """As iconv does; what is no letter there is Windows-1252."""
    out = subprocess.run(["iconv", "-f", charset, "-t", "UTF-8"], input=data, stdout=subprocess.PIPE, check=True).stdout.decode()
    return "".join(bytes([ord(c)]).decode("cp1252", "ignore") or c if 0x80 <= ord(c) < 0xA0 else c for c in out)


POEM = (TOP / "samples/vepkhistqaosani-legacy.html").read_bytes()
ROWS = b"".join(b"<tr><td align=left>%s<td title='%s'>&nbsp;%s&amp;&copy;<br/>\r\n" % (line, line[:12], line)
                for line in POEM.split(b"<BR>\r\n")[2:20] if b"<" not in line)
HARD = (b"<html>\n<head>\n<title>" + POEM[23:37] + b"</title></head><body bgcolor=#ffffff text=black>\n<table>" + ROWS +
        b"</table><p>a < b &lt; c &#60; d<select><option value=1>" + ROWS[20:60].split(b"<")[0] +
        b"</select><textarea>&quot;\x84" + POEM[111:125] + b"\x93 \x96 </textarea></p></body></html>")


def same_texts():
    for name, page in (("poem", POEM), ("hard", HARD)):
        for to in ("utf-8", "references"):
            code, out, _ = run("convert", "--to", to, "-", data=page)
            check(code == 0, f"{name} is converted to {to}")
            before, after = texts(decode(page, "GEORGIAN-PS")), texts(out.decode())
            check(before == after, f"{name} to {to}: the texts are the same for another parser: "
                  f"{[pair for pair in zip(before, after) if pair[0] != pair[1]][:3]}")
            check(run("convert", "--to", to, "-", data=out)[:2] == (0, out), f"{name} to {to}: converted again it is the same")
            if to == "references":
                check(all(byte < 128 for byte in out), f"{name} as references is ASCII")


def words():
    for bad in ((), ("nonsense",), ("detect",), ("convert",), ("convert", "-", "x"), ("convert", "--from", "mixed", "-"),
                ("convert", "--to", "x", "-"), ("convert", "--in-place", "-"), ("convert", "--backup", ".b", "x"),
                ("convert", "-o", "a", "--in-place", "b"), ("detect", "--nonsense", "x"), ("convert", "-o")):
        code, out, said = run(*bad)
        check(code == 2 and not out and said.startswith("zervo-cli: "), f"{bad} is wrong usage")
    code, out, _ = run("--help")
    check(code == 0 and b"--in-place" in out, "--help helps")
    manual = (TOP / "docs/zervo-cli.1").read_text()
    for word in set(part for part in out.decode().replace("|", " ").replace(",", " ").replace(":", " ").split() if part.startswith("--")):
        check(word.replace("-", "\\-") in manual, f"the manual page tells of {word}")
    check(run("--version")[1].startswith(b"zervo-cli "), "--version tells it")


def files():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        page = folder / "გვერდი.html"
        page.write_bytes(POEM)
        code, out, _ = run("detect", str(page))
        check((code, out.decode()) == (0, f"{page}: legacy 1.00 letters=1003\n"), f"the form of the poem, not {out.decode()}")
        found = json.loads(run("detect", "--json", str(page))[1])
        check(found["form"] == "legacy" and found["runs"][0]["text"] == "ვეფხისტყაოსანი" and found["runs"][0]["line"] == 3, "runs in JSON")
        check(run("convert", "-o", str(folder / "out.html"), str(page))[0] == 0, "-o")
        good = (folder / "out.html").read_bytes()
        check(page.read_bytes() == POEM, "the page itself stays")
        check(run("convert", "--in-place", "--backup", ".old", str(page))[0] == 0 and page.read_bytes() == good, "--in-place")
        check((folder / "გვერდი.html.old").read_bytes() == POEM, "--backup")
        check(run("convert", "--in-place", "--backup", ".old", str(page))[0] == 0, "nothing to do, and the backup stays")
        page.write_bytes(POEM)
        check(run("convert", "--in-place", "--backup", ".old", str(page))[0] == 3 and page.read_bytes() == POEM, "no backup is lost")
        check(run("convert", str(folder / "nothing.html"))[0] == 3, "a missing file")
        check(run("convert", "-o", str(folder / "no/such"), str(page))[0] == 3, "a missing folder")
        check(run("detect", str(folder / "nothing.html"), str(page))[1].startswith(str(page).encode()), "goes on with the next file")
        (folder / "fonts.txt").write_text("keyboard: Secret*\n")
        secret = b"<html><font face=Secret1>guli</font>"
        check(b"guli" in run("convert", "-", data=secret)[1], "an unknown font tells nothing")
        check("გული".encode() in run("convert", "--fonts", str(folder / "fonts.txt"), "-", data=secret)[1], "--fonts")
    check(run("convert", "--text", "--from", "keyboard", "-", data=b"<b>")[1] == "<ბ>".encode(), "--text has no tags")
    check(run("convert", "--from", "legacy", "-", data=b"\xC0\xE4\xE2")[1] == "აჰჴ".encode(), "--from")
    code, out, said = run("convert", "-", data=POEM + b"<P>\r\n" + "Привет, как ваши дела сегодня".encode("cp1251") + b"<P>\xD0\xC0")
    check(code == 1 and re.search(r"^-:\d+: left, uncertain", said) and "ÐÀ" in said, f"uncertain texts are listed: {said}")


def bad_input():
    wide = "<html>გული".encode("utf-16")
    for name, data, word in (("empty", b"", "empty"), ("UTF-16", wide, "UTF-16"), ("picture", b"\x89PNG\r\n\x1a\n", "binary"),
                             ("zeros", bytes(1000), "binary")):
        code, out, said = run("convert", "-", data=data)
        check(code == (0 if name == "empty" else 3) and not out and word in said, f"{name}: {code} {said}")
    check(run("convert", "--from", "utf-16", "-", data=wide)[1] == "<html>\r\n<meta charset=\"utf-8\">გული".encode(), "--from utf-16")
    for data in (b"<" * 10_000_000, b"<P>\x00a\x00", b"<!-- \xC0\xC1\xC2", b"<A HREF=\"\xC0"):
        code, out, _ = run("convert", "-", data=data)
        check(code in (0, 1) and out.decode() is not None, f"{data[:9]}")


for test in (same_texts, words, files, bad_input):
    test()
print(f"{len(failures)} faults")
sys.exit(1 if failures else 0)
