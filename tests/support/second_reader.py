"""Reads database files of either format without the engine."""

import sqlite3

import jet_reader


def connect(path):
    """A connection for reading. That to a Jet file leads to a copy in memory, in the form of a SQLite file."""
    if not jet_reader.is_jet(path):
        return sqlite3.connect(path)
    connection = sqlite3.connect(":memory:")
    jet_reader.copy_tables(path, connection)
    return connection


def query(path, statement):
    """The rows that a statement finds, each its values joined by "|" as the sqlite3 program shows them."""
    connection = connect(path)
    rows = ["|".join("" if value is None else str(value) for value in row) for row in connection.execute(statement)]
    connection.close()
    return rows


def dump(path):
    """The whole of a database as statements that would make it anew."""
    connection = connect(path)
    statements = list(connection.iterdump())
    connection.close()
    return "\n".join(statements)
