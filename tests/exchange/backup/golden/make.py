#!/usr/bin/env python3
"""Writes the backup files that the tests read, from the description of the format in docs/backup-file.md alone.

Run it in this folder; the files it writes are part of the sources, so that a change of the program can't change them.
"""
import hashlib
import struct


def item(tag, payload):
    return struct.pack("<ii", tag, len(payload)) + payload


def byte(value):
    return item(0, bytes([value]))


def integer(value):
    return item(1, struct.pack("<i", value))


def text(value):
    return item(2, value.encode("utf-16-le"))


def real(value):
    return item(5, struct.pack("<f", value))


def block(data):
    return item(6, hashlib.md5(data).digest() + data)


def time_record(start, end, duration, pause, day, items, rate, amount, marks, notes):
    data = b""
    for hour, minute, pm in (start, end):
        data += integer(hour) + integer(minute) + byte(pm)
    data += b"".join(integer(n) for n in duration + pause + day)
    data += text(items[0]) + text(items[1]) + real(rate)
    data += text(items[2]) + text(items[3]) + text(items[4]) + real(amount)
    return data + b"".join(byte(m) for m in marks) + text(notes)


def expense_record(day, items, odometer, is_distance, distance, rate, amount, flags, notes):
    data = b"".join(integer(n) for n in day)
    data += text(items[0]) + text(items[1]) + text(items[2]) + text(odometer[0]) + text(odometer[1])
    data += byte(is_distance) + text(distance) + real(rate) + text(items[3]) + text(items[4]) + real(amount)
    return data + b"".join(byte(f) for f in flags) + text(notes)


def text_item(value, list_number):
    return integer(1) + text(value) + integer(list_number)


def number_item(value, list_number):
    return integer(2) + real(value) + integer(list_number)


def dependency(set_number, data):
    return integer(set_number) + block(data)


def entry(identity, data, form=200):
    name = identity.encode("utf-16-le") if form == 200 else identity.encode("utf-8")
    return struct.pack("<i", len(identity) if form == 200 else len(name)) + name + struct.pack("<i", len(data)) + data


END = struct.pack("<i", -1)


def backup(tables, form=200, version=2):
    rest = struct.pack("<ii", form, version) + struct.pack("<8H", 2026, 11, 5, 20, 12, 34, 56, 789)
    for entries in tables:
        rest += b"".join(entries) + END
    return hashlib.md5(rest).digest() + rest


def write(name, content):
    with open(name, "wb") as file:
        file.write(content)


T1 = "00000000000000000000000000000001"
T2 = "00000000000000000000000000000002"
E1 = "0000000000000000000000000000000A"
E2 = "0000000000000000000000000000000B"
P1 = "000000000000000000000000000000C1"
P2 = "000000000000000000000000000000C2"
D1 = "FFFF26110BDC7162F073A5BC94A40010"
D2 = "FFFF26110BDC7162F073A5BC94A40011"
CHUNK = "000000000000000000000000000000D1"

# 09:00 to 17:30 with half an hour of break; the hour 50 stands for no time.
FULL_TIME = time_record((9, 0, 0), (5, 30, 1), [8, 30], [0, 30], [11, 19, 2026],
                        ["Müller & Söhne", "Plan \"A\"", "it's", "100 %", "\U0001f600"], 80.125, 641.0, [1, 0, 1],
                        "first line\r\nsecond line")
BARE_TIME = time_record((50, 0, 0), (50, 0, 0), [-1, -1], [-1, -1], [2, 29, 2024], [""] * 5, -1.0, -1.0, [0, 0, 0], "")
# The distance is the text as it is stored, whatever the decimal character of the machine.
DISTANCE = expense_record([11, 18, 2026], ["Beta", "", "", "Cash", "EUR"], ["1000", "1012,5"], 1, "12,50", 0.3, 3.75,
                          [1, 1, 0, 0, 1, 0], "by car")
AMOUNT = expense_record([1, 1, 2026], ["Acme", "Food", "Inn", "", ""], ["", ""], 0, "", -1.0, 19.99, [0, 0, 1, 0, 0, 1], "")
TREE = b"\x15" + b"3" + bytes([16]) + bytes.fromhex(P1) + b"=" + b")"

write("current.vbk", backup([
    [entry(T1, FULL_TIME), entry(T2, BARE_TIME)],
    [entry(E1, DISTANCE), entry(E2, AMOUNT)],
    [entry(P1, text_item("Müller & Söhne", 16)), entry(P2, number_item(1.5, 34))],
    [entry(CHUNK, dependency(55, TREE)), entry(D1, dependency(55, bytes.fromhex(CHUNK)))]]))
write("empty.vbk", backup([[], [], [], []]))
# Identities as bytes; one that isn't ASCII can't be an identity of the store, but it is read.
write("bytes.vbk", backup([[entry(T1, FULL_TIME, 100)], [entry(E1, DISTANCE, 100)], [], []], form=100))
# Blocks packed: a run of 20 zeros, then three plain bytes.
write("packed.vbk", backup([[], [], [], [entry("FFFF26110BDC7162F073A5BC94A40001",
                                               dependency(55, bytes([128 + 18, 0, 2]) + b"abc"))]], version=1))
# No identity, an empty one and a length below that of the end mark: none has a text behind it.
NO_ID = struct.pack("<i", 0) + struct.pack("<i", len(BARE_TIME)) + BARE_TIME
NEGATIVE = struct.pack("<i", -2) + struct.pack("<i", len(FULL_TIME)) + FULL_TIME
write("no-identity.vbk", backup([[NO_ID, NEGATIVE], [], [], []]))
# A fixed identity that was once written a digit too long.
write("long-identity.vbk", backup([[], [], [], [entry("FFFF26110BDC7162F073A5BC94A400011", dependency(66, b"x"))]]))
# What the store refuses.
write("twice.vbk", backup([[entry(T1, FULL_TIME), entry(T1, BARE_TIME)], [], [], []]))
write("no-hex.vbk", backup([[entry(T2, BARE_TIME), entry("not an identity", FULL_TIME)], [], [], []]))
LONG = expense_record([1, 1, 2026], ["x" * 256, "", "", "", ""], ["", ""], 0, "", -1.0, 1.0, [0] * 6, "")
write("too-long.vbk", backup([[entry(T2, BARE_TIME)], [entry(E1, LONG)], [], []]))
