#!/usr/bin/env python3
"""Runs the commands of docs/site-setup.ru.md, block by block, on a private server: site_setup_page.py SOURCE BIN."""
import os
import pathlib
import pwd
import re
import shutil
import socket
import subprocess
import sys
import tempfile
import time

source, programs = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
page = (source / "docs/site-setup.ru.md").read_text(encoding="utf-8")
server_bin = sorted(pathlib.Path("/usr/lib/postgresql").iterdir())[-1] / "bin"
user = pwd.getpwnam("postgres") if os.geteuid() == 0 else pwd.getpwuid(os.geteuid())
as_user = ["setpriv", "--pdeathsig=QUIT"]
if os.geteuid() == 0:
    as_user += ["--reuid=postgres", "--regid=postgres", "--clear-groups"]


def blocks(kind):
    found = re.findall(rf"^```{kind}\n(.*?)^```$", page, re.M | re.S)
    assert found, f"the page has no block of kind {kind}"
    return found


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def main(folder):
    data, port = folder / "data", free_port()
    environment = dict(os.environ, PGHOST=str(folder), PGPORT=str(port), PGDATA=str(data), HOME=str(folder),
                       PATH=f"{programs}:{server_bin}:{os.environ['PATH']}", QT_QPA_PLATFORM="offscreen",
                       XDG_RUNTIME_DIR=str(folder), STORE="postgresql:///journal", ANSWERS=str(folder / "answers"),
                       COPY=str(folder / "copy.dump"), PASSWORD="очень длинный пароль",
                       PGPASSFILE=str(folder / ".pgpass"), PGSSLROOTCERT=str(folder / "server.crt"))

    def run(script):
        done = subprocess.run([*as_user, "bash", "-euc", script], env=environment, cwd=folder, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120)
        print(f"$ {script.strip()}\n{done.stdout}", flush=True)
        if done.returncode:
            sys.exit(f"returned {done.returncode}")
        return done.stdout

    os.chown(folder, user.pw_uid, user.pw_gid)
    shutil.copy(source / "packaging/site-answers.txt", folder / "answers")
    os.chmod(folder / "answers", 0o644)
    run(f"initdb --username={user.pw_name} --encoding=UTF8 --locale=C.UTF-8 --no-sync >initdb.log")
    run("openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=localhost -keyout server.key -out server.crt "
        "2>openssl.log; chmod 600 server.key; cp server.key server.crt data/")
    run(blocks("stopped")[0])
    with open(data / "postgresql.conf", "a", encoding="utf-8") as configuration:
        configuration.write("".join(blocks("conf")) + f"port = {port}\nunix_socket_directories = '{folder}'\n")
    access = "".join(blocks("hba")).replace("192.168.10.0/24", "127.0.0.1/32 ")
    (data / "pg_hba.conf").write_text(access.replace(" postgres ", f" {user.pw_name} "), encoding="utf-8")
    run("cp -a data empty")  # a server that has never had a journal

    def start(folder_of_data):
        process = subprocess.Popen([*as_user, str(server_bin / "postgres"), "-D", folder_of_data], env=environment,
                                   cwd=folder, stdout=open(folder / "log", "wb"), stderr=subprocess.STDOUT)
        run("for i in $(seq 200); do pg_isready -q && exit; sleep 0.1; done; cat log; exit 1")
        return process

    seats = []
    server = start("data")
    try:
        for script in blocks("server") + blocks("sh"):
            run(script)
        passwords = re.findall(r"^(\w+); .*\n(.+)$", (folder / "answers").read_text(encoding="utf-8"), re.M)
        assert len(passwords) == 3, passwords
        (folder / ".pgpass").write_text("".join(f"localhost:{port}:journal:{login}:{word}\n"
                                                for login, word in passwords), encoding="utf-8")
        os.chown(folder / ".pgpass", user.pw_uid, user.pw_gid)
        os.chmod(folder / ".pgpass", 0o600)
        for line in blocks("workstation")[0].splitlines():
            line = line.replace("@server/", f"@localhost:{port}/")
            seats.append(subprocess.Popen([*as_user, "bash", "-c", "exec " + line], env=environment, cwd=folder))
        ask = ("psql -AtX journal -c \"SELECT string_agg(usename, ' ' ORDER BY usename) FROM pg_stat_activity "
               "JOIN pg_stat_ssl USING (pid) WHERE ssl AND application_name = 'vrk'\"")
        expected = " ".join(sorted(login for login, _ in passwords))
        for _ in range(300):
            seen = subprocess.run([*as_user, "bash", "-c", ask], env=environment, cwd=folder, text=True,
                                  stdout=subprocess.PIPE).stdout.strip()
            if seen == expected:
                break
            if any(seat.poll() is not None for seat in seats):
                sys.exit("a workstation has ended")
            time.sleep(0.1)
        assert seen == expected, f"connected: {seen}, expected: {expected}"
        time.sleep(1)  # long enough to fail on opening the journal
        assert all(seat.poll() is None for seat in seats), "a workstation has ended"
        print("three workstations work")

        for process in [*seats, server]:
            process.terminate()
            process.wait(timeout=60)
        seats, server = [], start("empty")
        for script in blocks("server"):
            run(script)
        output = run(blocks("restore")[0])
        assert all(login in output for login, _ in passwords), "the logins that need a password are not listed"
    finally:
        for process in [*seats, server]:
            process.terminate()
        for process in [*seats, server]:
            process.wait(timeout=60)


with tempfile.TemporaryDirectory(prefix="vrk-site-") as name:
    main(pathlib.Path(name))
