"""Codes made from names, and names turned into codes."""


class CodeBook:
    """An ordered list of records with the code rules of its kind.

    `name_field` is the record's attribute that holds its name, `limit` the longest code.
    """

    def __init__(self, name_field, limit, keeps_codes=True):
        self.records = []
        self._name_field = name_field
        self._limit = limit
        self._keeps_codes = keeps_codes

    def name_of(self, record):
        return getattr(record, self._name_field)

    def generate_codes(self):
        for place, record in enumerate(self.records):
            if self._keeps_codes and record.code:
                continue
            record.code = self._make_unique(self.name_of(record)[:self._limit], place)

    def code_of(self, name):
        """The code of the last record of exactly this name; an empty text if there is none."""
        code = ""
        for record in self.records:
            if self.name_of(record) == name:
                code = record.code
        return code

    def _make_unique(self, candidate, place):
        # Blanks at the ends count while codes are compared and go only afterwards, so that two records can
        # end up with one code.
        suffix = 0
        while any(record.code == candidate for record in self.records[:place]):
            if suffix != 0:
                candidate = candidate[:-len(str(suffix))]
            suffix += 1
            candidate = candidate[:self._limit - len(str(suffix))] + str(suffix)
        return candidate.strip(" ")
