#!/usr/bin/env python3
"""Installs a build tree into a separate folder and builds only against that.

The guides find the pages and pictures that they refer to.
The public headers stand by themselves, also where nothing draws icons: each is compiled alone, and what the plug-ins include of the platform is among them.
The second plug-in configures, builds and installs with the installed package; the installed workstation then lists its
modules, opens one of them as a window on a demo store, and has its library loaded from the place of the installation.

    installed_platform.py SOURCE BUILD
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time

PROJECT = """cmake_minimum_required(VERSION 3.25)
project(EachHeaderAlone LANGUAGES CXX)
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
# As if rsvg-convert were not there: a plug-in without drawings of its own needs none.
set(CMAKE_IGNORE_PATH /usr/local/bin /usr/bin /bin)
find_program(drawing rsvg-convert)
if(drawing)
    message(FATAL_ERROR "rsvg-convert is found all the same: ${drawing}")
endif()
find_package(VrkPlatform 2 REQUIRED)
file(GLOB sources "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
add_library(each OBJECT ${sources})
target_compile_options(each PRIVATE -fsyntax-only -Wall -Wextra -Werror)
target_link_libraries(each PRIVATE VrkPlatform::Client)
"""


def run(*command, **more):
    done = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          **more)
    if done.returncode != 0:
        sys.exit("failed: " + " ".join(str(part) for part in command) + "\n" + done.stdout)
    return done.stdout


def configure(source, build, prefix):
    launcher = shutil.which("ccache")
    run("cmake", "-G", "Ninja", "-S", source, "-B", build, f"-DCMAKE_PREFIX_PATH={prefix}", "-DCMAKE_BUILD_TYPE=Debug",
        f"-DCMAKE_INSTALL_PREFIX={prefix}", *([f"-DCMAKE_CXX_COMPILER_LAUNCHER={launcher}"] if launcher else []))


def headers_stand_alone(folder, prefix):
    folder.mkdir()
    (folder / "CMakeLists.txt").write_text(PROJECT)
    headers = sorted((prefix / "include/vrk-logbook").rglob("*.h"))
    for header in headers:
        (folder / (header.stem + "_alone.cpp")).write_text(f'#include "{header.name}"\n')
    configure(folder, folder / "build", prefix)
    run("cmake", "--build", folder / "build", "-j2")
    return {header.name for header in headers}


def plug_ins_need_no_others(source, public):
    floors = {path.name for floor in ("hfn", "client", "text", "widgets", "store")
              for path in (source / "platform" / floor).glob("*.h")}
    faults = []
    for room in ("plugin", "archive"):
        for path in (source / room).rglob("*"):
            if path.suffix not in (".h", ".cpp", ".ui"):
                continue
            text = path.read_text(encoding="utf-8")
            for name in re.findall(r'#\s*include\s+"([^"]+)"', text) + re.findall(r"<header>([^<]+)</header>", text):
                if name in floors and name not in public:
                    faults.append(f"{path.relative_to(source)} includes {name}, which is not installed")
    if faults:
        sys.exit("\n".join(faults))


def pages_find_what_they_refer_to(folder):
    faults = [f"{page.name} refers to {target}, which is not installed" for page in sorted(folder.glob("*.md"))
              for target in re.findall(r"\]\(([^)#:\s]+)[^)]*\)", page.read_text(encoding="utf-8"))
              if folder not in (folder / target).resolve().parents or not (folder / target).is_file()]
    if faults:
        sys.exit("\n".join(faults))


def modules(prefix, environment):
    done = subprocess.run([str(prefix / "bin/vrk-workstation"), "--modules"], env=environment, capture_output=True, text=True)
    return {line.split()[0]: line for line in done.stdout.splitlines()}


def opens_as_a_window(prefix, environment, store, library):
    run(prefix / "bin/vrk-admin", "demo", store)
    process = subprocess.Popen([str(prefix / "bin/vrk-workstation"), "--store", store, "--user", "ozerov", "--department",
                                "ЦДС", "--module", "archive"], env=environment, stdout=subprocess.PIPE,
                               stderr=subprocess.STDOUT, text=True)
    try:
        until = time.monotonic() + 60
        while library not in pathlib.Path(f"/proc/{process.pid}/maps").read_text():
            if process.poll() is not None or time.monotonic() > until:
                sys.exit("the workstation has not opened the module: " + (process.stdout.read() if process.poll() is not None else ""))
            time.sleep(0.05)
        # A working program keeps its log open; a module that cannot start would have logged the reason and
        # ended.
        if process.poll() is not None:
            sys.exit("the workstation has ended by itself: " + process.stdout.read())
    finally:
        process.terminate()
        process.wait()


def main(source, build):
    folder = pathlib.Path(tempfile.mkdtemp(prefix="vrk-installed-"))
    try:
        prefix = folder / "prefix"
        for component in ("runtime", "dev"):  # in the way the packages are built
            run("cmake", "--install", build, "--prefix", prefix, "--component", component)
        home = prefix / "lib/vrk-logbook"
        for wanted in ("lib/libVrkHfn_x64.so.1", "lib/libVrkClient_x64.so.2", "lib/libVrkLogBook.so.2",
                       "lib/libVrkArchive.so.1", "plugins/10-logbook.json", "plugins/20-archive.json", "bin/vrk-workstation"):
            if not (home / wanted).exists():
                sys.exit(f"{wanted} is not installed")
        entry = (prefix / "share/applications/vrk-logbook.desktop").read_text(encoding="utf-8")
        icon = re.search(r"^Icon=(.+)$", entry, re.M).group(1)
        if len(list((prefix / "share/icons/hicolor").glob(f"*/apps/{icon}.*"))) < 6:
            sys.exit(f"the menu entry has no icon {icon}")
        pages_find_what_they_refer_to((prefix / "share/doc/vrk-logbook").resolve())
        plug_ins_need_no_others(source, headers_stand_alone(folder / "headers", prefix))

        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", HOME=str(folder), XDG_CONFIG_HOME=str(folder / "config"),
                           XDG_DATA_HOME=str(folder / "data"), XDG_RUNTIME_DIR=str(folder))
        environment.pop("VRK_STORE", None)
        # Without the libraries of this build: the rest uses only the installed package.
        for path in list(home.glob("lib/libVrkArchive*")) + [home / "plugins/20-archive.json"]:
            path.unlink()
        before = modules(prefix, environment)
        if set(before) != {"logbook", "template", "converter"}:
            sys.exit(f"unexpected modules: {before}")

        alone = folder / "archive"
        shutil.copytree(source / "archive", alone)
        configure(alone, folder / "archive-build", prefix)
        run("cmake", "--build", folder / "archive-build", "-j2")
        run("cmake", "--install", folder / "archive-build")
        library = str(home / "lib/libVrkArchive.so.1")
        after = modules(prefix, environment)
        for name in ("unfinished", "archive"):
            if library not in after.get(name, ""):
                sys.exit(f"{name} does not come from {library}: {after}")
        opens_as_a_window(prefix, environment, f"sqlite://{folder}/demo.sqlite", os.path.realpath(library))
        print("each header compiles alone; the second plug-in was built against the installed platform and opened")
    finally:
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve())
