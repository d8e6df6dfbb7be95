#!/usr/bin/python3
"""The program's window as a screen reader finds it: over the accessibility bus.

As a module it has the moves of by_accessibility; as a command it tells a story what the window shows, one line each:
    window.py labels    the labels that can be seen, the status bar among them
    window.py tree      the nodes of the data tree that are in sight, with their counts
"""
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib

PATIENCE = 40  # seconds until something that is waited for must be there
ROLE = Atspi.Role
STATE = Atspi.StateType


class Failed(Exception):
    """What was expected of the window isn't so."""


def wait(what, question):
    """Asks until the answer is something; what vanishes while it is looked at is looked at again."""
    end = time.monotonic() + PATIENCE
    while True:
        try:
            answer = question()
            if answer:
                return answer
            last = "not so"
        except GLib.Error as error:
            last = error.message
        while GLib.MainContext.default().iteration(False):  # what listeners hear in between
            pass
        if time.monotonic() > end:
            raise Failed(f"{what() if callable(what) else what} ({last})")
        time.sleep(0.1)


def frame():
    """The window of the program. It needs the bus, the registry, and the program on it."""
    Atspi.set_timeout(20000, 0)
    try:
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        bus = ("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus")
        session.call_sync(*bus, "GetAddress", None, None, Gio.DBusCallFlags.NONE, 1000 * PATIENCE, None)
    except GLib.Error as error:
        raise Failed(f"there is no accessibility bus ({error.message})")

    def look():
        desktop = Atspi.get_desktop(0)
        for child in children(desktop):
            for window in children(child):
                if window.get_role() == ROLE.FRAME and window.get_name() == "Velmarch":
                    return window
        return None

    return wait("the window is on the accessibility bus", look)


def children(parent):
    for place in range(parent.get_child_count()):
        child = parent.get_child_at_index(place)
        if child is not None:
            yield child


def has(accessible, state):
    return accessible.get_state_set().contains(state)


def everything(root, in_sight=False):
    """An accessible and all below it, depth first; in_sight: without what isn't shown."""
    yield root
    for child in children(root):
        if not in_sight or has(child, STATE.SHOWING):
            yield from everything(child, in_sight)


def find(root, role, name, in_sight=True):
    """The first of a role whose name is, or as a condition accepts, the one wanted. None without one."""
    fits = name if callable(name) else lambda own: own == name
    for accessible in everything(root, in_sight):
        if accessible.get_role() == role and fits(accessible.get_name()):
            return accessible
    return None


def get(root, role, name, in_sight=True):
    said = "one that was described" if callable(name) else repr(name)
    return wait(f"there is {role.value_nick} {said}", lambda: find(root, role, name, in_sight))


def listen(event):
    """What is announced from now on: a list that grows while something is waited for."""
    heard = []
    listener = Atspi.EventListener.new(lambda told: heard.append((told.source.get_name(), told.detail1)))
    listener.register(event)
    heard_by.append(listener)
    return heard


heard_by = []  # listeners that must not be collected


def names(root, role):
    return [one.get_name() for one in everything(root, True) if one.get_role() == role]


def do(accessible, action):
    """An action by its name. One that opens a dialog answers only when the dialog ends, so nobody waits for
    the answer: what the action does is the proof of it."""
    offered = [accessible.get_action_name(i) for i in range(accessible.get_n_actions())]
    if action not in offered:
        raise Failed(f"{accessible.get_name()!r} can't {action}, only {offered}")
    Atspi.set_timeout(200, 0)
    try:
        accessible.do_action(offered.index(action))
    except GLib.Error:
        pass
    finally:
        Atspi.set_timeout(20000, 0)


def rows(table):
    """The names of the cells, row by row."""
    columns = table.get_n_columns()
    return [
        [table.get_accessible_at(row, column).get_name() for column in range(columns)]
        for row in range(table.get_n_rows())
    ]


def main():
    window = frame()
    if sys.argv[1:] == ["labels"]:
        told = names(window, ROLE.LABEL)
    elif sys.argv[1:] == ["tree"]:
        told = [row[0] for row in rows(get(window, ROLE.TREE, "Data tree"))]
    else:
        sys.exit(__doc__)
    print("\n".join(told))


if __name__ == "__main__":
    try:
        main()
    except (Failed, GLib.Error) as error:
        sys.exit(f"failed: {error}")
