#!/usr/bin/env python3
"""Checks the Zervo.exe that ships: a 32-bit GUI program in one file, large-address-aware, that needs nothing but the
system's libraries and carries manifest, fonts and the seven letter tables, their bytes as iconv knows the letters.

Usage: check_exe.py Zervo.exe
"""
import struct
import subprocess
import sys

SYSTEM = {"advapi32", "bcrypt", "comctl32", "comdlg32", "crypt32", "dwmapi", "gdi32", "hhctrl", "imm32", "kernel32",
          "msimg32", "msvcrt", "ntdll", "ole32", "oleacc", "oleaut32", "secur32", "shell32", "shlwapi", "user32",
          "uxtheme", "version", "wininet", "winspool", "ws2_32", "rpcrt4", "uuid"}
RT_MANIFEST = 24
GERMAN = 1031

failures = []


def check(condition, what):
    if not condition:
        failures.append(what)


class Image:
    def __init__(self, data):
        self.data = data
        pe = struct.unpack_from("<I", data, 0x3C)[0]
        self.signature = data[pe:pe + 4]
        self.machine, sections, _, _, _, optional, self.characteristics = struct.unpack_from("<HHIIIHH", data, pe + 4)
        start = pe + 24
        self.magic = struct.unpack_from("<H", data, start)[0]
        self.subsystem = struct.unpack_from("<H", data, start + 68)[0]
        directories = start + (96 if self.magic == 0x10B else 112)
        self.directories = [struct.unpack_from("<II", data, directories + 8 * i) for i in range(16)]
        self.sections = [struct.unpack_from("<IIII", data, start + optional + 40 * i + 8) for i in range(sections)]

    def offset(self, address):
        for size, start, raw, place in self.sections:
            if start <= address < start + max(size, raw):
                return address - start + place
        raise ValueError(f"address {address:x} is in no section")

    def imports(self):
        at = self.offset(self.directories[1][0])
        while True:
            name = struct.unpack_from("<IIIII", self.data, at)[3]
            if not name:
                return
            begin = self.offset(name)
            yield self.data[begin:self.data.index(0, begin)].decode()
            at += 20

    def resources(self):
        """(type, name, language) -> bytes"""
        root = self.offset(self.directories[2][0])

        def entries(at):
            named, numbered = struct.unpack_from("<HH", self.data, at + 12)
            for i in range(named + numbered):
                name, target = struct.unpack_from("<II", self.data, at + 16 + 8 * i)
                if name & 0x80000000:
                    place = root + (name & 0x7FFFFFFF)
                    length = struct.unpack_from("<H", self.data, place)[0]
                    name = self.data[place + 2:place + 2 + 2 * length].decode("utf-16-le")
                yield name, root + (target & 0x7FFFFFFF)

        found = {}
        for kind, names in entries(root):
            for name, languages in entries(names):
                for language, leaf in entries(languages):
                    address, size = struct.unpack_from("<II", self.data, leaf)
                    begin = self.offset(address)
                    found[kind, name, language] = self.data[begin:begin + size]
        return found


def iconv(charset, text):
    return subprocess.run(["iconv", "-f", "UTF-8", "-t", charset], input=text.encode(), stdout=subprocess.PIPE,
                          check=True).stdout


def tables():
    georgian = [chr(0x10D0 + i) for i in range(33)]
    upper = [chr(code) for code in range(0x410, 0x430)] + ["\u0401"]
    russian = upper + [letter.lower() for letter in upper]
    references = lambda letters: ["&#%d;" % ord(letter) for letter in letters]
    rows = {
        "GRIGOLIA": (68, list("abgdevzTiklmnopJrstufqRySCcZwWxjh")),
        "QARTULI_FONTCODES": (68, [iconv("GEORGIAN-PS", letter) for letter in georgian]),
        "QARTULI_TEXT_UTF8": (132, georgian),
        "QARTULI_HEX_UTF8": (264, references(georgian)),
        "QARTULI_HEX_XUCURI": (264, references(chr(0x10A0 + i) for i in range(33))),
        "RUSULI_FONTCODES": (132, [iconv("CP1251", letter) for letter in russian]),
        "RUSULI_HEX": (528, references(russian)),
    }
    for name, (size, entries) in rows.items():
        content = b"/".join(entry if isinstance(entry, bytes) else entry.encode() for entry in entries)
        yield name, content.ljust(size, b"\0")


def main():
    with open(sys.argv[1], "rb") as file:
        image = Image(file.read())
    check(image.signature == b"PE\0\0" and image.magic == 0x10B and image.machine == 0x14C, "not a 32-bit program")
    check(image.subsystem == 2, "not a GUI program")
    check(image.characteristics & 0x20, "not large-address-aware")
    imports = list(image.imports())
    check(len(imports) > 3, "hardly any imports were read")
    for library in imports:
        check(library.lower().rsplit(".", 1)[0] in SYSTEM, f"needs {library}")

    resources = image.resources()
    manifests = [data for (kind, _, _), data in resources.items() if kind == RT_MANIFEST]
    check(any(b"Microsoft.Windows.Common-Controls" in data and b"PerMonitor" in data for data in manifests),
          "no manifest for common controls 6 and per-monitor DPI")
    fonts = [data for data in resources.values() if data[:4] == b"\0\1\0\0" and b"glyf" in data[:300]]
    check(len(fonts) == 5, f"{len(fonts)} fonts instead of 5")
    for name, content in tables():
        check(resources.get(("CUSTOM", name, GERMAN)) == content, f"table {name} is missing or different")

    for failure in failures:
        print(failure)
    print(f"{sys.argv[1]}: {len(failures)} faults; imports {', '.join(sorted(imports))}")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
