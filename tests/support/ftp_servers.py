#!/usr/bin/env python3
"""Two FTP servers on the loopback address, for tests: a real one (pyftpdlib), and one that fails as it is told.

ftp_servers.py FOLDER READY: the real server keeps its files in FOLDER (user "tester", password "pass word"); when both
listen, READY holds their two ports. They end with this program.

At the failing server the user's name is the failure: see `FAILURES`.
"""
import os
import socket
import sys
import threading
import time

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.servers import FTPServer

# What the failing server does instead of an answer: a reply by command, "" for silence, None to hang up, a number to
# answer as usual after so many seconds, a function that makes the reply of the user's name and the argument.
HEX = lambda user, argument: "530 " + user.encode("latin-1").hex() + " " + argument.encode("latin-1").hex()
FAILURES = {
    "refused": {"PASS": "530 Not you, pass word."},
    "silent-login": {"PASS": ""},
    "silent-upload": {"STOR": ""},
    "no-folder": {"STOR": "550 No such directory."},
    "quota": {"STOR": "552 Quota exceeded."},
    "hangs-up": {"STOR": None},
    "shutting-down": {"STOR": "421 Going away."},
    "many-lines": {"STOR": "550-First line.\r\n550 Last line."},
    "no-data": {"PASV": "227 Here (127,0,0,1,0,1)."},
    "late-login": {"PASS": 33},
    "late-end": {"226": 33},
    "slow": {},
    "cuts": {},
    "bytes\xe9": {"PASS": HEX},
    "names": {"STOR": HEX},
    "names-utf8": {"STOR": HEX, "FEAT": "211-Known:\r\n MDTM\r\n UTF8\r\n211 End"},
    "good": {},
}
USUAL = {"USER": "331 Password?", "PASS": "230 In.", "TYPE": "200 Type.", "STOR": "150 Go on.", "PORT": "200 Port.", "QUIT": "221 Bye.",
         "SYST": "215 UNIX Type: L8", "PWD": '257 "/"'}


def receive(user, connect):
    """The file: slowly, or not to its end, where the user is so called."""
    with connect() as data:
        if user == "cuts":
            data.recv(1000)
            return
        while data.recv(1024 if user == "slow" else 65536):
            if user == "slow":
                time.sleep(1024 / 20000)


def serve(line):
    """One client of the failing server."""
    line.sendall(b"220 Ready.\r\n")
    failure, connect, user = {}, None, ""

    def answer(command, argument, usual):
        """Whether the conversation goes on."""
        instead = failure.get(command, usual)
        if callable(instead):
            instead = instead(user, argument)
        if instead == "":
            time.sleep(60)
        if instead in ("", None):
            return False
        if isinstance(instead, int):
            time.sleep(instead)
            instead = usual
        line.sendall(instead.encode() + b"\r\n")
        return True

    for request in line.makefile("r", encoding="latin-1", newline="\r\n"):
        command, _, argument = request.rstrip("\r\n").partition(" ")
        usual = USUAL.get(command, "502 What?")
        if command == "USER":
            user = argument
            failure = FAILURES.get(user, {})
        if command == "PORT":
            parts = argument.split(",")
            address = ".".join(parts[:4]), int(parts[4]) * 256 + int(parts[5])
            connect = lambda address=address: socket.create_connection(address)
        if command == "PASV":
            listener = socket.create_server(("127.0.0.1", 0))
            port = listener.getsockname()[1]
            connect = lambda listener=listener: listener.accept()[0]
            # The host is one that only the server's own network knows.
            usual = f"227 Here (10,1,1,1,{port >> 8},{port & 255})."
        if not answer(command, argument, usual):
            return
        if command == "STOR" and "STOR" not in failure:
            receive(user, connect)
            if not answer("226", "", "226 Done." if user != "cuts" else "226 Enough."):
                return


def fail_as_told(listener):
    while True:
        line, _ = listener.accept()

        def run(line=line):
            with line:
                try:
                    serve(line)
                except OSError:
                    pass

        threading.Thread(target=run, daemon=True).start()


def main():
    folder, ready = sys.argv[1:]
    authorizer = DummyAuthorizer()
    authorizer.add_user("tester", "pass word", folder, perm="elradfmw")

    class Handler(FTPHandler):
        pass

    Handler.authorizer = authorizer
    server = FTPServer(("127.0.0.1", 0), Handler)
    listener = socket.create_server(("127.0.0.1", 0))
    threading.Thread(target=fail_as_told, args=(listener,), daemon=True).start()
    with open(ready + ".part", "w", encoding="ascii") as file:
        file.write(f"{server.socket.getsockname()[1]} {listener.getsockname()[1]}")
    os.rename(ready + ".part", ready)
    server.serve_forever()


main()
