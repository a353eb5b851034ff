"""Databases that declare what no database of Hearthbook's does, or declare it otherwise."""

import os
import sqlite3

from work import FILLED, FOREVER

_ODD_NAMES = ("a]b", 'a"b', "a'b", "x = 1; delete from owner; --", "", " ", "[", "]", "?", "%", "select",
              "rowid", "\u202eoops", "\U0001f600", "\u212aey", "check", "#1/2/2026#", "x" * 5000)


def _with_columns(more):
    return lambda sql: sql[:sql.rindex(")")] + ", " + more + ")"


def endless_view(work):
    table = work.table()
    names = ", ".join(f"x as [{name}]" for name in ("code", "name", "gl_code", "tenant_code", "type"))
    work.run(f"drop table {table}", f"create view {table} as {FOREVER} select {names} from n")


def view_of_views(work):
    """Each takes twice what the one before takes."""
    table = work.table()
    views = ["create view v0 as select 1 as code"]
    views += [f"create view v{n} as select a.code from v{n - 1} as a, v{n - 1} as b" for n in range(1, 40)]
    work.run(*views, f"drop table {table}", f"create view {table} as select * from v39")


def view_of_doubling_tables(work):
    doubled = ", ".join(f"c{n} as (select a.x from c{n - 1} as a, c{n - 1} as b)" for n in range(1, 30))
    table = work.table()
    work.run(f"drop table {table}")
    work.run(f"insert into sqlite_master values ('view', '{table}', '{table}', 0, "
             f"'create view {table} as with c0 as (select 1 as x), {doubled} select x as code from c29')",
             unsafe=True)


def triggers(work):
    source = work.source
    actions = ("delete from {0}", f"insert into {{0}}(rowid) {FOREVER} select x + 1000 from n",
               "select raise(ignore)", "select raise(rollback, 'no')", "update {0} set rowid = rowid + 1000000")
    for number in range(source.randint(1, 10)):
        table = work.table()
        work.run(f"create trigger t{number} {source.choice(('before', 'after'))} "
                 f"{source.choice(('insert', 'update', 'delete'))} on {table} "
                 f"begin {source.choice(actions).format(table)}; end")
    return {"is_sound": True}


def odd_column_names(work):
    names = work.source.sample(_ODD_NAMES, 4)
    more = ", ".join('"' + name.replace('"', '""') + '" TEXT(30)' for name in names)
    work.remake(work.table(), _with_columns(more))
    return {"is_sound": True}


def column_name_that_is_no_text(work):
    table = work.table()
    work.remake(table, _with_columns("zzzz TEXT(5)"))
    content = work.bytes()
    work.write(content.replace(b"zzzz TEXT", bytes((work.source.choice((0xFF, 0xC0, 0xED, 0)),)) + b"zzz TEXT"))


def virtual_table(work):
    table = work.table()
    module = work.source.choice(("fts3(code, name)", "fts4(code, name)", "fts5(code, name)",
                                 "rtree(code, a, b)", "dbstat"))
    work.run(f"drop table {table}", f"create virtual table {table} using {module}")
    if work.source.random() < 0.6:
        # The tables that it keeps its rows in are broken.
        work.run("update sqlite_master set rootpage = 1 + rootpage % 20 "
                 f"where name like '{table}[_]%' or name glob '{table}_*'", unsafe=True)


def virtual_table_in_disguise(work):
    table = work.table()
    work.run(f"update sqlite_master set sql = 'create virtual table {table} using fts5(code, name)' "
             f"where name = '{table}'", unsafe=True)


def table_without_row_keys(work):
    table = work.table()
    work.run(f"drop table {table}",
             f"create table {table} (code TEXT(20), [name] TEXT(30), primary key (code)) without rowid")


def computed_things(work):
    source = work.source
    table = work.table()
    huge = source.choice(("hex(randomblob(400000000))", "hex(hex(hex(zeroblob(100000000))))",
                          "replace(hex(zeroblob(10000000)), '0', hex(zeroblob(50)))",
                          "printf('%.*c', 900000000, 'x')", "like('%a%a%a%a%a%a%b', hex(zeroblob(1000000)))"))
    doubled = huge.replace("'", "''")
    kind = source.randrange(6)
    if kind == 0:
        work.remake(table, _with_columns(f"extra TEXT(30) check (length({huge}) > 0)"), with_rows=False)
    elif kind == 1:
        work.remake(table, _with_columns(f"check (length({huge}) > 0)"), with_rows=False)
    elif kind == 2:
        work.remake(table, _with_columns(f"extra TEXT(30) default ({huge})"), with_rows=False)
    elif kind == 3:
        huge = huge.replace("random", "zero")
        work.remake(table, _with_columns(f"extra TEXT(30) as ({huge})"), with_rows=False)
    elif kind == 4:
        work.run(f"insert into sqlite_master values ('index', 'i', '{table}', 2, "
                 f"'create index i on {table} (length({doubled}))')", unsafe=True)
    else:
        work.run(f"insert into sqlite_master values ('index', 'i', '{table}', 2, "
                 f"'create index i on {table} ({FILLED[table]}) where length({doubled}) > 0')",
                 unsafe=True)


def conflict_rules(work):
    """Keys that would turn rows away, or replace others, without a word."""
    source = work.source
    conflict = source.choice(("ignore", "replace", "rollback", "fail", "abort"))
    table, column = source.choice((("owner", "code"), ("glcodes", "gl_code"), ("property", "code"),
                                   ("tenancy", "reference"), ("rent_periods", "tenant_code"),
                                   ("revenues", "tenant_code"), ("revenues", "amount")))
    rule = source.choice((f"unique ([{column}]) on conflict {conflict}",
                          f"primary key ([{column}]) on conflict {conflict}",
                          f"extra TEXT(5) not null on conflict {conflict}",
                          f"foreign key ([{column}]) references notes (reference) on delete cascade"))
    work.remake(table, _with_columns(rule))


def lax_comparisons(work):
    collation = work.source.choice(("nocase", "rtrim"))
    for table in FILLED:
        work.remake(table, lambda sql: sql.replace("TEXT(20)", f"TEXT(20) collate {collation}"))
    return {"is_sound": True}


def missing_collation(work):
    table = work.table()
    if work.source.random() < 0.5:
        work.run(f"create index odd on {table} ({FILLED[table]} collate strange)")
    else:
        work.remake(table, lambda sql: sql.replace("TEXT(20)", "TEXT(20) collate strange")
                    .replace("TEXT(10)", "TEXT(10) collate strange"))


def misleading_statistics(work):
    work.run("analyze")
    work.run("delete from sqlite_stat1")
    kind = work.source.randrange(4)
    if kind == 0:
        work.run("insert into sqlite_stat1 with recursive n(x) as (select 1 union all select x + 1 from n "
                 "where x < 20000) select 'owner', 'i' || x, '9 9' from n")
        return {}
    text = work.source.choice(("1000000000 1000000000", "1 1 noskipscan", "0 0", "-1 -1", "unordered sz=1",
                               "x" * 3000, "99999999999999999999999 9"))
    for table in ("rent_periods", "revenues", "owner"):
        work.run(f"insert into sqlite_stat1 select tbl_name, name, '{text}' from sqlite_master "
                 f"where type = 'index' and tbl_name = '{table}'",
                 f"insert into sqlite_stat1 values ('{table}', null, '{text}')")
    if kind == 1:
        work.run("update sqlite_master set sql = 'create view sqlite_stat1 as select 1 as tbl' "
                 "where name = 'sqlite_stat1'", unsafe=True)
        return {}
    return {"is_sound": True}


def another_layout(work):
    """Files of the same contents as SQLite may lay them out."""
    source = work.source
    kind = source.randrange(4)
    if kind == 0:
        work.run(f"pragma page_size = {source.choice((512, 1024, 8192, 32768, 65536))}", "vacuum")
    elif kind == 1:
        work.run(f"pragma auto_vacuum = {source.choice(('full', 'incremental'))}", "vacuum")
    elif kind == 2:
        work.run("pragma journal_mode = wal")
        return {"is_sound": True, "recovers": True}
    else:
        _in_other_encoding(work)
    return {"is_sound": True}


def _in_other_encoding(work):
    """All tables and rows again, in a file whose texts are UTF-16."""
    work.copy(filled=False)
    dump = os.path.join(work.folder, "dump")
    os.rename(work.path, dump)
    connection = sqlite3.connect(work.path, isolation_level=None)
    connection.execute(f"pragma encoding = '{work.source.choice(('UTF-16le', 'UTF-16be'))}'")
    other = sqlite3.connect(dump)
    for statement in other.iterdump():
        connection.execute(statement)
    other.close()
    connection.close()
    os.unlink(dump)


def endless_list_of_tables(work):
    kind = work.source.randrange(4)
    if kind == 0:
        work.run("insert into sqlite_master with recursive n(x) as (select 1 union all select x + 1 from n "
                 "where x < 20000) "
                 "select 'table', 't' || x, 't' || x, 2, 'create table t' || x || '(a)' from n", unsafe=True)
    elif kind == 1:
        work.run("insert into sqlite_master select 'table', 'big', 'big', 2, "
                 "'create table big (a ' || hex(zeroblob(3000000)) || ')'", unsafe=True)
    elif kind == 2:
        columns = ", ".join(f"c{n}" for n in range(work.source.choice((300, 1900))))
        work.run(f"create table wide ({columns})")
    else:
        work.run(*(f"create index i{n} on rent_periods (tenant_code)" for n in range(100)))


def changed_declarations(work):
    """The list of tables with letters changed: SQLite reads it before all else."""
    source = work.source
    work.copy()
    connection = sqlite3.connect(work.path, isolation_level=None)
    connection.execute("pragma writable_schema = on")
    for name, sql in connection.execute("select name, sql from sqlite_master where sql is not null").fetchall():
        if source.random() < 0.15:
            place = source.randrange(len(sql))
            character = source.choice(("\0", "]", "[", '"', "'", "(", ")", ",", ";", " ", "-", "/*", "a", "\u20ac"))
            changed = sql[:place] + character + sql[place + source.randint(0, 1):]
            connection.execute("update sqlite_master set sql = ? where name = ?", (changed, name))
        if source.random() < 0.05:
            column = source.choice(("type", "name", "tbl_name", "rootpage", "sql"))
            value = source.choice((None, "", "table", "view", 0, 1, 2, 30, -1, 2 ** 40, "owner", b"\xff\x00"))
            connection.execute(f"update sqlite_master set {column} = ? where name = ?", (value, name))
    connection.close()


def random_declarations(work):
    """Tables that are declared another way, as far as SQLite takes them."""
    source = work.source
    work.copy(filled=False)
    for table in source.sample(list(FILLED), source.randint(1, 4)):
        _redeclare(work, table)


def _redeclare(work, table):
    source = work.source
    kind = source.randrange(8)
    odd_type = source.choice(("TEXT POINT(20)", "INTEGER", "BLOB", "", "TEXT(3)", "REAL", "LONG TEXT",
                              "BOOLEAN", "DATETIME", "LONGBINARY", "BYTE", "MEMO", "TEXT(2147483648)", "whatever(1, 2)"))

    def change(sql):
        head, _, body = sql.partition("(")
        columns = body[:body.rindex(")")].split(", ")
        place = source.randrange(len(columns))
        if kind == 0:
            del columns[place]
        elif kind == 1:
            columns[place] = columns[place].rsplit(" ", 1)[0] + " " + odd_type
        elif kind == 2:
            default = source.choice(("7", "null", "''", "current_date"))
            columns.append(f"extra {odd_type} default {default}")
        elif kind == 3:
            source.shuffle(columns)
        elif kind == 4:
            columns[place] += source.choice((" not null", " unique", " collate nocase", " primary key"))
        elif kind == 5:
            columns[place] = "renamed " + odd_type
        elif kind == 6:
            columns.insert(place, f"[{source.choice(('rowid', 'oid', '_rowid_', 'key', 'Date '))}] {odd_type}")
        else:
            return f"{head}({', '.join(columns)}) strict"
        return f"{head}({', '.join(columns)})"

    connection = sqlite3.connect(work.path, isolation_level=None)
    (sql,) = connection.execute("select sql from sqlite_master where name = ?", (table,)).fetchone()
    connection.execute("begin")
    try:
        connection.execute(f"drop table [{table}]")
        connection.execute(change(sql))
        connection.execute("commit")
    except sqlite3.OperationalError:
        connection.execute("rollback")
    connection.close()


def hostile_rows(work):
    source = work.source
    work.copy(filled=False)
    connection = sqlite3.connect(work.path, isolation_level=None)
    kind = source.randrange(8)
    if kind == 0:
        value = source.choice(("abc", "x" * 1000000, b"\xff\x00", "1e999", -1e308, "''",
                               "Rent'; delete from owner; --"))
        column = source.choice(("taxincome", "taxincrate", "Rent_Group"))
        connection.execute(f"update options set {column} = ?", (value,))
    elif kind == 1:
        connection.execute("insert into options (taxincome) with recursive n(x) as (select 1 union all "
                           "select x + 1 from n where x < 100000) select -1 from n")
    elif kind == 2:
        connection.execute("insert into glcodes (rowid, gl_code, type) "
                           "values (9223372036854775807, 'BankAcct', 5)")
    elif kind == 3:
        connection.execute("insert into owner (rowid, code) values (-9223372036854775808, x'00ff')")
        connection.execute("insert into notes (note) values (zeroblob(20000000))")
    elif kind == 4:
        connection.execute("insert into glcodes (gl_code, type, comments) values (?, '3x', ?)",
                           ("\0", b"\xff" * 100))
        connection.execute("insert into contractor (contractornumber, name) values ('1000', 'Freds Gardening')")
    elif kind == 5:
        connection.execute("drop table owner")
        connection.execute("create table owner (id integer primary key autoincrement, code TEXT(10), "
                           "name TEXT(50), fee_percent DOUBLE)")
        last = source.choice((2 ** 63 - 1, "x", -5))
        connection.execute("insert into sqlite_sequence values ('owner', ?)", (last,))
    elif kind == 6:
        connection.execute("delete from options")
    else:
        connection.execute("update glcodes set gl_code = cast(gl_code as blob), type = cast(type as text)")
    connection.close()
