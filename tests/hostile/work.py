"""What the makers of hostile files have in common."""

import os
import shutil
import sqlite3

DATABASE = "property.mdb"
VICTIM = "victim.txt"

# The tables that the import fills, with the column of each that holds a code.
FILLED = {"glcodes": "gl_code", "owner": "code", "property": "code", "tenancy": "reference",
          "tenant_bond": "tenant_code", "rent_periods": "tenant_code", "revenues": "tenant_code"}

FOREVER = "with recursive n(x) as (select 1 union all select x + 1 from n)"


class Work:
    """One file being made."""

    def __init__(self, source, genuine, folder):
        self.source = source
        self.genuine = genuine
        self.folder = folder
        self.path = os.path.join(folder, DATABASE)
        self.victim = os.path.join(folder, VICTIM)
        with open(self.victim, "w", encoding="utf-8") as victim:
            victim.write("precious\n")

    def beside(self, end):
        return self.path + end

    def copy(self, filled=None):
        filled = self.source.random() < 0.5 if filled is None else filled
        shutil.copy2(self.genuine.filled if filled else self.genuine.fresh, self.path)

    def connect(self):
        connection = sqlite3.connect(self.path, isolation_level=None)
        # Known to nobody else.
        connection.create_collation("strange", lambda one, other: (one > other) - (one < other))
        return connection

    def run(self, *statements, unsafe=False, filled=None):
        """Runs statements on a genuine database; unsafe ones may write to the list of its tables."""
        if not os.path.exists(self.path):
            self.copy(filled)
        connection = self.connect()
        if unsafe:
            connection.execute("pragma writable_schema = on")
        for statement in statements:
            connection.execute(statement)
        connection.close()

    def remake(self, table, change, with_rows=True):
        """Declares a table anew, with its declaration changed."""
        if not os.path.exists(self.path):
            self.copy(filled=False)
        connection = self.connect()
        (sql,) = connection.execute("select sql from sqlite_master where name = ?", (table,)).fetchone()
        indexes = [row[0] for row in connection.execute(
            "select sql from sqlite_master where tbl_name = ? and type = 'index' and sql is not null", (table,))]
        found = connection.execute(f"select * from [{table}]")
        columns = ", ".join(f"[{column[0]}]" for column in found.description)
        rows = found.fetchall()
        connection.execute(f"drop table [{table}]")
        connection.execute(change(sql))
        for row in rows if with_rows else ():
            places = ", ".join("?" * len(row))
            connection.execute(f"insert or ignore into [{table}] ({columns}) values ({places})", row)
        for index in indexes:
            connection.execute(index)
        connection.close()

    def bytes(self):
        with open(self.path, "rb") as file:
            return bytearray(file.read())

    def write(self, content, end=""):
        with open(self.beside(end), "wb") as file:
            file.write(content)

    def table(self):
        return self.source.choice(list(FILLED))

    def page_of(self, table):
        connection = sqlite3.connect(self.path)
        (page,) = connection.execute("select rootpage from sqlite_master where name = ?", (table,)).fetchone()
        connection.close()
        return page


def flip(source, content, count, within):
    for _ in range(count):
        place = source.randrange(min(within, len(content)))
        content[place] = source.choice((content[place] ^ (1 << source.randrange(8)), source.randrange(256)))
