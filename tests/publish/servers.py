"""Real servers on the loopback address: OpenSSH, vsftpd with TLS, pyftpdlib; and a relay that stands before any of them
and misbehaves. Their files, keys and settings live in one folder; they end with `close`.
"""
import os
import pathlib
import pwd
import shutil
import signal
import socket
import subprocess
import sys
import threading
import time

PASSWORD = "pass word"
DATA_PORTS = 24


def free_port(count=1):
    """The first of `count` free ports in a row, on both addresses."""
    for port in range(20000 + os.getpid() % 20000, 60000, count):
        held = []
        try:
            for i in range(count):
                for address in ("127.0.0.1", "127.0.0.2"):
                    held.append(socket.create_server((address, port + i)))
            return port
        except OSError:
            pass
        finally:
            for one in held:
                one.close()
    raise RuntimeError("no free port")


def wait_for(port, process):
    for _ in range(200):
        if process.poll() is not None:
            raise RuntimeError(f"{process.args[0]} ended with {process.returncode}")
        try:
            socket.create_connection(("127.0.0.1", port)).close()
            return
        except OSError:
            time.sleep(0.05)
    raise RuntimeError(f"{process.args[0]} does not listen")


class Relay:
    """Listens on 127.0.0.2 at the same ports as a server on 127.0.0.1. `mode`: "" passes all on; "silent" and "cut"
    after `limit` bytes from the client, "slow" with `limit` bytes a second from the client, "silent-data" and so on only
    for other ports than the first."""

    def __init__(self, ports, target_ports=None):
        self.mode, self.limit, self.seen = "", 0, 0
        self.sockets = []
        for port in ports:
            listener = socket.create_server(("127.0.0.2", port))
            first = port == ports[0]
            threading.Thread(target=self.accept, args=(listener, port, first), daemon=True).start()

    def be(self, mode, limit=0):
        self.mode, self.limit, self.seen = mode, limit, 0

    def accept(self, listener, port, first):
        while True:
            client, _ = listener.accept()
            try:
                server = socket.create_connection(("127.0.0.1", port))
            except OSError:
                client.close()
                continue
            for a, b, up in ((client, server, True), (server, client, False)):
                threading.Thread(target=self.pump, args=(a, b, up, first), daemon=True).start()

    def pump(self, source, target, up, first):
        try:
            while True:
                data = source.recv(4096 if up else 65536)
                if not data:
                    break
                mode = self.mode
                if mode.endswith("-data"):
                    mode = "" if first else mode[:-5]
                if up and mode:
                    self.seen += len(data)
                if mode == "slow" and up:
                    time.sleep(len(data) / self.limit)
                elif mode in ("silent", "cut") and self.seen > self.limit:
                    # Silent until the client hangs up: the server holds a lock on the file for as long.
                    while mode == "silent" and source.recv(65536):
                        pass
                    up = None
                    break
                target.sendall(data)
        except OSError:
            # Who has gone may have sent things that are still on their way.
            if up is False:
                return
        for one in (source, target):
            try:
                one.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass


class Servers:
    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.root = os.geteuid() == 0
        # Who logs in must not be root, to whom nothing is forbidden: one of Debian's own users with a home.
        self.user = "games" if self.root else pwd.getpwuid(os.geteuid()).pw_name
        self.processes = []
        self.folder.chmod(0o755)
        self.site = self.folder / "site"
        self.make(self.site)
        self.make(self.folder / "remote")
        self.keys()

    def make(self, folder):
        folder.mkdir()
        self.give(folder)

    def give(self, path):
        if self.root:
            shutil.chown(path, self.user)

    def start(self, words, port):
        log = open(self.folder / (pathlib.Path(words[0]).name + ".log"), "ab")
        process = subprocess.Popen(words, stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        self.processes.append(process)
        wait_for(port, process)

    def close(self):
        for process in self.processes:
            process.terminate()
        for process in self.processes:
            process.wait()
        self.processes = []

    def keys(self):
        def key(name, *kind, passphrase=""):
            subprocess.run(["ssh-keygen", "-q", "-N", passphrase, "-f", self.folder / name, *kind], check=True)
        key("host", "-t", "ecdsa")
        key("other_host", "-t", "ecdsa")
        key("user", "-t", "ecdsa")
        key("locked", "-t", "ecdsa", passphrase="open it")
        key("stranger", "-t", "ecdsa")
        key("modern", "-t", "ed25519")
        keys = "".join((self.folder / f"{name}.pub").read_text() for name in ("user", "locked", "modern"))
        (self.folder / "authorized_keys").write_text(keys)
        for name, host in (("tls", "127.0.0.1"), ("wrong", "example.org")):
            subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-days", "30",
                            "-subj", f"/CN={host}", "-addext", f"subjectAltName=DNS:localhost,IP:127.0.0.1,IP:127.0.0.2" if name == "tls"
                            else "subjectAltName=DNS:example.org", "-keyout", self.folder / f"{name}.key",
                            "-out", self.folder / f"{name}.crt"], check=True, capture_output=True)

    def ssh(self, host_key="host"):
        """Its port."""
        port = free_port()
        config = self.folder / f"sshd_config_{port}"
        config.write_text(f"""Port {port}
ListenAddress 127.0.0.1
HostKey {self.folder}/{host_key}
PidFile none
UsePAM no
StrictModes no
AuthorizedKeysFile {self.folder}/authorized_keys
PasswordAuthentication yes
MaxStartups 100
Subsystem sftp internal-sftp
""")
        if self.root:
            pathlib.Path("/run/sshd").mkdir(exist_ok=True)
        self.start(["/usr/sbin/sshd", "-D", "-e", "-f", str(config)], port)
        return port

    def known_hosts(self, path, port, host_key="host"):
        kind, blob = (self.folder / f"{host_key}.pub").read_text().split()[:2]
        with open(path, "a", encoding="ascii") as file:
            for host in ("127.0.0.1", "127.0.0.2"):
                file.write(f"[{host}]:{port} {kind} {blob}\n")

    def ftps(self, certificate="tls", site=None):
        """Its port; the data ports follow."""
        port = free_port(DATA_PORTS + 1)
        (self.folder / "passwords").write_text(PASSWORD + "\n")
        config = self.folder / f"vsftpd_{port}.conf"
        config.write_text(f"""listen=YES
background=NO
listen_address=127.0.0.1
listen_port={port}
pasv_min_port={port + 1}
pasv_max_port={port + DATA_PORTS}
anonymous_enable=YES
local_enable=NO
ftp_username={self.user}
anon_root={site or self.site.parent}
secure_email_list_enable=YES
email_password_file={self.folder}/passwords
write_enable=YES
anon_upload_enable=YES
anon_mkdir_write_enable=YES
anon_other_write_enable=YES
anon_world_readable_only=NO
anon_umask=022
seccomp_sandbox=NO
{"" if self.root else "run_as_launching_user=YES"}
ssl_enable=YES
allow_anon_ssl=YES
force_anon_logins_ssl=YES
force_anon_data_ssl=YES
require_ssl_reuse=NO
ssl_ciphers=HIGH
rsa_cert_file={self.folder}/{certificate}.crt
rsa_private_key_file={self.folder}/{certificate}.key
xferlog_enable=NO
""")
        if self.root:
            pathlib.Path("/var/run/vsftpd/empty").mkdir(parents=True, exist_ok=True)
        self.start(["/usr/sbin/vsftpd", str(config)], port)
        return port

    def ftp(self):
        port = free_port()
        self.start(["/usr/bin/python3", "-m", "pyftpdlib", "-i", "127.0.0.1", "-p", str(port), "-w", "-d", str(self.folder),
                    "-u", "tester", "-P", PASSWORD], port)
        return port


if __name__ == "__main__":
    # servers.py FOLDER: starts them all and says their ports, until it is ended.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit())
    servers = Servers(sys.argv[1])
    try:
        print("ssh", servers.ssh(), "ftps", servers.ftps(), "ftp", servers.ftp(), "user", servers.user, flush=True)
        while True:
            time.sleep(1)
    finally:
        servers.close()
