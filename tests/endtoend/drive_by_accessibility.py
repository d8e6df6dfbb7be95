#!/usr/bin/python3
"""The story of by_accessibility: it drives the window over the accessibility bus alone."""
import os
import subprocess
import sys

from gi.repository import GLib

from window import Failed, ROLE, STATE, children, do, find, frame, get, has, listen, names, rows, wait

NO_ROLES = (ROLE.UNKNOWN, ROLE.INVALID)


def passed(what):
    print(f"ok: {what}", flush=True)


def described(path):
    return " > ".join(f"{one.get_role_name()} {one.get_name()!r}" for one in path[-4:])


def look_over(root, what):
    """Everything that can have the focus has a name, and everything has a role."""
    seen, wrong = 0, []

    def visit(path):
        nonlocal seen
        accessible = path[-1]
        seen += 1
        role = accessible.get_role()
        if role in NO_ROLES:
            wrong.append(f"no role: {described(path)}")
        if has(accessible, STATE.FOCUSABLE) and not accessible.get_name().strip():
            wrong.append(f"no name: {described(path)}")
        for child in children(accessible):
            visit(path + [child])

    visit([root])
    if wrong:
        raise Failed(f"{what}: " + "\n  ".join(wrong))
    if seen < 10:
        raise Failed(f"{what}: only {seen} parts were found")
    passed(f"{what}: {seen} parts have a role, and those for the focus a name")


def choose(window, *menu):
    """A command of the menus by the captions that lead to it."""
    at = get(window, ROLE.MENU_BAR, "")
    for caption in menu:
        at = get(at, ROLE.MENU_ITEM, caption, in_sight=False)
    do(at, "Press")


def dialog(window, title):
    return get(window.get_application(), ROLE.DIALOG, title)


def no_dialog(window):
    wait("the dialog is gone", lambda: not find(window.get_application(), ROLE.DIALOG, lambda name: True))


def fill(form, caption, text):
    field = get(form, ROLE.TEXT, caption)
    field.set_text_contents(text)
    wait(f"the field {caption!r} has its text", lambda: field.get_text(0, -1) == text)


def page(form, name):
    """Another page of a dialog, which is done when it is in sight."""
    tab = get(form, ROLE.PAGE_TAB, name)
    do(tab, "Press")
    wait(f"the page {name!r} is there", lambda: has(tab, STATE.SELECTED) or has(tab, STATE.FOCUSED))


def label_is(window, text):
    told = []

    def look():
        told[:] = names(window, ROLE.LABEL)
        return text in told

    wait(lambda: f"the status bar says {text!r}, not {told}", look)


def console(*words):
    command = [os.environ["VELMARCH_CLI"], "--json", *words]
    return subprocess.run(command, check=True, capture_output=True, text=True, timeout=60).stdout


def make_a_time_record(window):
    choose(window, "Record", "New record")
    form = dialog(window, "Time record")
    look_over(form, "the dialog of a time record")
    fill(form, "Date", "2026-11-19")
    fill(form, "Start", "9:00")
    fill(form, "End", "12:30")
    get(form, ROLE.LABEL, lambda name: name.startswith("Net time: 3:30"))
    page(form, "Entry")
    fill(form, "Client", "Harbour Ltd")
    fill(form, "Project", "Pier 7")
    do(get(form, ROLE.PUSH_BUTTON, "Save"), "Press")
    no_dialog(window)
    passed("a record is made by menu, fields and button")


def read_the_list(window):
    """In the layout of several lines each row tells its record in words, in each of its cells."""
    records = get(window, ROLE.TABLE, "Records")
    wait("the list has one row", lambda: records.get_n_rows() == 1)
    for name in rows(records)[0]:
        for words in ("Date: 11/19/26", "Start: 09:00 AM", "Client: Harbour Ltd", "Project: Pier 7", "Billable: no"):
            if words not in name:
                raise Failed(f"the row doesn't tell {words!r}: {name!r}")
    label_is(window, "What is shown: Time")
    label_is(window, "Period shown: All")
    label_is(window, "Number and sums: Of the selected records: (1)  3.5000")
    passed("the row tells its record, the status bar mode, period and sums")


def select_row(table, of_name):
    """Selects the row whose first cell has a name."""
    places = [place for place, row in enumerate(rows(table)) if row[0] == of_name]
    if not places:
        raise Failed(f"no row {of_name!r} in {rows(table)}")
    table.add_row_selection(places[0])


def narrow_by_the_tree(window):
    console("time", "add", "--date", "2026-11-20", "--start", "13:00", "--end", "14:00", "--item1", "Depot")
    records = get(window, ROLE.TABLE, "Records")
    wait("the list shows what the console adds", lambda: records.get_n_rows() == 2)
    tree = get(window, ROLE.TREE, "Data tree")
    wait("the tree counts both", lambda: [row[0] for row in rows(tree)] == ["All", "Depot: 1", "Harbour Ltd: 1"])
    select_row(tree, "Depot: 1")
    wait("the node narrows the list", lambda: records.get_n_rows() == 1 and "Client: Depot" in rows(records)[0][1])
    select_row(tree, "Harbour Ltd: 1")
    wait("another node, another list", lambda: records.get_n_rows() == 1 and "Harbour Ltd" in rows(records)[0][1])
    select_row(tree, "All")
    wait("the root widens it again", lambda: records.get_n_rows() == 2)
    records.add_row_selection(0)
    label_is(window, "Number and sums: Of the selected records: (1)  1.0000")
    passed("a node of the data tree narrows the list, and a selected row is what the status bar adds up")


def set_an_option(window):
    """Once left by Cancel, and once by OK."""
    heard = listen("object:state-changed:checked")
    for button, is_kept in (("Cancel", False), ("OK", True)):
        choose(window, "Tools", "Options...")
        form = dialog(window, "Options")
        box = get(form, ROLE.CHECK_BOX, "Copy")
        if not has(box, STATE.CHECKED):
            raise Failed("the option isn't on at first")
        do(box, "Toggle")
        wait("the option is off", lambda: not has(box, STATE.CHECKED))
        wait(lambda: f"the change is announced, not {heard}", lambda: ("Copy", 0) in heard)
        heard.clear()
        do(get(form, ROLE.PUSH_BUTTON, button), "Press")
        no_dialog(window)
        expected = '"value": 0' if is_kept else '"value": 1'
        wait(f"{button} is obeyed", lambda: expected in console("settings", "get", "confirmCopy"))
    passed("an option is toggled; Cancel forgets it, OK keeps it")


def commands(window):
    """The commands of all menus with their paths."""

    def below(at, path):
        for child in children(at):
            if child.get_role() == ROLE.MENU_ITEM:
                own = path + [child.get_name()]
                yield own, child
                yield from below(child, own)
            else:
                yield from below(child, path)

    return list(below(get(window, ROLE.MENU_BAR, ""), []))


def look_over_the_dialogs(window):
    """Each command whose caption announces a dialog, with a record selected so that all are offered."""
    get(window, ROLE.TABLE, "Records").add_row_selection(0)
    dialogs = 0
    for path, command in commands(window):
        if not path[-1].endswith("...") or path[-1] == "A day..." or not has(command, STATE.ENABLED):
            continue
        do(command, "Press")
        form = get(window.get_application(), ROLE.DIALOG, lambda name: True)
        # Where a file is asked for the dialog is the toolkit's own.
        if not find(form, ROLE.LIST, "Files", in_sight=False):
            look_over(form, " > ".join(path))
        answer = lambda name: name in ("Cancel", "Close", "Skip the first steps")
        do(get(form, ROLE.PUSH_BUTTON, answer), "Press")
        no_dialog(window)
        dialogs += 1
    if dialogs < 8:
        raise Failed(f"only {dialogs} dialogs are offered")


def make_an_expense(window):
    choose(window, "View", "Expenses")
    label_is(window, "What is shown: Expenses")
    get(window, ROLE.PUSH_BUTTON, "New record")
    choose(window, "Record", "New record")
    form = dialog(window, "Expense")
    look_over(form, "the dialog of an expense")
    fill(form, "Date", "2026-11-19")
    fill(form, "Amount", "12.5")
    page(form, "Items")
    fill(form, "Client", "Depot")
    do(get(form, ROLE.PUSH_BUTTON, "Save"), "Press")
    no_dialog(window)
    records = get(window, ROLE.TABLE, "Records")
    wait("the list has the expense", lambda: records.get_n_rows() == 1)
    if "Amount: 12.50" not in rows(records)[0][0]:
        raise Failed(f"the row doesn't tell the expense: {rows(records)}")
    passed("the other mode, and an expense in it")


def main():
    window = frame()
    choose(window, "Period", "All")
    label_is(window, "Period shown: All")
    look_over(window, "the window with an empty list")
    make_a_time_record(window)
    read_the_list(window)
    narrow_by_the_tree(window)
    look_over(window, "the window with records")
    look_over_the_dialogs(window)
    set_an_option(window)
    make_an_expense(window)
    look_over(window, "the window with expenses")


if __name__ == "__main__":
    try:
        main()
    except (Failed, GLib.Error, subprocess.SubprocessError) as error:
        sys.exit(f"failed: {error}")
