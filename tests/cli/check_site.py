#!/usr/bin/env python3
"""zervo-cli site as a user runs it: one process and many, by GNU parallel, give the same folder; the report is a page
that another parser of HTML reads; words and exit codes.

Usage: check_site.py ZERVO_CLI
"""
import html.parser
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parent.parent.parent
CLI = os.path.abspath(sys.argv[1])
POEM = (TOP / "samples/vepkhistqaosani-legacy.html").read_bytes()
failures = []


def check(condition, what):
    if not condition:
        failures.append(what)
        print("not so:", what)


def run(*words, data=b""):
    done = subprocess.run([CLI, "site", *map(str, words)], input=data, capture_output=True)
    return done.returncode, done.stdout.decode(), done.stderr.decode()


def make(folder):
    for i in range(60):
        page = folder / f"part {i % 4}" / f"გვერდი-{i}.html"
        page.parent.mkdir(parents=True, exist_ok=True)
        page.write_bytes(POEM.replace(b"<TITLE>", b"<LINK REL=stylesheet HREF='../a.css'><TITLE>") + b"<P>%d" % i)
    (folder / "a.css").write_bytes(b"p:before{content:'\xDC\xC5'}")
    (folder / "<img src=x onerror=alert(1)>.html").write_bytes(POEM)
    (folder / "picture.gif").write_bytes(b"GIF89a")


def same(a, b):
    return subprocess.run(["diff", "-r", a, b], stdout=subprocess.DEVNULL).returncode == 0


class Report(html.parser.HTMLParser):
    def __init__(self, page):
        super().__init__()
        self.tags, self.texts = [], []
        self.feed(page)

    def handle_starttag(self, tag, attributes):
        self.tags.append((tag, dict(attributes)))

    def handle_data(self, data):
        self.texts.append(data)


def one_and_many(folder):
    make(folder / "site")
    for name in ("old", "many"):
        shutil.copytree(folder / "site", folder / name)
    code, said, err = run("plan", folder / "site", "--jsonl", folder / "plan.jsonl", "--report", folder / "plan.html")
    check(code == 0 and "legacy: 62 files, 62 change" in said, f"plan: {code} {said} {err}")
    check(same(folder / "site", folder / "old"), "a plan writes nothing into the folder")
    code, _, err = run("apply", folder / "site", "--backup", folder / "backup", "--plan", folder / "plan.jsonl", "-j2")
    check(code == 0, f"apply: {code} {err}")
    page = next((folder / "site").glob("part 1/*.html"))
    check(subprocess.run(["iconv", "-f", "GEORGIAN-PS", "-t", "UTF-8", folder / "old" / page.relative_to(folder / "site")],
                         capture_output=True).stdout.split(b"<BR>")[3] == page.read_bytes().split(b"<BR>")[3], "as iconv has it")

    # The same by several processes: first the pages, then what they link, with what the first have found.
    script = f"""
      cd '{folder}' &&
      find many -name '*.html' -print | parallel --pipe -N 10 -j 3 '{CLI}' site plan many --files - --jsonl pages-{{#}}.jsonl &&
      find many -name '*.css' -print | '{CLI}' site plan many --files - --jsonl sheets.jsonl {' '.join(f'--plan pages-{i}.jsonl' for i in range(1, 8))} &&
      find many -type f -print | parallel --pipe -N 10 -j 3 '{CLI}' site apply many --files - --backup many-backup \\
        --plan sheets.jsonl {' '.join(f'--plan pages-{i}.jsonl' for i in range(1, 8))} --jsonl done-{{#}}.jsonl"""
    done = subprocess.run(["bash", "-c", script], capture_output=True, text=True)
    check(done.returncode == 0, f"GNU parallel: {done.returncode} {done.stderr}")
    check(same(folder / "site", folder / "many"), "many processes do what one does")
    lines = sorted(str(path) for path in folder.glob("done-*.jsonl"))
    check(len(lines) > 3, "there were several")
    code, _, err = run("report", *lines, "--report", folder / "all.html", "--jsonl", folder / "all.jsonl")
    check(code == 0, f"report: {code} {err}")
    found = {one["file"]: one for one in map(json.loads, (folder / "all.jsonl").read_text().splitlines())}
    check(len(found) == 63 and sum(one.get("done") == "written" for one in found.values()) == 62, "all are in the report")
    for name in ("plan.html", "all.html"):
        report = Report((folder / name).read_text())
        check(not any(tag == "img" or "src" in attributes or "href" in attributes for tag, attributes in report.tags),
              f"{name} needs nothing else, and no name becomes a tag")
        check("<img src=x onerror=alert(1)>.html" in report.texts, f"{name} names every file")
        check(any("ვეფხისტყაოსანი" in text for text in report.texts), f"{name} shows letters")

    for site, backup in (("site", "backup"), ("many", "many-backup")):
        code, _, err = run("restore", folder / backup)
        check(code == 0 and same(folder / site, folder / "old"), f"restore: {code} {err}")
    check(run("apply", folder / "old", "--out", folder / "new")[0] == 0, "into a new folder")
    check((folder / "new/picture.gif").exists() and same(folder / "site", folder / "old"), "which has all files")


def words(folder):
    (folder / "site").mkdir()
    site = str(folder / "site")
    for bad in ((), ("nonsense", site), ("plan",), ("plan", site, "--out", "x"), ("apply", site), ("apply", site, "--out", "a", "--backup", "b"),
                ("plan", site, "-j", "x"), ("plan", site, "--report", site + "/r.html"), ("apply", site, "--out", site + "/x"), ("report",),
                ("restore", site, "--include", "x"), ("plan", site, "-o", "x"), ("plan", site, "--jsonl", "-", "--report", "-")):
        code, out, said = run(*bad)
        check(code == 2 and not out and said.startswith("zervo-cli: "), f"{bad} is wrong usage: {code} {said}")
    check(run("plan", folder / "nothing")[0] == 3 and run("restore", folder)[0] == 3, "no such folder, no backup")
    for hostile in (b"{}\n", b"[" * 100000, b'{"file":"a","form":"x","differences":[{}]}\n' + b"\xFF\n", b'{"file":1}'):
        code, out, _ = run("report", "-", data=hostile)
        check(code == (3 if b"form" not in hostile or b"\xFF" in hostile else 0) and "</html>" in out, f"a report of {hostile[:20]}")


for test in (one_and_many, words):
    with tempfile.TemporaryDirectory() as name:
        test(pathlib.Path(name))
print(f"{len(failures)} faults")
sys.exit(1 if failures else 0)
