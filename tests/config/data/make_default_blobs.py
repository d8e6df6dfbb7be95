#!/usr/bin/env python3
"""Writes list-columns.blob and tree-columns.blob: the two sets of columns as a fresh installation stores them.

Table, run-length coder and digest are this script's own (the digest is Python's), so that the program's are
compared with something. Run it in its folder.
"""
import hashlib
import struct

# caption, width, kind, position in the list, position as a level of the tree
COLUMNS = [
    ("Date", 80, 8, 1, 5), ("Hours", 44, 9, 3, 0), ("Net", 44, 9, 0, 0), ("Break", 44, 9, 0, 0),
    ("Client", 60, 5, 6, 1), ("Project", 90, 5, 7, 2), ("Start", 65, 7, 2, 0), ("End", 65, 7, 0, 0),
    ("Rate", 50, 9, 0, 0), ("Activity", 90, 5, 8, 3), ("Cost centre", 90, 5, 9, 4), ("Currency", 45, 5, 0, 0),
    ("Amount", 90, 9, 0, 0), ("Billable", 30, 3, 4, 0), ("Billed", 35, 3, 5, 0), ("Notes", 30, 3, 0, 0),
    ("Exported", 30, 3, 0, 0),
    ("Date", 80, 6, 1, 5), ("Amount", 60, 9, 2, 0), ("Client", 60, 5, 5, 1), ("Project", 60, 5, 6, 2),
    ("Description", 60, 5, 7, 4), ("Distance", 30, 3, 0, 0), ("Distance", 50, 9, 0, 0), ("Rate", 50, 9, 0, 0),
    ("Payment", 90, 5, 8, 3), ("Currency", 90, 5, 0, 0), ("Billable", 30, 3, 3, 0), ("Billed", 30, 3, 4, 0),
    ("Reimbursable", 30, 3, 0, 0), ("Reimbursed", 30, 3, 0, 0), ("Personal", 30, 3, 0, 0),
    ("Notes", 30, 3, 0, 0), ("Exported", 30, 3, 0, 0),
]
# Hidden in the tree, one after another; whatever stands behind one moves up.
NO_LEVELS = [[0, 1, 2, 3, 6, 7, 8, 12, 15, 16], [17, 18, 24, 32, 23, 33]]


def rows(place):
    positions = [column[place] for column in COLUMNS]
    if place == 4:
        for first, last, excluded in ((0, 17, NO_LEVELS[0]), (17, 34, NO_LEVELS[1])):
            for gone in excluded:
                gap, positions[gone] = positions[gone], 0
                for i in range(first, last):
                    positions[i] -= gap != 0 and positions[i] > gap
    out = b""
    for (caption, width, kind, *_), position in zip(COLUMNS, positions):
        out += caption.encode("utf-16-le").ljust(32, b"\0")
        out += struct.pack("<Biii", position > 0, width, position, kind)
    return out


def pack(plain):
    """Groups of the input: runs of 2 to 129, or 1 to 128 bytes of which no two neighbours are equal."""
    packed, literals, at = b"", b"", 0
    while at < len(plain):
        end = at + 1
        while end < len(plain) and plain[end] == plain[at] and end - at < 129:
            end += 1
        if end - at == 1 and len(literals) < 128:
            literals += plain[at:end]
            at = end
            continue
        if literals:
            packed += bytes([len(literals) - 1]) + literals
            literals = b""
        if end - at > 1:
            packed += bytes([0x80 | (end - at - 2), plain[at]])
            at = end
    return packed + (bytes([len(literals) - 1]) + literals if literals else b"")


def blob(place, *breaks):
    plain = rows(place)
    for one in breaks:
        plain += struct.pack("<i%di" % len(one), len(one), *one)
    packed = pack(plain)
    guarded = hashlib.md5(packed).digest() + packed
    return len(plain), struct.pack("<ii", 6, len(guarded)) + guarded


for name, place, breaks in (("list", 3, ([5, 7, 9], [4, 6, 8])), ("tree", 4, ([], []))):
    size, content = blob(place, *breaks)
    assert size == (1562 if name == "list" else 1538)
    with open(name + "-columns.blob", "wb") as out:
        out.write(content)
