#!/usr/bin/env python3
"""Makes the two downloads: Zervo-VERSION-setup.exe (installer) and Zervo-VERSION-portable.zip.

Usage: make_package.py BUILD_FOLDER VERSION OUTPUT_FOLDER    (BUILD_FOLDER holds Zervo.exe, zervo-cli.exe,
Zervo.chm and licences)

The same files give the same bytes: the zip names every file with one date, that of SOURCE_DATE_EPOCH, and the
installer keeps no dates at all.
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import zipfile

TOP = pathlib.Path(__file__).resolve().parent.parent
SAMPLES = ["vepkhistqaosani-legacy.html", "vepkhistqaosani-latin.txt"]


def gather(build, folder):
    (folder / "samples").mkdir(parents=True)
    for file in [build / "Zervo.exe", build / "zervo-cli.exe", build / "Zervo.chm", build / "props.ini",
                 TOP / "resources/custom/FONTS.txt",
                 TOP / "resources/package/README.txt", TOP / "resources/package/LICENSE-libraries.txt",
                 TOP / "resources/fonts/LICENSE-DejaVu.txt", build / "licences/LICENSE-Scintilla.txt",
                 build / "licences/LICENSE-curl.txt"]:
        shutil.copyfile(file, folder / file.name)
    for sample in SAMPLES:
        shutil.copyfile(TOP / "samples" / sample, folder / "samples" / sample)


def make_zip(folder, output, seconds):
    date = time.gmtime(max(seconds, 315532800))[:6]  # the format begins with 1980
    with zipfile.ZipFile(output, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for file in sorted(path for path in folder.rglob("*") if path.is_file()):
            entry = zipfile.ZipInfo("Zervo/" + file.relative_to(folder).as_posix(), date)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.create_system = 0
            archive.writestr(entry, file.read_bytes(), compresslevel=9)


def make_installer(folder, output, version):
    shutil.copyfile(TOP / "resources/zervo.ico", folder.parent / "zervo.ico")
    run = subprocess.run(["makensis", "-V2", f"-DVERSION={version}", f"-DFROM={folder}", f"-DOUT={output}",
                          "-INPUTCHARSET", "UTF8", str(TOP / "resources/package/Zervo.nsi")],
                         capture_output=True, text=True)
    if run.returncode != 0:
        sys.exit(run.stdout + run.stderr)


def main():
    build, version, output = pathlib.Path(sys.argv[1]), sys.argv[2], pathlib.Path(sys.argv[3]).resolve()
    output.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as top:
        folder = pathlib.Path(top) / "Zervo"
        gather(build, folder)
        make_zip(folder, output / f"Zervo-{version}-portable.zip", int(os.environ.get("SOURCE_DATE_EPOCH", "0")))
        make_installer(folder, output / f"Zervo-{version}-setup.exe", version)


main()
