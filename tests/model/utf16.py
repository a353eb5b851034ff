"""Text counted as the import counts it: in UTF-16 units.

A name is cut after so many units, and the windows of the apostrophe repair are units too. The model therefore
holds every text as a string of units, in which a character beyond the basic plane is its two halves.
"""

import re

_HALF = re.compile("[\ud800-\udfff]")


def to_units(text):
    """The text with every character beyond the basic plane split into its two halves."""
    units = []
    for character in text:
        number = ord(character)
        if number > 0xFFFF:
            number -= 0x10000
            units.append(chr(0xD800 + (number >> 10)))
            units.append(chr(0xDC00 + (number & 0x3FF)))
        else:
            units.append(character)
    return "".join(units)


def to_stored_text(units):
    """The text as the database file can hold it: a half without its other half becomes U+FFFD."""
    paired = units.encode("utf-16-le", "surrogatepass").decode("utf-16-le", "surrogatepass")
    return _HALF.sub("\ufffd", paired)
