#!/usr/bin/env python3
"""Makes resources/letters/georgian.bin, russian.bin and western.bin: how likely each letter is behind the two before it.

Usage: make_letter_statistics.py FOLDER    (run by hand; the results are checked in)

The texts are the translations that the Debian packages below ship; they are downloaded into FOLDER by apt-get and
unpacked there. Letters are numbered from 1, 0 is whatever is no letter. The cost of letter c behind a and b stands at
(a * n + b) * n + c, two to a byte, the even one in the low half: -log2(probability) in steps of 3/4 bit, 15 at most.
"""
import collections
import gettext
import math
import pathlib
import subprocess
import sys
import unicodedata

TOP = pathlib.Path(__file__).resolve().parent.parent
PACKAGES = ["libreoffice-l10n-ka", "gimp-data", "evolution-common", "vlc-l10n", "libgtk-3-common",
            "gnome-control-center-data"]
STEP = 0.75

GEORGIAN = {chr(0x10D0 + i): i + 1 for i in range(33)}
RUSSIAN = {chr(0x430 + i): i + 1 for i in range(32)} | {"ё": 6}  # like е
LATIN = {chr(ord("a") + i): i + 1 for i in range(26)}
# Parts of all that is read as Western text.
WESTERN = {"en": 40, "de": 12, "fr": 12, "es": 6, "it": 6, "pt": 4, "nl": 4, "pl": 4, "sv": 3, "da": 2, "fi": 3, "tr": 3,
           "cs": 3, "hu": 3, "ro": 2}


def fetch(folder):
    folder.mkdir(parents=True, exist_ok=True)
    for package in PACKAGES:
        if not (folder / package).exists():
            subprocess.run(["apt-get", "download", "-q", package], cwd=folder, check=True)
            archive = next(folder.glob(f"{package}_*.deb"))
            subprocess.run(["dpkg-deb", "-x", archive, folder / package], check=True)


def texts(folder, language):
    """The translations into `language`; of English those that everything is translated from."""
    seen = set()
    for package in PACKAGES:
        for path in sorted((folder / package).glob(f"**/{'de' if language == 'en' else language}/**/*.mo")):
            with open(path, "rb") as file:
                catalog = gettext.GNUTranslations(file)._catalog
            for key, value in catalog.items():
                original = key[0] if isinstance(key, tuple) else key
                text = original if language == "en" else value
                text = text.split("\x04")[-1]
                if original and text not in seen and (language == "en" or text != original):
                    seen.add(text)
                    yield text.replace("_", "").replace("&", "")


def count(lines, alphabet, fold=False):
    counts = collections.Counter()
    for line in lines:
        line = line.lower()
        if fold:
            line = "".join(c for c in unicodedata.normalize("NFD", line.replace("ß", "ss").replace("ı", "i"))
                           if not unicodedata.combining(c))
        a = b = 0
        for char in line + " ":
            c = alphabet.get(char, 0)
            if b or c:
                counts[a, b, c] += 1
            a, b = (b, c) if c else (0, 0)
    return counts


def costs(counts, size):
    bigrams, pairs, letters = collections.Counter(), collections.Counter(), collections.Counter()
    for (a, b, c), times in counts.items():
        pairs[a, b] += times
        bigrams[b, c] += times
        letters[c] += times
    befores = collections.Counter()
    for (b, _), times in bigrams.items():
        befores[b] += times
    everything = sum(letters.values())
    result = []
    for a in range(size):
        for b in range(size):
            for c in range(size):
                single = 0.9 * letters[c] / everything + 0.1 / size
                two = (bigrams[b, c] + 20 * single) / (befores[b] + 20)
                three = (counts[a, b, c] + 10 * two) / (pairs[a, b] + 10)
                result.append(min(15, max(0, round(-math.log2(three) / STEP))))
    return result


def write(name, counts, size):
    values = costs(counts, size)
    values += [0] * (len(values) % 2)
    data = bytes(values[i] | values[i + 1] << 4 for i in range(0, len(values), 2))
    path = TOP / "resources" / "letters" / f"{name}.bin"
    path.parent.mkdir(exist_ok=True)
    path.write_bytes(data)
    print(f"{name}: {sum(counts.values())} letters read, {len(data)} bytes")


def main():
    folder = pathlib.Path(sys.argv[1])
    fetch(folder)
    write("georgian", count(texts(folder, "ka"), GEORGIAN), 34)
    write("russian", count(texts(folder, "ru"), RUSSIAN), 33)
    western = collections.Counter()
    for language, part in WESTERN.items():
        counts = count(texts(folder, language), LATIN, fold=True)
        total = sum(counts.values())
        for key, times in counts.items():
            western[key] += times / total * part * 20000
    write("western", western, 27)


main()
