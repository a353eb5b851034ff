#!/usr/bin/env python3
"""Reads the rows of a Jet 4 file, written apart from the engine, to tell what a file holds to the last cent, day and
empty text. (mdb-export shows an empty text as null, and no day before 1900.)

    jet_reader.py FILE COPY [TABLE ...]   copies tables, or all, into a new SQLite file, in the form that the engine
                                          gives to a SQLite file: types, values, and rows in their order
"""

import datetime
import sqlite3
import struct
import sys
from typing import NamedTuple

_PAGE = 4096
_CATALOGUE = 2
_HERE, _MOVED_AWAY, _STATES, _OFFSET = 0x0000, 0x4000, 0xC000, 0x1FFF
_DAY_ZERO = datetime.datetime(1899, 12, 30)
_TYPES = {1: "BOOLEAN", 2: "BYTE", 3: "SHORT", 4: "LONG", 5: "CURRENCY", 6: "SINGLE", 7: "DOUBLE", 8: "DATETIME",
          10: "TEXT", 12: "MEMO"}
_NUMBERS = {2: "<B", 3: "<h", 4: "<i", 6: "<f", 7: "<d"}
_FIXED_SIZES = {1: 0, 2: 1, 3: 2, 4: 4, 5: 8, 6: 4, 7: 8, 8: 8, 15: 16, 16: 17}


class Column(NamedTuple):
    name: str
    type: int
    number: int
    variable_place: int
    is_fixed: bool
    fixed_at: int
    size: int

    def declared(self):
        return f"TEXT({self.size // 2})" if self.type == 10 else _TYPES.get(self.type, "LONGBINARY")


class Table(NamedTuple):
    columns: list
    pages: tuple


def is_jet(path):
    with open(path, "rb") as file:
        return file.read(19)[4:] == b"Standard Jet DB"


class JetFile:
    def __init__(self, path):
        with open(path, "rb") as file:
            self._bytes = file.read()
        objects = self._table(_CATALOGUE)
        self._first_pages = {}
        for row in self._rows(objects):
            if row["Type"] == 1 and not row["Flags"] & 0x80000002:
                self._first_pages[row["Name"]] = row["Id"] & 0xFFFFFF

    def names(self):
        return list(self._first_pages)

    def columns(self, name):
        return self._table(self._first_pages[name]).columns

    def rows(self, name):
        """The rows of a table, each the values of its columns, in the order of their keys."""
        for row in self._rows(self._table(self._first_pages[name])):
            yield list(row.values())

    def _number(self, form, at):
        return struct.unpack_from(form, self._bytes, at)[0]

    def _page(self, number):
        return self._bytes[number * _PAGE:(number + 1) * _PAGE]

    def _definition(self, first):
        joined, page = self._page(first), first
        while True:
            page = struct.unpack_from("<I", self._page(page), 4)[0]
            if page == 0:
                return joined
            joined += self._page(page)[8:]

    def _table(self, first):
        definition = self._definition(first)
        count, = struct.unpack_from("<H", definition, 45)
        indexes, = struct.unpack_from("<I", definition, 51)
        at = 63 + 12 * indexes
        entries = [definition[at + 25 * place:at + 25 * (place + 1)] for place in range(count)]
        at += 25 * count
        columns = []
        for entry in entries:
            length, = struct.unpack_from("<H", definition, at)
            name = definition[at + 2:at + 2 + length].decode("utf-16-le")
            at += 2 + length
            number, place = struct.unpack_from("<HH", entry, 5)
            fixed_at, size = struct.unpack_from("<HH", entry, 21)
            columns.append(Column(name, entry[0], number, place, bool(entry[15] & 1), fixed_at, size))
        return Table(columns, self._place(definition, 55))

    @staticmethod
    def _place(data, at):
        return struct.unpack_from("<I", data[at + 1:at + 4] + b"\0", 0)[0], data[at]

    def _stored(self, page, row):
        """The state of a row and its bytes."""
        data = self._page(page)
        entry, = struct.unpack_from("<H", data, 14 + 2 * row)
        end = _PAGE if row == 0 else struct.unpack_from("<H", data, 12 + 2 * row)[0] & _OFFSET
        return entry & _STATES, data[entry & _OFFSET:end]

    def _pages_of(self, place):
        _, usage = self._stored(*place)
        if usage[0] == 0:
            first, = struct.unpack_from("<I", usage, 1)
            return [first + bit for bit in range(8 * (len(usage) - 5)) if usage[5 + bit // 8] >> bit % 8 & 1]
        pages = []
        for place_of_map in range((len(usage) - 1) // 4):
            map_page, = struct.unpack_from("<I", usage, 1 + 4 * place_of_map)
            bits = self._page(map_page)[4:] if map_page else b""
            pages += [place_of_map * 32736 + bit for bit in range(8 * len(bits)) if bits[bit // 8] >> bit % 8 & 1]
        return pages

    def _rows(self, table):
        for page in self._pages_of(table.pages):
            count, = struct.unpack_from("<H", self._page(page), 12)
            for row in range(count):
                state, stored = self._stored(page, row)
                while state == _MOVED_AWAY:
                    moved, stored = self._stored(*self._place(stored, 0))
                    state = _MOVED_AWAY if moved == _MOVED_AWAY else _HERE
                if state == _HERE:
                    yield {column.name: self._value(column, *self._cell(table, column, stored))
                           for column in table.columns}

    @staticmethod
    def _cell(table, column, row):
        """Whether the row has a value for the column, and its bytes."""
        columns, = struct.unpack_from("<H", row, 0)
        mask = row[len(row) - (columns + 7) // 8:]
        has = column.number < columns and bool(mask[column.number // 8] >> column.number % 8 & 1)
        if not has or column.type == 1:
            return has, b""
        if column.is_fixed:
            return True, row[2 + column.fixed_at:2 + column.fixed_at + (_FIXED_SIZES.get(column.type) or column.size)]
        count_at = len(row) - len(mask) - 2
        offset = count_at - 2 - 2 * column.variable_place
        begin, = struct.unpack_from("<H", row, offset)
        end, = struct.unpack_from("<H", row, offset - 2)
        return True, row[begin:end]

    def _value(self, column, has, stored):
        if column.type == 1:
            return -1 if has else 0
        if not has:
            return None
        if column.type in _NUMBERS:
            return struct.unpack(_NUMBERS[column.type], stored)[0]
        if column.type == 5:
            scaled, = struct.unpack("<q", stored)
            return scaled // 10000 if scaled % 10000 == 0 else scaled / 10000
        if column.type == 8:
            return _iso(struct.unpack("<d", stored)[0])
        if column.type == 10:
            return _text(stored)
        if column.type in (11, 12):
            stored = self._long_value(stored)
            return _memo(_text(stored)) if column.type == 12 else stored
        return stored

    def _long_value(self, stored):
        head, = struct.unpack_from("<I", stored, 0)
        kind, length = head >> 30, head & 0x3FFFFFFF
        if kind == 2:
            return stored[12:12 + length]
        place = self._place(stored, 4)
        if kind == 1:
            return self._stored(*place)[1][:length]
        parts = b""
        while place[0]:
            part = self._stored(*place)[1]
            parts += part[4:]
            place = self._place(part, 0)
        return parts[:length]


def _text(stored):
    if not stored.startswith(b"\xff\xfe"):
        return stored.decode("utf-16-le", "surrogatepass")
    text, at, plain = "", 2, False
    while at < len(stored):
        if stored[at] == 0:
            plain, at = not plain, at + 1
        elif plain:
            text, at = text + stored[at:at + 2].decode("utf-16-le", "surrogatepass"), at + 2
        else:
            text, at = text + chr(stored[at]), at + 1
    return text


# SQLite would take a memo that looks like a number for one, so the engine keeps its bytes in such a file.
def _memo(text):
    try:
        float(text.strip())
        return text.encode("utf-8")
    except ValueError:
        return text


def _iso(number):
    days = int(number)
    moment = _DAY_ZERO + datetime.timedelta(days=days, milliseconds=round(abs(number - days) * 86_400_000))
    day = f"{moment.year:04}-{moment.month:02}-{moment.day:02}"
    return day if moment.time() == datetime.time() else f"{day} {moment:%H:%M:%S}"


def _quoted(name):
    return '"' + name.replace('"', '""') + '"'


def copy_tables(path, connection, tables=()):
    """Copies tables, or all, into a database of SQLite's. Names are compared without regard to case."""
    file = JetFile(path)
    wanted = {table.lower() for table in tables}
    for name in file.names():
        if wanted and name.lower() not in wanted:
            continue
        columns = file.columns(name)
        declared = ", ".join(f"{_quoted(column.name)} {column.declared()}" for column in columns)
        connection.execute(f"create table {_quoted(name)}({declared})")
        places = ", ".join("?" for _ in columns)
        connection.executemany(f"insert into {_quoted(name)} values({places})", file.rows(name))
    connection.commit()


def main():
    copy = sqlite3.connect(sys.argv[2])
    copy_tables(sys.argv[1], copy, sys.argv[3:])
    copy.close()


if __name__ == "__main__":
    main()
