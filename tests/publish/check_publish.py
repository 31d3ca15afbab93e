#!/usr/bin/env python3
"""zervo-cli publish against real servers: what is sent, what is left, and every way in which a server can fail.

Usage: check_publish.py ZERVO_CLI, or check_publish.py --windows ZERVO_CLI_EXE: that one sends a page under Wine.
"""
import concurrent.futures
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
from servers import DATA_PORTS, PASSWORD, Relay, Servers

WINDOWS = sys.argv[1] == "--windows"
CLI = [sys.argv[-1]]
failures = []


def check(condition, what):
    if not condition:
        failures.append(what)
        print("not so:", what, flush=True)


def run(*words, password=PASSWORD, timeout=3, agent=None):
    env = {**os.environ, "ZERVO_PASSWORD": password}
    env.pop("SSH_AUTH_SOCK", None)
    if agent:
        env["SSH_AUTH_SOCK"] = str(agent)
    start = time.monotonic()
    done = subprocess.run(CLI + ["publish", "--timeout", str(timeout), *map(str, words)], env=env, stdin=subprocess.DEVNULL,
                          capture_output=True, timeout=120)
    return done.returncode, done.stdout.decode().replace("\r", ""), done.stderr.decode(), time.monotonic() - start


class Place:
    """One protocol: how to reach it, and where its files are."""

    def __init__(self, servers, name):
        self.name, self.servers, self.words = name, servers, []
        folder = servers.folder
        if name == "sftp":
            self.port = servers.ssh()
            servers.known_hosts(folder / "hosts", self.port)
            self.words = ["--key", folder / "user", "--known-hosts", folder / "hosts"]
            self.relay = Relay([self.port])
        elif name == "ftps":
            self.port = servers.ftps()
            self.words = ["--ca", folder / "tls.crt"]
            self.relay = Relay(list(range(self.port, self.port + DATA_PORTS + 1)))
        else:
            self.port = servers.ftp()

    def url(self, folder, relay=False):
        # Schannel knows no numbers in certificates.
        host = "127.0.0.2" if relay else "localhost" if self.name == "ftps" else "127.0.0.1"
        if self.name == "sftp":
            return f"sftp://{self.servers.user}@{host}:{self.port}{self.servers.folder}/{folder}"
        return f"{self.name}://{'anonymous' if self.name == 'ftps' else 'tester'}@{host}:{self.port}/{folder}"

    def publish(self, folder, pages, *more, relay=False, **kept):
        return run(*self.words, *more, self.url(folder, relay), pages, **kept)


def held(folder):
    """All files below it but ours, with their bytes."""
    return {str(path.relative_to(folder)): path.read_bytes() for path in folder.rglob("*")
            if path.is_file() and not path.name.startswith(".zervo-publish-")}


def changes(place, pages):
    target = place.servers.site / place.name
    (pages / "sub folder").mkdir()
    files = {"index.html": b"<html>", "sub folder/\u10d2\u10d5\u10d4\u10e0\u10d3\u10d8 #1%.html": "\u10d0".encode(), "empty.css": b"",
             ".htaccess": b"x", "big.jpg": os.urandom(1_500_000)}
    for name, data in files.items():
        (pages / name).write_bytes(data)
    url = "site/" + place.name

    def expect(what, code, *more, **kinds):
        got, out, said, _ = place.publish(url, pages, *more)
        lines = dict(line.split(" ", 1)[::-1] for line in out.splitlines())
        for name in files:
            want = kinds.get(name.split(".")[0].split("/")[0].replace(" ", "_"), "same")
            check(lines.get(name) == want, f"{place.name}, {what}: {name} is {want}, not {lines.get(name)}")
        check(got == code, f"{place.name}, {what}: exit {code}, not {got}: {said}")

    every = dict(index="new", sub_folder="new", empty="new", big="new", **{"": "new"})
    expect("dry", 0, "--dry-run", **every)
    check(not target.exists(), f"{place.name}: a dry run makes nothing")
    expect("first", 0, **every)
    check(held(target) == held(pages), f"{place.name}: all is there, and nothing else: {sorted(held(target))}")
    expect("again", 0)
    (pages / "index.html").write_bytes(b"<HTML>")
    os.utime(pages / "index.html", (1, 1))
    os.utime(pages / "empty.css", (1, 1))
    expect("changed", 0, index="changed")
    check(held(target) == held(pages), f"{place.name}: the change is there")
    (pages / "big.jpg").unlink()
    expect("gone, kept", 0, big="gone")
    expect("gone", 0, "--delete", big="gone")
    del files["big.jpg"]
    check(held(target) == held(pages), f"{place.name}: what is gone is gone there")
    (target / "index.html").write_bytes(b"somebody else's")
    (pages / "index.html").write_bytes(b"<html> mine")
    expect("conflict", 1, index="conflict")
    check((target / "index.html").read_bytes() == b"somebody else's", f"{place.name}: a conflict is left")
    expect("conflict, sent over", 0, "--overwrite", index="conflict")
    check(held(target) == held(pages), f"{place.name}: sent over")


def fails(what, words, result, seconds=60):
    code, _, said, took = result
    check(code == 3 and words in said, f"{what}: {words!r}, not {code}: {said}")
    check(took < seconds, f"{what}: ends within {seconds} s, not {took:.0f}")


def faults(place, pages):
    """Nothing but the whole old file is ever seen under its name, and a run afterwards makes all good."""
    folder = place.servers.site / (place.name + "-faults")
    place.servers.make(folder)
    url = "site/" + folder.name
    page = pages / "page.html"
    page.write_bytes(b"old")
    check(place.publish(url, pages, relay=True)[0] == 0, f"{place.name}: through the relay")
    page.write_bytes(os.urandom(1_000_000))
    for mode, limit, words in (("silent", 0, "is silent"), ("silent", 400_000, "is silent"), ("cut", 400_000, "cut")):
        mode += "-data" if place.name == "ftps" and limit else ""
        place.relay.be(mode, limit)
        fails(f"{place.name}, {mode} after {limit}", words, place.publish(url, pages, relay=True, timeout=2), 40)
        check((folder / "page.html").read_bytes() == b"old", f"{place.name}, {mode}: the old file is whole")
    place.relay.be("slow", 150_000)
    code, _, said, _ = place.publish(url, pages, relay=True)
    check(code == 0, f"{place.name}: a slow server has its time, and what was begun is gone on with: {said}")
    check(held(folder) == held(pages), f"{place.name}: all good, nothing left: {sorted(held(folder))}")
    place.relay.be("")
    page.write_bytes(b"newer")
    folder.chmod(0o555)
    fails(f"{place.name}, no permission", "no permission", place.publish(url, pages, relay=True))
    folder.chmod(0o755)
    check(len((folder / "page.html").read_bytes()) == 1_000_000, f"{place.name}, no permission: the old file is whole")
    port, place.port = place.port, 1
    fails(f"{place.name}, refused", "refuses the connection" if place.name == "ftps" else "", place.publish(url, pages))
    place.port = port


def full_disk(place, pages):
    """Only root may mount a small one."""
    small = place.servers.site / ("small-" + place.name)
    small.mkdir()
    if os.geteuid() != 0 or subprocess.run(["mount", "-t", "tmpfs", "-o", "size=256k,mode=777", "tmpfs", small], capture_output=True).returncode:
        print("no small disk here: left out")
        return
    try:
        (pages / "page.html").write_bytes(os.urandom(1_000_000))
        fails(f"{place.name}, full disk", "disk is full", place.publish("site/" + small.name, pages))
        check(not held(small), f"{place.name}, full disk: nothing is left of it: {sorted(held(small))}")
    finally:
        subprocess.run(["umount", small], check=True)


def trust(servers, places, pages):
    (pages / "a.html").write_bytes(b"a")
    sftp, ftps = places["sftp"], places["ftps"]
    empty = servers.folder / "no-hosts"
    fails("unknown host key", "is not known", run("--key", servers.folder / "user", "--known-hosts", empty, sftp.url("site/t"), pages))
    changed = servers.folder / "changed-hosts"
    servers.known_hosts(changed, sftp.port, "other_host")
    fails("changed host key", "HAS CHANGED", run("--key", servers.folder / "user", "--known-hosts", changed, sftp.url("site/t"), pages))
    hosts = servers.folder / "hosts"
    fails("a key that nobody knows", "does not accept", run("--key", servers.folder / "stranger", "--known-hosts", hosts, sftp.url("site/t"), pages))
    fails("wrong password, sftp", "does not accept", run("--known-hosts", hosts, sftp.url("site/t"), pages))
    fails("a locked key", "passphrase", run("--key", servers.folder / "locked", "--known-hosts", hosts, sftp.url("site/t"), pages))
    fails("wrong password, ftps", "does not accept", ftps.publish("site/t", pages, password="wrong"))
    fails("unknown certificate", "certificate cannot be trusted", run(ftps.url("site/t"), pages))
    wrong = f"ftps://anonymous@127.0.0.1:{servers.ftps('wrong')}/site/t"
    fails("another name's certificate", "certificate cannot be trusted", run("--ca", servers.folder / "wrong.crt", wrong, pages))
    plain = places["ftp"].url("site/t").replace("ftp://", "ftps://")
    fails("no encryption", "offers no encryption", run(plain, pages))
    check(not (servers.site / "t").exists(), "nothing was sent to whom nobody trusts")
    socket = servers.folder / "agent"
    agent = subprocess.Popen(["ssh-agent", "-D", "-a", str(socket)], stdout=subprocess.DEVNULL)
    try:
        while not socket.exists():
            time.sleep(0.01)
        subprocess.run(["ssh-add", "-q", servers.folder / "modern"], env={**os.environ, "SSH_AUTH_SOCK": str(socket)}, check=True)
        done = run("--known-hosts", hosts, sftp.url("site/agent"), pages, password="wrong", agent=socket)
        check(done[0] == 0 and held(servers.site / "agent") == held(pages), f"by the key that an agent holds: {done}")
    finally:
        agent.terminate()
        agent.wait()


def windows(servers, place, pages):
    """Windows' own TLS, and SSH by the libraries that are built in: one run that sends, one that finds all the same."""
    (pages / "page.html").write_bytes(os.urandom(300_000))
    words = [f"Z:{word}" if isinstance(word, pathlib.Path) else word for word in place.words]
    folder = servers.site / ("windows-" + place.name)

    def publish(*words):
        return subprocess.run(["tools/wine-run", *CLI, "publish", "--timeout", "10", *words, place.url("site/" + folder.name), f"Z:{pages}"],
                              env={**os.environ, "ZERVO_PASSWORD": PASSWORD}, stdin=subprocess.DEVNULL, capture_output=True, timeout=120)

    if place.name == "sftp":
        # A key alone, without its public half beside it, in a Georgian folder.
        key = servers.folder / "\u10d2\u10d0\u10e1\u10d0\u10e6\u10d4\u10d1\u10d8" / "user"
        key.parent.mkdir()
        shutil.copy(servers.folder / "user", key)
        words[1] = f"Z:{key}"
        done = publish("--key", f"Z:{servers.folder / 'modern'}", *words[2:])
        check(done.returncode == 3 and b"use an ECDSA one" in done.stderr, f"Windows, a key of another kind, not {done}")
    for what in ("new", "same"):
        done = publish(*words)
        check(done.returncode == 0 and f"{what} page.html".encode() in done.stdout, f"Windows, {place.name}: {what}, not {done}")
        check(folder.exists() and held(folder) == held(pages), f"Windows, {place.name}: all is there")


with tempfile.TemporaryDirectory() as name:
    servers = Servers(name)
    try:
        places = {kind: Place(servers, kind) for kind in ("sftp", "ftps", "ftp")}

        def with_pages(test, *words):
            with tempfile.TemporaryDirectory() as pages:
                test(*words, pathlib.Path(pages))

        if WINDOWS:
            for kind in ("sftp", "ftps"):
                with_pages(windows, servers, places[kind])
        else:
            for place in places.values():
                with_pages(changes, place)

            def badly(place):
                with_pages(faults, place)
                with_pages(full_disk, place)

            # What waits for silent servers waits at the same time.
            with concurrent.futures.ThreadPoolExecutor() as pool:
                for running in [pool.submit(badly, places[kind]) for kind in ("sftp", "ftps")]:
                    running.result()
            with_pages(trust, servers, places)
    finally:
        servers.close()
print(f"{len(failures)} faults")
sys.exit(1 if failures else 0)
