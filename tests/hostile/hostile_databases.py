"""Database files that nobody would make in good faith.

`make(seed, number, genuine, folder)` writes `property.mdb` with all that belongs to it into a folder. The same
seed and number make the same file.
"""

import random
from dataclasses import dataclass

import declarations
import pages
import side_files
from work import Work


@dataclass
class Genuine:
    """Database files made by the programs themselves: a fresh one, and one that an import has filled."""

    fresh: str
    filled: str


@dataclass
class Made:
    kind: str
    #: Whether the import must succeed: the file is an odd one, but sound.
    is_sound: bool = False
    #: Whether merely reading the file may change it, as it has to be recovered first.
    recovers: bool = False


_KINDS = (
    side_files.genuine_journal, side_files.journal_that_names_a_victim, side_files.journal_of_wrong_numbers,
    side_files.journal_with_flipped_bytes, side_files.journal_cut_off, side_files.side_file_of_another_kind,
    side_files.side_file_of_any_bytes, side_files.log_of_a_killed_program,
    side_files.log_with_flipped_bytes, declarations.endless_view, declarations.view_of_views,
    declarations.view_of_doubling_tables, declarations.triggers, declarations.odd_column_names,
    declarations.column_name_that_is_no_text, declarations.virtual_table,
    declarations.virtual_table_in_disguise, declarations.table_without_row_keys,
    declarations.computed_things, declarations.conflict_rules, declarations.lax_comparisons,
    declarations.missing_collation, declarations.misleading_statistics, declarations.another_layout,
    declarations.endless_list_of_tables, declarations.changed_declarations,
    declarations.random_declarations, declarations.hostile_rows, pages.page_that_leads_in_circles,
    pages.list_of_tables_that_leads_in_circles, pages.deep_tree, pages.free_pages_in_circles,
    pages.wrong_size, pages.wrong_head, pages.chain_of_a_long_value, pages.index_that_lacks_rows,
    pages.file_of_another_kind, pages.flipped_bytes, pages.flipped_heads_of_pages)

_KINDS_OF_MANY = (
    pages.flipped_bytes, pages.flipped_bytes, pages.flipped_heads_of_pages,
    declarations.random_declarations, declarations.random_declarations, declarations.changed_declarations,
    declarations.computed_things, side_files.journal_with_flipped_bytes, declarations.conflict_rules)


def make(seed, number, genuine, folder):
    source = random.Random(f"{seed}/{number}")
    # Every other one is of each kind in its turn, the others of kinds that have no end of variants.
    maker = _KINDS[number // 2 % len(_KINDS)] if number % 2 == 0 else source.choice(_KINDS_OF_MANY)
    traits = maker(Work(source, genuine, folder)) or {}
    return Made(maker.__name__, **traits)
