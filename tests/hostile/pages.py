"""Databases whose pages were tampered with."""

import os
import sqlite3
import struct

from work import flip


def _page_size(content):
    (size,) = struct.unpack_from(">H", content, 16)
    return 65536 if size == 1 else size


def page_that_leads_in_circles(work):
    """A table whose pages lead to themselves, to the list of tables, or many times to one page."""
    source = work.source
    work.copy(filled=True)
    content = work.bytes()
    size = _page_size(content)
    page = work.page_of(work.table())
    target = source.choice((page, 1, work.page_of("options")))
    cells = source.choice((0, 1, 40, 300))
    inner = bytearray(size)
    inner[0] = source.choice((5, 2))
    struct.pack_into(">HHHBI", inner, 1, 0, cells, size - cells * 5, 0, target)
    for cell in range(cells):
        place = size - (cell + 1) * 5
        struct.pack_into(">H", inner, 12 + 2 * cell, place)
        struct.pack_into(">IB", inner, place, target, cell % 128)
    content[(page - 1) * size:page * size] = inner
    work.write(content)


def list_of_tables_that_leads_in_circles(work):
    source = work.source
    work.copy()
    content = work.bytes()
    size = _page_size(content)
    cells = source.choice((0, 1, 100, 300))
    content[100:size] = bytes(size - 100)
    content[100] = 5
    target = source.randint(1, 5)
    struct.pack_into(">HHHBI", content, 101, 0, cells, size - cells * 5, 0, target)
    for cell in range(cells):
        place = size - (cell + 1) * 5
        struct.pack_into(">H", content, 112 + 2 * cell, place)
        struct.pack_into(">IB", content, place, target, cell % 128)
    work.write(content)


def deep_tree(work):
    """One page below the other, tens of thousands of times."""
    small = os.path.join(work.folder, "small")
    connection = sqlite3.connect(small, isolation_level=None)
    connection.execute("pragma page_size = 512")
    connection.execute("create table owner (code TEXT(10), name TEXT(50))")
    connection.execute("insert into owner values ('a', 'b')")
    connection.close()
    with open(small, "rb") as file:
        content = bytearray(file.read())
    os.unlink(small)
    depth = work.source.choice((19, 100, 60000))
    inner = bytearray(512)
    inner[0], inner[5] = 5, 2
    deep = content[:512]
    for page in range(2, depth + 2):
        struct.pack_into(">I", inner, 8, page + 1)
        deep += inner
    deep += content[512:1024]
    struct.pack_into(">I", deep, 28, depth + 2)
    work.write(deep)


def free_pages_in_circles(work):
    source = work.source
    work.run("delete from rent_periods", "delete from revenues", filled=True)
    content = work.bytes()
    size = _page_size(content)
    (trunk,) = struct.unpack_from(">I", content, 32)
    kind = source.randrange(4)
    if kind == 0:
        struct.pack_into(">I", content, (trunk - 1) * size, trunk)
    elif kind == 1:
        struct.pack_into(">I", content, (trunk - 1) * size + 4, source.choice((0, 5000, 2 ** 32 - 1)))
    elif kind == 2:
        struct.pack_into(">I", content, (trunk - 1) * size + 8, work.page_of("owner"))
    else:
        struct.pack_into(">II", content, 32, source.choice((1, 2, work.page_of("tenancy"), 2 ** 31)),
                         source.choice((0, 1, 10 ** 6)))
    work.write(content)


def wrong_size(work):
    source = work.source
    work.copy()
    content = work.bytes()
    kind = source.randrange(6)
    if kind == 0:
        struct.pack_into(">I", content, 28, source.choice((0, 1, 2 ** 31, 2 ** 32 - 1)))
    elif kind == 1:
        content = content[:source.choice((0, 1, 16, 32, 100, 512, 4096, source.randrange(len(content))))]
    elif kind == 2:
        struct.pack_into(">H", content, 16, source.choice((0, 1, 2, 511, 512, 1024, 32768, 65535)))
    elif kind == 3:
        content[20] = source.choice((1, 8, 255))
    elif kind == 4:
        content = content[:16] + bytearray(source.randbytes(len(content) - 16))
    work.write(content)
    if kind == 5:
        os.truncate(work.path, source.choice((10 ** 9, 10 ** 12)))


def wrong_head(work):
    work.copy()
    content = work.bytes()
    for _ in range(work.source.randint(1, 3)):
        content[work.source.randrange(16, 100)] = work.source.choice((0, 1, 2, 3, 5, 127, 128, 255))
    work.write(content)


def chain_of_a_long_value(work):
    """A value of many pages whose chain leads back, elsewhere, or is said to be of two gigabytes."""
    source = work.source
    work.run("insert into notes (note) values (zeroblob(100000))", filled=False)
    content = work.bytes()
    size = _page_size(content)
    chained = [page for page in range(2, len(content) // size)
               if struct.unpack_from(">I", content, page * size)[0] == page + 2]
    for page in chained[3:4] or [20]:
        struct.pack_into(">I", content, page * size, source.choice((page, page + 1, 1, 2, 10 ** 9)))
    work.write(content)


def index_that_lacks_rows(work):
    table, column, other = work.source.choice((
        ("contractor", "name", "phone"), ("options", "Rent_Group", "tax_name"),
        ("glcodes", "description", "type"),
        ("rent_periods", "rent_due", "period_to")))
    work.run("insert into contractor (name, phone) values ('Toms Tree Services', '555 1234')",
             f"create index lacking on {table} ([{column}])", filled=True)
    work.run(f"update sqlite_master set sql = 'create index lacking on {table} ({other})' "
             "where name = 'lacking'", unsafe=True)


def file_of_another_kind(work):
    kind = work.source.randrange(6)
    if kind == 0:
        os.mkfifo(work.path)
    elif kind == 1:
        os.mkdir(work.path)
    elif kind == 2:
        os.symlink(work.path, work.path)
    elif kind == 3:
        os.symlink("/dev/zero", work.path)
    elif kind == 4:
        os.symlink(work.victim, work.path)
    else:
        work.write(b"SQLite format 3\0" + work.source.randbytes(work.source.choice((0, 84, 5000))))


def flipped_bytes(work):
    source = work.source
    work.copy()
    content = work.bytes()
    flip(source, content, source.choice((1, 1, 2, 5, 20, 300)), source.choice((100, 4096, 16384, len(content))))
    work.write(content)


def flipped_heads_of_pages(work):
    source = work.source
    work.copy()
    content = work.bytes()
    size = _page_size(content)
    for _ in range(source.randint(1, 4)):
        page = source.randrange(len(content) // size)
        content[page * size + (100 if page == 0 else 0) + source.randrange(16)] = source.randrange(256)
    work.write(content)
