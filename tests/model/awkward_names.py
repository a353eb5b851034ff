"""Names as hard on the import as the entry rules allow."""

from utf16 import to_stored_text, to_units

_PLAIN = (
    "Ada Finch", "Kestrel Bank", "Main Road", "Smith Family Trust", "Harbour View", "Oskar", "Bo",
    "Priya Raman", "Station Avenue", "Trust Account", "Lindgren", "Grace", "North Street", "Jo", "Wrenfield",
    "Moss",
)

_MILD = (
    "true", "false", "untrue", "Gertrue", "falsework", "TRUE", "False", "#", ";", "--", "/*", "[", "]", '"',
    "%", "||", "é", "ß", "Ünal", "日本", "Ω", "😀", "𝔘𝔴", "e\u0301", "\u00a0", "\u3000", "=", "<", ">", "<>",
    "(", ")", ",", "*", "?", "?1", ":a", "$1", "@b", "\\", "/", "_", "null", "NULL", "&", "1e5", "-1",
    "#1/2/2026#", " and ", " or ", " order by ", "like", "K", "\u212a", "\ufeff", "\u202e", "\uffff",
    "\u0085", "Ger-1", "0work", "&amp;", "<b>", "%1", "{}", "\\n", "1,5", ".", "ke", "{",
)

_APOSTROPHES = (
    "'", "''", "'''", "O'Brien", "x='y", "x<'y", "x>'y", "ke'", "KE'", "like 'a", "a' and b", "a' AND b",
    "a' or b'", "a' Or b", "a'  and", "a' ord", "a' order", "'s", "s'", "'a'", "a'b'c", "=''", "= '", "','",
    "')", "');", "' --", "'#", "true'", "false'", "='true", "' or ", "' and ", "'='", "\u212ae'", "'a",
    "Bo' and", "Bo' or", "' is null", "';", "('", "[']", '"\'"', "d'é", "'😀", "😀'",
)

# These change the meaning of a statement without spoiling it.
_TURNING = ("' or tenant_code<>'", "' or tenant_code>'b", "' or tenant_code='", "a' or tenant_code='",
            "' or TENANT_CODE>='", "' and tenant_code<'", '" or tax="')

_UNIT_NUMBERS = ("1", "1", "2", "3", "12", "101", "A", "b", "Flat 2", " 3", "4 ", " ", "😀", "é", "true",
                 "x" * 19, "y" * 27, "#", '"', "5/5", "Unit seventeen upstairs")

# Names that look like something else.
_DISGUISED = ("007", "1e5", "-1", "0x10", "12", " 12", "1.50", "inf", "nan", "null", "true", "false", "?", "%",
              "2026-01-01", "#1/2/2026#", "select", "Old", "Rent", "BankAcct", "[name]")

_FILLERS = (" ", "  ", "   ", "-", "x", "Z", "7")


def _insert(source, text, fragment):
    place = source.choice((0, len(text), source.randint(0, len(text))))
    return text[:place] + fragment + text[place:]


def cut_units(text, limit):
    """The longest beginning of the text that takes at most so many units, characters kept whole."""
    units = to_units(text)[:limit]
    if units and "\ud800" <= units[-1] <= "\udbff":
        units = units[:-1]
    return to_stored_text(units)


def _stretched(source, text, cut):
    """The text brought to a length around a code's cut, with something of interest at the cut."""
    at_cut = source.choice((" ", "  ", "😀", "'", "''", "𝔘", "1", "9", "é", "\u00a0"))
    units = len(to_units(text))
    room = max(0, cut - source.randint(0, 2) - units)
    return text + source.choice(_FILLERS) * room + at_cut + source.choice(("", "tail", "t 2", "'", "x" * 9))


def _with_words_swapped(name):
    """The same name as the rewriting of statements leaves it, or one that it turns into this one."""
    rewritten = name.replace("false", "0").replace("true", "-1")
    return rewritten if rewritten != name else name.replace("-1", "true").replace("0", "false")


class NameMaker:
    """Makes names of which no two are equal without regard to case.

    `apostrophes` is the share of names with apostrophes: each of them spoils most statements of its
    record, so a portfolio full of them shows little else. `likeness` is the share of names made after an
    earlier one.
    """

    def __init__(self, source, apostrophes, likeness):
        self._source = source
        self._apostrophes = apostrophes
        self._likeness = likeness
        self._taken = {}

    def make(self, kind, limit, cut):
        """A new name of this kind of record, of at most `limit` units; its code is cut after `cut`."""
        taken = self._taken.setdefault(kind, [])
        while True:
            name = cut_units(self._candidate(taken, cut), limit)
            if name and name.casefold() not in (other.casefold() for other in taken):
                taken.append(name)
                return name

    def take(self, kind, name):
        """Notes a name that stands already. Answers false if it is taken."""
        taken = self._taken.setdefault(kind, [])
        if name.casefold() in (other.casefold() for other in taken):
            return False
        taken.append(name)
        return True

    def text(self, limit):
        """A text that needn't be a name: it may repeat, and it may be empty."""
        source = self._source
        if source.random() < 0.4:
            return ""
        return cut_units(self._candidate([], source.choice((10, 20, 30))), limit)

    def fragment(self):
        """A short piece for unit numbers."""
        source = self._source
        if source.random() < self._apostrophes:
            return source.choice(("'", "1'", "a'b", "''", "='"))
        return source.choice(_UNIT_NUMBERS)

    def _candidate(self, taken, cut):
        source = self._source
        if taken and source.random() < self._likeness:
            name = self._neighbour(source.choice(taken), cut)
        else:
            name = source.choice(_PLAIN)
            if source.random() < 0.5:
                name += " " + source.choice(_PLAIN)
        dice = source.random()
        if dice < self._apostrophes:
            for _ in range(source.choice((1, 1, 1, 2, 2, 3))):
                name = _insert(source, name, source.choice(_APOSTROPHES))
            if source.random() < 0.3:
                name = source.choice(_APOSTROPHES)
        elif dice < self._apostrophes + 0.25:
            for _ in range(source.choice((1, 1, 2, 3))):
                name = _insert(source, name, source.choice(_MILD))
        elif dice < self._apostrophes + 0.33:
            name = _stretched(source, name, cut)
        elif dice < self._apostrophes + 0.35:
            name = source.choice(_FILLERS) * source.randint(1, 25)
        elif dice < self._apostrophes + 0.36 and self._apostrophes:
            name = source.choice(_TURNING)
        if source.random() < 0.03:
            name = source.choice(_DISGUISED)
        if source.random() < 0.08:
            name = " " * source.randint(0, 2) + name + " " * source.randint(0, 2)
        return name

    def _neighbour(self, name, cut):
        """A name that is likely to come out with the same code, or to bear another one's code."""
        source = self._source
        beginning = cut_units(name, cut)
        dice = source.random()
        if dice < 0.1:
            return _with_words_swapped(name)
        if dice < 0.3:
            return beginning
        if dice < 0.5:
            number = str(source.choice((1, 2, 9, 10)))
            return beginning[:cut - len(number)] + number
        return beginning.ljust(cut) + source.choice((" ", "", "x")) + str(source.randint(0, 99))
