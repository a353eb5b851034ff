"""Databases with something planted beside them: journals, logs, pipes, links."""

import os
import sqlite3
import struct

from work import flip

_JOURNAL_MAGIC = bytes.fromhex("d9d505f920a163d7")
_LOG_MAGIC = bytes.fromhex("377f0682002de218")


def _leave_hot_journal(work):
    """The database and its journal as a program leaves them that is killed in the middle of a change."""
    work.copy(filled=True)
    connection = sqlite3.connect(work.path, isolation_level=None)
    connection.execute("pragma cache_size = 1")
    connection.execute("begin")
    for table in ("rent_periods", "revenues", "tenancy", "owner"):
        connection.execute(f"delete from {table}")
    connection.execute("insert into rent_periods (tenant_code) "
                       "with recursive n(x) as (select 1 union all select x + 1 from n where x < 3000) "
                       "select 'half done' from n")
    content, journal = work.bytes(), open(work.beside("-journal"), "rb").read()
    connection.close()
    work.write(content)
    work.write(journal, "-journal")
    return bytearray(journal)


def _name_of_another(name):
    name = os.fsencode(name)
    checksum = sum(byte if byte < 128 else byte - 256 for byte in name) & 0xFFFFFFFF
    return struct.pack(">I", 0) + name + struct.pack(">II", len(name), checksum) + _JOURNAL_MAGIC


def genuine_journal(work):
    _leave_hot_journal(work)
    return {"is_sound": True, "recovers": True}


def journal_that_names_a_victim(work):
    journal = _leave_hot_journal(work)
    if work.source.random() < 0.5:
        journal[:28] = bytes(28)
    work.write(journal + _name_of_another(work.victim), "-journal")


def journal_of_wrong_numbers(work):
    journal = _leave_hot_journal(work)
    place = work.source.choice((8, 16, 20, 24))
    number = work.source.choice((0, 1, 3, 511, 4095, 131072, 2 ** 31, 2 ** 32 - 2, work.source.getrandbits(32)))
    struct.pack_into(">I", journal, place, number)
    work.write(journal, "-journal")
    return {"recovers": True}


def journal_with_flipped_bytes(work):
    journal = _leave_hot_journal(work)
    flip(work.source, journal, work.source.choice((1, 1, 5, 200)), work.source.choice((28, 2000, len(journal))))
    work.write(journal, "-journal")
    return {"recovers": True}


def journal_cut_off(work):
    journal = _leave_hot_journal(work)
    work.write(journal[:work.source.choice((0, 1, 27, 28, 511, 512, work.source.randrange(len(journal))))],
               "-journal")
    return {"recovers": True}


def side_file_of_another_kind(work):
    work.copy()
    path = work.beside(work.source.choice(("-journal", "-wal", "-shm")))
    kind = work.source.randrange(6)
    if kind == 0:
        os.mkfifo(path)
    elif kind == 1:
        os.mkdir(path)
    elif kind == 2:
        os.symlink(work.victim, path)
    elif kind == 3:
        os.symlink(os.path.join(work.folder, "none"), path)
    elif kind == 4:
        os.symlink("/dev/zero", path)
    else:
        os.link(work.victim, path)


def side_file_of_any_bytes(work):
    work.copy()
    size = work.source.choice((1, 8, 27, 28, 32, 100, 512, 5000))
    content = bytearray(work.source.randbytes(size))
    end = work.source.choice(("-journal", "-wal", "-shm"))
    if work.source.random() < 0.5:
        start = {"-journal": _JOURNAL_MAGIC, "-wal": _LOG_MAGIC,
                 "-shm": struct.pack("=I", 3007000)}[end]
        content[:len(start)] = start
    work.write(content, end)
    return {"recovers": True}


def log_of_a_killed_program(work, is_flipped=False):
    work.copy(filled=True)
    connection = sqlite3.connect(work.path, isolation_level=None)
    connection.execute("pragma journal_mode = wal")
    connection.execute("update owner set name = 'logged'")
    content = {end: open(work.beside(end), "rb").read() for end in ("", "-wal", "-shm")}
    connection.close()
    for end, old in content.items():
        new = bytearray(old)
        if is_flipped and end:
            flip(work.source, new, work.source.choice((1, 10, 200)), len(new))
        work.write(new, end)
    return {"is_sound": not is_flipped, "recovers": True}


def log_with_flipped_bytes(work):
    return log_of_a_killed_program(work, is_flipped=True)
