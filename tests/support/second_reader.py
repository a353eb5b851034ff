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


def dump(path):
    """The whole of a database as statements that would make it anew."""
    connection = connect(path)
    statements = list(connection.iterdump())
    connection.close()
    return "\n".join(statements)
