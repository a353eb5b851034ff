"""Hostile things around a sound database: settings, the portfolio, the backup, the error log.

Each function lays them into a folder that holds the database, and answers with the arguments of the import.
"""

import os

from work import DATABASE

_HEADER = "Windows Registry Editor Version 5.00\n\n"
_KEY = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Hearthbook\\Settings]\n"


def _settings(place):
    """The place of the settings file. With no database named on the command line it is read."""
    os.makedirs(os.path.join(place, "config", "hearthbook"))
    return os.path.join(place, "config", "hearthbook", "registry.reg")


def _write(path, content):
    with open(path, "wb") as file:
        file.write(content.encode("utf-8") if isinstance(content, str) else content)


def _database(place):
    return ["--database", os.path.join(place, DATABASE)]


def settings_are_a_pipe(place):
    os.mkfifo(_settings(place))
    return []


def settings_are_a_folder(place):
    os.mkdir(_settings(place))
    return []


def settings_are_a_device(place):
    os.symlink("/dev/zero", _settings(place))
    return []


def settings_are_gigabytes(place):
    path = _settings(place)
    _write(path, _HEADER + _KEY + '"APPPath"="/none"\n')
    os.truncate(path, 5 * 10 ** 9)
    return []


def settings_have_deep_keys(place):
    deep = "\\".join(["a"] * 500000)
    _write(_settings(place), _HEADER + f"[HKEY_LOCAL_MACHINE\\{deep}]\n" + f"[-HKEY_LOCAL_MACHINE\\{deep}]\n")
    return []


def settings_delete_many_keys(place):
    keys = "".join(f"[k{n}]\n" for n in range(150000))
    _write(_settings(place), _HEADER + keys + "".join(f"[-d{n}]\n" for n in range(100000)))
    return []


def settings_go_on_and_on(place):
    _write(_settings(place), _HEADER + _KEY + '"APPPath"=hex:' + "00,\\\n" * 700000)
    return []


def settings_of_any_bytes(place):
    _write(_settings(place), b"\xff\xfe" + bytes(range(256)) * 10000)
    return []


def settings_name_a_pipe(place):
    pipe = os.path.join(place, "pipe.mdb")
    os.mkfifo(pipe)
    _write(_settings(place), _HEADER + _KEY + f'"Networkable"="1"\n"DatabaseLocation"="{pipe}"\n')
    return []


def settings_name_a_folder_of_pipes(place):
    folder = os.path.join(place, "data")
    os.mkdir(folder)
    os.mkfifo(os.path.join(folder, "property.mdb"))
    _write(_settings(place), _HEADER + _KEY + f'"APPPath"="{folder}"\n')
    return []


def portfolio_is_a_pipe(place):
    os.mkfifo(os.path.join(place, "portfolio.json"))
    return _database(place)


def portfolio_is_a_device(place):
    os.symlink("/dev/zero", os.path.join(place, "portfolio.json"))
    return _database(place)


def backup_is_a_pipe(place):
    os.mkfifo(os.path.join(place, "backup.mdb"))
    return [*_database(place), "--backup", os.path.join(place, "backup.mdb")]


def backup_is_a_link(place):
    os.symlink(os.path.join(place, "none"), os.path.join(place, "backup.mdb"))
    return [*_database(place), "--backup", os.path.join(place, "backup.mdb")]


def backup_is_the_journal(place):
    return [*_database(place), "--backup", os.path.join(place, DATABASE + "-journal")]


def error_log_is_a_pipe(place):
    # The pinned day has no part in the log's name, which is that of the month.
    for month in ("Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"):
        os.mkfifo(os.path.join(place, f"err{month}26.log"))
    return ["--database", place]


SURROUNDINGS = (
    settings_are_a_pipe, settings_are_a_folder, settings_are_a_device, settings_are_gigabytes,
    settings_have_deep_keys, settings_delete_many_keys, settings_go_on_and_on, settings_of_any_bytes,
    settings_name_a_pipe, settings_name_a_folder_of_pipes, portfolio_is_a_pipe, portfolio_is_a_device,
    backup_is_a_pipe, backup_is_a_link, backup_is_the_journal, error_log_is_a_pipe)
