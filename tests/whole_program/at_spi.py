#!/usr/bin/python3
"""Drives the program as a screen reader does: a member is changed, windows behind "Mehr" are read and used, a
booking is made through AT-SPI alone.

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
from gi.repository import GLib

PATIENCE = 60  # seconds until a missing control counts as a failure
FOCUSED = []  # what was said when the focus came to it, the last one at the end


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


def listen():
    def heard(event):
        if event.detail1:
            FOCUSED.append(event.source)
    pyatspi.Registry.registerEventListener(heard, "object:state-changed:focused")


def spoken(name):
    """The control of that name, once the focus came to it."""
    def look():
        GLib.MainContext.default().iteration(False)
        return next((node for node in reversed(FOCUSED) if node.name == name), None)
    return wait_for(f"focus on {name}", look)


def window(app, title):
    def look():
        for node in app:
            for child in [node, *node]:
                if child is not None and child.name.startswith(title) and showing(child):
                    return child
        return None
    return wait_for(f"window {title}", look)


def entry_of_more(app, name):
    """A popup is heard, not found: its first entry gets the focus and knows the others."""
    FOCUSED.clear()
    press(control(app, "Mehr Werkzeuge", pyatspi.ROLE_PUSH_BUTTON))
    entries = list(spoken("Prüfbericht …").parent)
    if len(entries) != 11 or any(entry.getRole() != pyatspi.ROLE_MENU_ITEM for entry in entries):
        sys.exit(f"at-spi: the menu has {[entry.name for entry in entries]}")
    return next(entry for entry in entries if entry.name == name)


def text_of(app, name):
    return next(node for node in walk(app) if node.name == name and "Text" in node.get_interfaces()).queryText()


def read_the_check_report(app):
    press(entry_of_more(app, "Prüfbericht …"))
    report = window(app, "Prüfbericht ")
    text = text_of(report, "Prüfbericht")
    wait_for("sentence of the report", lambda: "Die IBAN" in text.getText(0, -1))
    said = text.getText(0, -1)
    looks, first, last = text.getAttributes(said.index("Die IBAN"))
    if "underline:single" not in looks or not said[first:last].startswith("Die IBAN") or "(C34)" in said[first:last]:
        sys.exit(f"at-spi: the link is {said[first:last]}, {looks}")
    for name in ("Drucken", "Als PDF", "Schließen"):
        control(report, name, pyatspi.ROLE_PUSH_BUTTON)
    press(control(report, "Schließen", pyatspi.ROLE_PUSH_BUTTON))


def read_the_table_of_readings(app):
    """The first member's reading was typed below its start; the cell says why it is tinted."""
    press(entry_of_more(app, "Ablesung …"))
    table = control(window(app, "Ablesung"), "Zählerstände aller Mitglieder", pyatspi.ROLE_TABLE)
    captions = [node.name for node in walk(table) if node.getRole() == pyatspi.ROLE_TABLE_COLUMN_HEADER]
    cells = [node for node in walk(table) if node.getRole() == pyatspi.ROLE_TABLE_CELL]
    first = [cell.name for cell in cells[:5]]
    if captions[:4] != ["Garten", "Name", "Strom Anfang", "Strom Ende"] \
            or first != ["1", "Krüger,Heinz", "1980", "1900", "-80"]:
        sys.exit(f"at-spi: the readings are {captions}, {first}")
    if "unter dem Anfangsstand" not in cells[3].description:
        sys.exit(f"at-spi: the doubtful reading says {cells[3].description}")
    press(control(window(app, "Ablesung"), "Schließen", pyatspi.ROLE_PUSH_BUTTON))


def read_a_dialog(app):
    press(entry_of_more(app, "Überweisungscode …"))
    dialog = window(app, "Überweisungscode")
    control(dialog, "Code auf jede Abrechnung setzen", pyatspi.ROLE_CHECK_BOX)
    without = control(dialog, "Mitglieder ohne Code", pyatspi.ROLE_LIST)
    if not without[0].name.startswith("Krüger,Heinz: Die IBAN"):
        sys.exit(f"at-spi: members without a code: {[item.name for item in without]}")
    press(control(dialog, "Schließen", pyatspi.ROLE_PUSH_BUTTON))


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

            fill(app, "Endstand Strom", "1900")
            press(control(app, "OK", pyatspi.ROLE_PUSH_BUTTON))
            wait_for("reading in the file", lambda: holds(members, b";1980;1900;"))

            listen()
            read_the_check_report(app)
            read_the_table_of_readings(app)
            read_a_dialog(app)

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
    print("at-spi: a member was changed, a report, a table and a dialog were read, a booking was made")


main()
