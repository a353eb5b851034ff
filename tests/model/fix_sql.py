"""The rewriting that every statement text goes through before the engine sees it.

Texts typed by the user are glued into statements as they are. What repairs their apostrophes here is a
guess by the neighbourhood of each one; it helps a single stray apostrophe behind a comparison and spoils
others, and both belong to the import's behaviour.
"""

_OPENING_SIGNS = ("=", "<", ">", "ke")
_CLOSING_SIGNS = (" and", "  an", " or ", " ord")


class TextBeforeTheStart(Exception):
    """An apostrophe stands so far left that the three characters before it don't exist."""


def _without_case(text):
    return "".join(unit.lower() if len(unit.lower()) == 1 else unit for unit in text)


def _middle(text, start, length):
    if start < 1:
        raise TextBeforeTheStart
    return text[start - 1:start - 1 + length]


def _opens_a_text(text, place):
    if place < 2:
        return False
    before = _without_case(_middle(text, place - 3, 3))
    return any(sign in before for sign in _OPENING_SIGNS)


def _closes_a_text(text, place):
    if place >= len(text) - 4:
        return False
    after = _without_case(_middle(text, place + 1, 4))
    return any(sign in after for sign in _CLOSING_SIGNS)


def fix_sql(statement):
    """The statement as the engine gets it. Places are counted from 1."""
    text = statement.replace("false", "0").replace("true", "-1")
    if text.count("'") % 2 == 0:
        return text
    place = text.find("'") + 1
    while place > 0:
        is_left_alone = (_opens_a_text(text, place) or _closes_a_text(text, place) or place == len(text))
        if not is_left_alone:
            text = text[:place] + "'" + text[place:]
            place += 1
        place = text.find("'", place) + 1
    return text
