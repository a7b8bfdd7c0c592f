#!/usr/bin/python3
"""Drives the program as a screen reader does: a member is changed and a booking is made through AT-SPI alone.

usage: at_spi.py PROGRAM EXAMPLE    (inside a session bus and a display)
"""
import datetime
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

import pyatspi

PATIENCE = 60  # seconds until a missing control counts as a failure


def wait_for(what, look):
    """The first true answer of look(); it is asked again until then."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            found = look()
        except Exception:  # the tree changes while it is walked
            found = None
        if found:
            return found
        time.sleep(0.1)
    sys.exit(f"at-spi: no {what}")


def application(process):
    desktop = pyatspi.Registry.getDesktop(0)
    for child in desktop:
        if child is not None and child.get_process_id() == process.pid:
            return child
    return None


def walk(node):
    yield node
    for child in node:
        if child is not None:
            yield from walk(child)


def showing(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def control(app, name, role):
    def look():
        for node in walk(app):
            if node.name == name and node.getRole() == role and (role == pyatspi.ROLE_PAGE_TAB or showing(node)):
                return node
        return None
    return wait_for(f"{name} ({role})", look)


def press(node):
    action = node.queryAction()
    for i in range(action.nActions):
        if action.getName(i).lower() in ("press", "click", "toggle", "setfocus", "select"):
            action.doAction(i)
            return
    sys.exit(f"at-spi: {node.name} cannot be pressed: {[action.getName(i) for i in range(action.nActions)]}")


def fill(app, name, text):
    node = control(app, name, pyatspi.ROLE_TEXT)
    node.queryEditableText().setTextContents(text)
    if node.queryText().getText(0, -1) != text:
        sys.exit(f"at-spi: {name} does not take {text}")


def holds(path, content):
    return path.exists() and content in path.read_bytes()


def main():
    program, example = sys.argv[1:]
    year = str(datetime.date.today().year)
    with tempfile.TemporaryDirectory() as folder:
        data = pathlib.Path(folder, "daten")
        data.mkdir()
        shutil.copy(program, data / "parzello")
        for file in pathlib.Path(example).iterdir():
            if file.is_file():
                name = file.name.replace("2017", year).replace("2016", str(int(year) - 1))
                (data / name).write_bytes(file.read_bytes())
        environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb",
                           XDG_STATE_HOME=folder + "/state")
        process = subprocess.Popen([data / "parzello"], env=environment)
        try:
            app = wait_for("program on the accessibility bus", lambda: application(process))
            fill(app, "Telefon", "0815 4711")
            press(control(app, "Speichern", pyatspi.ROLE_PUSH_BUTTON))
            members = data / f"Mitgliedsdaten{year}.pz"
            wait_for("changed member in the file", lambda: holds(members, b"39999 Rotenfeld;0815 4711;1;"))

            press(control(app, "Kontoführung", pyatspi.ROLE_PAGE_TAB))
            fill(app, "Datum", f"01.12.{year}")
            fill(app, "Vorgang", "Porto")
            fill(app, "Abheben", "7,80")
            press(control(app, "OK", pyatspi.ROLE_PUSH_BUTTON))
            press(control(app, "Speichern", pyatspi.ROLE_PUSH_BUTTON))
            ledger = data / f"Konto{year}.pz"
            booking = f"01.12.{year};Porto;0,00;7,80\r\n".encode("cp1252")
            wait_for("booking in the file", lambda: holds(ledger, booking))
        finally:
            process.terminate()
            process.wait()
    print("at-spi: a member was changed and a booking was made")


main()
