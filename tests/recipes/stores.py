"""Stores on both engines, read and written without the program."""
import os
import pathlib
import pwd
import shutil
import sqlite3
import subprocess
import time
import urllib.parse


class Sqlite:
    def __init__(self, file):
        self.file = file
        self.url = f"sqlite://{file}"

    def sibling(self, name):
        return Sqlite(self.file.with_name(f"{name}.vrk"))

    def copy(self, name):
        other = self.sibling(name)
        shutil.copy(self.file, other.file)
        return other

    def columns(self, table):
        with sqlite3.connect(self.file) as database:
            return [row[0].lower() for row in database.execute("SELECT name FROM pragma_table_info(?)", [table])]

    def refusal(self, sql):
        """Runs a statement as a person; the reason why the rules refuse it, empty if they do not. Nothing is kept."""
        database = sqlite3.connect(self.file)
        try:
            # The triggers of log and search call functions of the program; their values do not matter here.
            for name in ("vrk_row", "vrk_leaf", "vrk_words", "vrk_equipment"):
                database.create_function(name, -1, lambda *values: "")
            database.execute("INSERT INTO CurrentTransaction (number, login, userKey, loader) VALUES (0, '', '', 0)")
            database.execute(sql)
            return ""
        except sqlite3.Error as error:
            return str(error)
        finally:
            database.rollback()
            database.close()


class Postgres:
    def __init__(self, server, name):
        self.server, self.name = server, name
        self.url = f"postgresql://{server.user}@/{name}?host={urllib.parse.quote(str(server.folder), safe='')}"

    def sibling(self, name):
        return Postgres(self.server, name)

    def copy(self, name):
        self.server.psql("postgres", f"CREATE DATABASE {name} TEMPLATE {self.name}")
        return self.sibling(name)

    def columns(self, table):
        rows = self.server.psql(self.name, "SELECT attname FROM pg_attribute WHERE attnum > 0 AND NOT attisdropped "
                                           f"AND attrelid = '{table}'::regclass ORDER BY attnum").stdout
        return rows.split()

    def refusal(self, sql):
        """The same as for a file."""
        done = self.server.psql(self.name, "CREATE ROLE nobody_here; GRANT vrk_client TO nobody_here; "
                                           "SET SESSION AUTHORIZATION nobody_here; "
                                           f"SELECT set_config('vrk.batch_key', 'recipe', true); {sql}; "
                                           "SELECT 1 / 0", isFailing=True)
        reason = done.stderr.split("\n")[0].replace("ERROR:", "").strip()
        return "" if reason == "division by zero" else reason


class Server:
    """A private PostgreSQL server in a folder."""

    def __init__(self, folder):
        self.folder = folder / "server"
        self.programs = sorted(pathlib.Path("/usr/lib/postgresql").iterdir())[-1] / "bin"
        account = pwd.getpwnam("postgres") if os.geteuid() == 0 else pwd.getpwuid(os.geteuid())
        self.user = account.pw_name
        self.as_user = ["setpriv", "--pdeathsig=QUIT"]
        self.folder.mkdir()
        if os.geteuid() == 0:
            self.as_user += [f"--reuid={account.pw_uid}", f"--regid={account.pw_gid}", "--clear-groups"]
            os.chown(self.folder, account.pw_uid, account.pw_gid)

    def __enter__(self):
        data = self.folder / "data"
        subprocess.run([*self.as_user, self.programs / "initdb", "-D", data, f"--username={self.user}", "--auth=trust",
                        "--encoding=UTF8", "--locale=C.UTF-8", "--no-sync"], check=True, stdout=subprocess.DEVNULL, cwd="/")
        with open(self.folder / "log", "wb") as log:
            self.process = subprocess.Popen([*self.as_user, self.programs / "postgres", "-D", data, "-k", self.folder, "-c",
                                             "listen_addresses=", "-c", "fsync=off"], stdout=log,
                                            stderr=subprocess.STDOUT, cwd="/")
        for _ in range(600):
            if self.psql("postgres", "SELECT 1", isFailing=True).returncode == 0:
                return self
            time.sleep(0.1)
        raise RuntimeError((self.folder / "log").read_text(encoding="utf-8"))

    def __exit__(self, *_):
        self.process.send_signal(2)
        self.process.wait()

    def psql(self, database, sql, isFailing=False):
        return subprocess.run([self.programs / "psql", "-X", "-q", "-A", "-t", "-h", self.folder, "-U", self.user, "-d",
                               database, "-c", sql], check=not isFailing, text=True, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE)
