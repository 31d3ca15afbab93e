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

# What the failing server does instead of an answer: a reply by command, "" for silence, None to hang up.
FAILURES = {
    "refused": {"PASS": "530 Not you, pass word."},
    "silent-login": {"PASS": ""},
    "silent-upload": {"STOR": ""},
    "no-folder": {"STOR": "550 No such directory."},
    "quota": {"STOR": "552 Quota exceeded."},
    "hangs-up": {"STOR": None},
    "shutting-down": {"STOR": "421 Going away."},
    "good": {},
}
USUAL = {"USER": "331 Password?", "PASS": "230 In.", "TYPE": "200 Type.", "PORT": "200 Port.", "QUIT": "221 Bye.",
         "SYST": "215 UNIX Type: L8", "PWD": '257 "/"'}


def serve(line):
    """One client of the failing server."""
    line.sendall(b"220 Ready.\r\n")
    failure, address = {}, None
    for request in line.makefile("r", encoding="latin-1"):
        command, _, argument = request.strip().partition(" ")
        if command == "USER":
            failure = FAILURES.get(argument, {})
        if command in failure:
            if failure[command] is None:
                return
            if failure[command] == "":
                time.sleep(60)
                return
            line.sendall(failure[command].encode() + b"\r\n")
            continue
        if command == "PORT":
            parts = argument.split(",")
            address = ".".join(parts[:4]), int(parts[4]) * 256 + int(parts[5])
        if command == "STOR":
            line.sendall(b"150 Go on.\r\n")
            with socket.create_connection(address) as data:
                while data.recv(65536):
                    pass
            line.sendall(b"226 Done.\r\n")
            continue
        line.sendall(USUAL.get(command, "502 What?").encode() + b"\r\n")


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
