#!/usr/bin/python3
"""Walks what a screen reader sees of the workbench, over the accessibility bus of the session.

accessible_walk.py KVT FILE            starts KVT with FILE and fails at a control without a name, at a program list
                                       that is no table, and where the bus has no such program; then without a file,
                                       types a fault into it and fails where that is not announced
accessible_walk.py KVT FILE --tree     prints what it sees of the file instead

To be run on a display and a bus of its own: xvfb-run -a dbus-run-session -- accessible_walk.py ...
"""

import os
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PROGRAM = "Kestrel Vise Toolkit"
PATIENCE = 60  # seconds
KEY_INTERVAL = 300  # milliseconds
RETURN, ESCAPE, UP = 0xFF0D, 0xFF1B, 0xFF52
# What only holds others, and texts, which say what they are.
NAMELESS = {"filler", "panel", "label", "table cell", "menu bar", "separator", "frame", "application"}
STATES = {
    Atspi.StateType.FOCUSED: "focused",
    Atspi.StateType.CHECKED: "checked",
    Atspi.StateType.SELECTED: "selected",
}


def program():
    """The workbench on the bus, once its window is there."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            one = desktop.get_child_at_index(i)
            if one and one.get_name() == PROGRAM and one.get_child_count() > 0:
                return one
        time.sleep(0.2)
    sys.exit("accessible_walk: the bus has no " + PROGRAM)


class Walk:
    def __init__(self):
        self.lines = []
        self.faults = []
        self.tables = []

    def visit(self, thing, depth=0, way=""):
        role, name = thing.get_role_name(), thing.get_name()
        states = thing.get_state_set()
        hidden = not states.contains(Atspi.StateType.SHOWING)
        # The entries of a menu that is closed are there as well; a menu that pops up elsewhere is not.
        closed = role == "popup menu" or (role == "menu item" and (name or states.contains(Atspi.StateType.VISIBLE)))
        if depth > 1 and hidden and not closed:
            return
        way += "/" + (name or role)
        if not name.strip() and role not in NAMELESS:
            self.faults.append(f"{way}: a {role} without a name")
        self.lines.append("  " * depth + self.line(thing, role, name, states))
        if role == "table":
            self.tables.append(thing)
            self.table(thing, depth + 1)
            return
        for i in range(thing.get_child_count()):
            child = thing.get_child_at_index(i)
            if child:
                self.visit(child, depth + 1, way)

    @staticmethod
    def line(thing, role, name, states):
        text = f"{role} “{name}”" if name else role
        about = thing.get_description().replace("\n", " ").strip()
        if about and about != name and role != "application":
            text += f" ({about})"
        shown = [word for state, word in STATES.items() if states.contains(state)]
        if not states.contains(Atspi.StateType.ENABLED) and role not in NAMELESS:
            shown.append("disabled")
        return text + (" [" + ", ".join(shown) + "]" if shown else "")

    def table(self, thing, depth):
        """The headers, the first rows and the last one."""
        columns, rows = Atspi.Table.get_n_columns(thing), Atspi.Table.get_n_rows(thing)
        blank = "  " * depth
        heads = [Atspi.Table.get_column_description(thing, c) for c in range(columns)]
        self.lines.append(f"{blank}{rows} rows of {columns} columns: " + " | ".join(heads))
        for row in sorted({*range(min(rows, 4)), rows - 1} - {-1}):
            cells = [Atspi.Table.get_accessible_at(thing, row, c) for c in range(columns)]
            picked = " [selected]" if Atspi.Table.is_row_selected(thing, row) else ""
            self.lines.append(f"{blank}row {row + 1}: " + " | ".join(c.get_name() for c in cells) + picked)


def check(walk, file):
    with open(file, encoding="latin-1") as source:
        lines = len(source.read().split("%", 1)[1].splitlines())
    if len(walk.tables) != 1:
        walk.faults.append(f"{len(walk.tables)} tables instead of the program list")
        return
    table = walk.tables[0]
    rows = Atspi.Table.get_n_rows(table)
    # A heading above and the line of the end below the program's own.
    if abs(rows - lines) > 3:
        walk.faults.append(f"{rows} rows for a file of {lines} lines")
    if "G" not in Atspi.Table.get_column_description(table, 1):
        walk.faults.append("the column of codes has no header")
    cell = Atspi.Table.get_accessible_at(table, 1, 0)
    if cell.get_role_name() != "table cell" or not cell.get_name().strip():
        walk.faults.append("the cells of the program list cannot be read")


class Listener:
    """Types into the window and notes what comes up by itself."""

    def __init__(self, keys):
        self.keys = list(keys)
        self.told = []
        self.loop = GLib.MainLoop()
        self.listener = Atspi.EventListener.new(self.note)
        for event in ("object:state-changed:showing", "object:state-changed:focused"):
            self.listener.register(event)

    def note(self, event):
        if event.detail1 != 1:
            return
        self.told.append((event.source.get_role_name(), event.source.get_name()))
        if not self.keys and self.complete():
            self.loop.quit()

    def press(self):
        if self.keys:
            Atspi.generate_keyboard_event(self.keys.pop(0), None, Atspi.KeySynthType.SYM)
        return bool(self.keys)

    def complete(self):
        return not self.missing()

    def missing(self):
        faults = []
        if not any(role == "alert" and "!" in name for role, name in self.told):
            faults.append("the finding of a jump to no line is not announced")
        if not any(role == "table cell" for role, _ in self.told):
            faults.append("the row with the keys is not told")
        return faults

    def run(self):
        GLib.timeout_add(KEY_INTERVAL, self.press)
        GLib.timeout_add_seconds(PATIENCE, self.loop.quit)
        self.loop.run()
        return self.missing()


def listen():
    # A jump to a line that is not there, then the keys go to the list and up in it.
    listener = Listener([*map(ord, "27"), RETURN, *map(ord, "50"), RETURN, RETURN, ESCAPE, UP])
    thing = program()
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end and not focused(thing):
        time.sleep(0.2)
    return listener.run()


def focused(thing):
    if thing.get_state_set().contains(Atspi.StateType.FOCUSED):
        return True
    children = (thing.get_child_at_index(i) for i in range(min(thing.get_child_count(), 100)))
    return any(focused(child) for child in children if child)


def start(kvt, files, home):
    return subprocess.Popen(
        [kvt, *files],
        env=dict(os.environ, HOME=home, XDG_DATA_HOME=home, KVT_PORTS="/nonexistent/port", QT_QPA_PLATFORM="xcb",
                 QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1"))


def main():
    arguments = [one for one in sys.argv[1:] if one != "--tree"]
    if len(arguments) != 2:
        sys.exit(__doc__)
    kvt, file = arguments
    with tempfile.TemporaryDirectory() as home:
        with start(kvt, [file], home) as process:
            try:
                walk = Walk()
                walk.visit(program())
                check(walk, file)
            finally:
                process.kill()
        if "--tree" not in sys.argv:
            with start(kvt, [], home + "/none") as process:
                try:
                    walk.faults += listen()
                finally:
                    process.kill()
    if "--tree" in sys.argv:
        print("\n".join(walk.lines))
    for fault in walk.faults:
        print("accessible_walk:", fault, file=sys.stderr)
    return 1 if walk.faults else 0


sys.exit(main())
