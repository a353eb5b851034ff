#!/usr/bin/env python3
"""Worked examples for the model: what it says must be right before the program is measured by it."""

import unittest
from dataclasses import dataclass
from decimal import Decimal

from calendar_rules import (Day, add_days, add_months, add_years, day_number, days_in_month, no_date,
                            parse_iso)
from codes import CodeBook
from dialect import SyntaxFailure, parse
from fix_sql import TextBeforeTheStart, fix_sql
from hearthbook_model import import_portfolio
from money import CurrencyOverflow, currency_of_double, currency_text, double_text
from rent import RentTerms, rent_periods, rent_split
from table_store import ColumnType, Table, TableStore
from utf16 import to_stored_text, to_units

NO_END = Day(1234, 1, 1)


class CalendarExamples(unittest.TestCase):
    def test_every_day_of_two_centuries_follows_the_one_before(self):
        day = Day(1895, 12, 31)
        for _ in range(200 * 366):
            number = day_number(day)
            following = add_days(day, 1)
            self.assertEqual(day_number(following), number + 1)
            self.assertLess(day, following)
            self.assertLessEqual(following.day, days_in_month(following.year, following.month))
            day = following

    def test_known_distances(self):
        self.assertEqual(add_days(Day(1999, 12, 31), 60), Day(2000, 2, 29))
        self.assertEqual(add_days(Day(1900, 2, 28), 1), Day(1900, 3, 1))
        self.assertEqual(day_number(Day(1970, 1, 1)), 719163)
        self.assertEqual(add_days(Day(2026, 3, 15), 32752), Day(2115, 11, 16))

    def test_months_clamp_to_the_last_day(self):
        self.assertEqual(add_months(Day(2026, 1, 31), 1), Day(2026, 2, 28))
        self.assertEqual(add_months(Day(2024, 1, 31), 1), Day(2024, 2, 29))
        self.assertEqual(add_months(Day(2026, 3, 31), -1), Day(2026, 2, 28))
        self.assertEqual(add_months(Day(2026, 1, 15), -1), Day(2025, 12, 15))
        self.assertEqual(add_years(Day(2024, 2, 29), 1), Day(2025, 2, 28))
        self.assertEqual(add_years(Day(2025, 2, 28), 3), Day(2028, 2, 28))

    def test_no_date_is_today_in_another_year(self):
        self.assertEqual(no_date(Day(2024, 2, 29)), Day(1234, 2, 28))
        self.assertEqual(no_date(Day(2026, 11, 15)), Day(1234, 11, 15))
        self.assertEqual(Day(150, 3, 1).as_literal(), "#03/01/0150#")


class TextExamples(unittest.TestCase):
    def test_a_cut_may_halve_a_character(self):
        self.assertEqual(to_stored_text(to_units("abcdefghi😀x")[:10]), "abcdefghi\ufffd")
        self.assertEqual(to_stored_text(to_units("abcdefgh😀x")[:10]), "abcdefgh😀")

    def test_numbers(self):
        self.assertEqual([currency_text(currency_of_double(number)) for number in (1000.0, 548.39, 127.5)],
                         ["1000", "548.39", "127.5"])
        self.assertEqual(currency_text(currency_of_double(-0.0)), "0")
        self.assertEqual(currency_of_double(33.33335), Decimal("33.3334"))
        self.assertEqual(currency_of_double(0.00005), Decimal("0"))
        self.assertEqual(currency_of_double(250 - 250 / 1.15), Decimal("32.6087"))
        self.assertEqual(double_text(0.1 + 0.2), "0.3")
        self.assertRaises(CurrencyOverflow, currency_of_double, 1e15)


class FixSqlExamples(unittest.TestCase):
    def test_words_of_truth_are_replaced_anywhere(self):
        self.assertEqual(fix_sql("set a = true, b = 'Gertrue' and falsehood"),
                         "set a = -1, b = 'Ger-1' and 0hood")
        self.assertEqual(fix_sql("TRUE False"), "TRUE False")

    def test_one_stray_apostrophe_in_a_comparison(self):
        self.assertEqual(fix_sql("select * from owner where name = 'O'Brien'"),
                         "select * from owner where name = 'O''Brien'")
        self.assertEqual(fix_sql("delete from owner where name LIKE 'O'Brien' AND code = 'x'"),
                         "delete from owner where name LIKE 'O''Brien' AND code = 'x'")

    def test_even_counts_pass(self):
        for text in ("where a = 'x' and b = 'y'", "values ('O'Br'ien')", "no text"):
            self.assertEqual(fix_sql(text), text)

    def test_values_are_spoiled(self):
        self.assertEqual(fix_sql("values ('O'Brien', 5)"), "values (''O''Brien'', 5)")

    def test_closing_signs(self):
        self.assertEqual(fix_sql("where a = 'x'y' order by b"), "where a = 'x''y' order by b")
        self.assertEqual(fix_sql("where ('a' or b) and 'c'  and d')"), "where (''a' or b) and ''c'  and d'')")

    def test_an_apostrophe_too_far_left(self):
        self.assertRaises(TextBeforeTheStart, fix_sql, "x'yyyyyyyy")
        self.assertEqual(fix_sql("'yyyyyyyy"), "''yyyyyyyy")
        self.assertEqual(fix_sql("yyyyyyyy'"), "yyyyyyyy'")


class DialectExamples(unittest.TestCase):
    def test_what_fails(self):
        for statement in ("", "delete owner", "select * from owner where 'a' = 'a'", "delete from owner;x",
                          "insert into t (a) values ('x' 'y')", "insert into t (a) values (x)",
                          "insert into t (a) values (1 + 1)", "select * from owner where name = 'a",
                          "select * from t where a = #13/13/2026#", "select * from t where not a = 1",
                          "update t set a", "drop table owner", "select * from t -- where a = 1"):
            with self.subTest(statement):
                self.assertRaises(SyntaxFailure, parse, statement)

    def test_quotes_of_both_kinds(self):
        insert = parse("insert into [My Table](a, [b c]) values ('O''Brien; -- [x]', \"say \"\"#\"\"\")")
        self.assertEqual(insert.table, "my table")
        self.assertEqual(insert.columns, ["a", "b c"])
        self.assertEqual([literal.value for literal in insert.values], ["O'Brien; -- [x]", 'say "#"'])

    def test_and_binds_closer_than_or(self):
        store = TableStore({"t": Table([ColumnType("a", "LONG"), ColumnType("b", "LONG")])})
        for a, b in ((1, 1), (1, 2), (2, 2), (3, 3)):
            store.execute(f"insert into T (A, b) values ({a}, {b});")
        rows = store.open_rows("select * from t where a = 3 or a = 1 and b = 2 order by a desc")
        self.assertEqual((rows.get("a"), rows.get("b")), (3, 3))
        rows.move_next()
        self.assertEqual((rows.get("a"), rows.get("b")), (1, 2))
        rows.move_next()
        self.assertTrue(rows.is_at_end())


@dataclass
class Named:
    name: str
    code: str = ""


class CodeExamples(unittest.TestCase):
    def codes(self, names, limit=10, first=""):
        book = CodeBook("name", limit)
        book.records = [Named(name) for name in names]
        book.records[0].code = first
        book.generate_codes()
        return [record.code for record in book.records]

    def test_the_preset_code_and_the_first_suffixes(self):
        names = ["Anything", "Kestrel Bank Cheque", "Kestrel Bank Savings", "Kestrel Bank Term", "Bob", "bob"]
        self.assertEqual(self.codes(names, first="BankAcct"),
                         ["BankAcct", "Kestrel Ba", "Kestrel B1", "Kestrel B2", "Bob", "bob"])

    def test_two_digits(self):
        codes = self.codes([f"Kestrel Bank {number}" for number in range(13)])
        self.assertEqual(codes[9:], ["Kestrel B9", "Kestrel 10", "Kestrel 11", "Kestrel 12"])

    def test_short_names_grow(self):
        self.assertEqual(self.codes(["Bo", "Bo", "Bo"]), ["Bo", "Bo1", "Bo2"])

    def test_blanks_count_while_comparing(self):
        self.assertEqual(self.codes(["ABCDEFGHI", "ABCDEFGHI Z"]), ["ABCDEFGHI", "ABCDEFGHI"])

    def test_the_last_of_one_name_wins(self):
        book = CodeBook("name", 20)
        book.records = [Named("a", "1"), Named("A", "2"), Named("a", "3")]
        self.assertEqual((book.code_of("a"), book.code_of("A"), book.code_of("b")), ("3", "2", ""))


class RentExamples(unittest.TestCase):
    def periods(self, start, today, rent="1000", end=NO_END, frequency="Month", number=1, month_day=1):
        terms = RentTerms(parse_iso(start), end, Decimal(rent), frequency, number, month_day)
        return [(period.first.iso(), period.last.iso(), currency_text(period.rent))
                for period in rent_periods(terms, parse_iso(today))]

    def test_a_start_within_the_month(self):
        self.assertEqual(self.periods("2026-03-15", "2026-06-10"), [
            ("2026-03-15", "2026-03-31", "548.39"), ("2026-04-01", "2026-04-30", "1000"),
            ("2026-05-01", "2026-05-31", "1000"), ("2026-06-01", "2026-06-30", "1000")])

    def test_a_start_before_the_due_day(self):
        self.assertEqual(self.periods("2026-03-10", "2026-03-25", month_day=20), [
            ("2026-03-10", "2026-03-19", "357.14"), ("2026-03-20", "2026-04-19", "1000")])

    def test_the_thirty_first_keeps_splitting(self):
        self.assertEqual(self.periods("2026-01-31", "2026-05-02", month_day=31), [
            ("2026-01-31", "2026-02-27", "1000"), ("2026-02-28", "2026-03-02", "107.14"),
            ("2026-03-03", "2026-03-30", "903.23"), ("2026-03-31", "2026-04-29", "1000"),
            ("2026-04-30", "2026-04-30", "33.33"), ("2026-05-01", "2026-05-30", "967.74")])

    def test_a_period_lasts_at_least_a_day(self):
        self.assertEqual(self.periods("2026-01-31", "2026-01-31")[0][:2], ("2026-01-31", "2026-01-31"))
        days = self.periods("2026-03-01", "2026-03-05", month_day=-32768)
        self.assertEqual([first for first, _, _ in days],
                         ["2026-03-01", "2026-03-02", "2026-03-03", "2026-03-04", "2026-03-05"])

    def test_weeks(self):
        weeks = {"rent": "250", "frequency": "Week"}
        self.assertEqual(self.periods("2026-11-01", "2026-11-15", number=2, **weeks), [
            ("2026-11-01", "2026-11-14", "250"), ("2026-11-15", "2026-11-28", "250")])
        single_weeks = self.periods("2026-11-01", "2026-11-15", **weeks)
        self.assertEqual(single_weeks[-1], ("2026-11-15", "2026-11-21", "250"))
        self.assertEqual(len(single_weeks), 3)

    def test_the_last_period_is_whole(self):
        periods = self.periods("2026-01-05", "2026-12-01", rent="500", end=Day(2026, 3, 10), month_day=5)
        self.assertEqual(len(periods), 3)
        self.assertEqual(periods[-1], ("2026-03-05", "2026-04-04", "500"))

    def test_one_period_is_forced(self):
        self.assertEqual(len(self.periods("2027-01-01", "2026-01-01")), 1)
        self.assertEqual(len(self.periods("2026-01-01", "2026-06-01", end=Day(2025, 1, 1))), 1)
        self.assertEqual(len(self.periods("2026-01-01", "2026-01-01")), 1)

    def test_other_months_and_years_split_nothing(self):
        self.assertEqual(self.periods("2026-01-15", "2026-03-15", number=2), [
            ("2026-01-15", "2026-03-14", "1000"), ("2026-03-15", "2026-05-14", "1000")])
        self.assertEqual(self.periods("2024-02-29", "2025-03-01", frequency="Year"), [
            ("2024-02-29", "2025-02-27", "1000"), ("2025-02-28", "2026-02-27", "1000")])

    def test_ties_go_to_the_even_cent(self):
        halves = rent_split(Day(2026, 4, 1), Day(2026, 4, 30), Day(2026, 4, 15), Decimal("10.25"))
        self.assertEqual(halves, (Decimal("5.12"), Decimal("5.13")))

    def test_a_split_that_currency_cannot_hold_leaves_the_full_rent(self):
        for rent in ("1000000000000", "872910000000"):
            self.assertEqual(self.periods("2026-01-01", "2026-01-01", rent=rent, month_day=32767),
                             [("2026-01-01", "2115-09-17", rent)])


def _tables():
    def table(*columns):
        return Table([ColumnType(*column) for column in columns])

    text, day, number = ("TEXT", 50), ("DATETIME",), ("DOUBLE",)
    names = ("notes mortgage disbursement workorder contractor recon auto_fee autopayment autorevenue "
             "budget budgetproperty budgetvalue chattel custom_fields extra_fees insp_room_attr insp_rooms "
             "insp_schedule mileage pictures property_rooms rent_periods_charges rentchanges split_charges "
             "woquote").split()
    tables = {name: table(("contractornumber", "LONG"), ("name", *text)) for name in names}
    tables["glcodes"] = table(("gl_code", "TEXT", 10), ("description", *text), ("type", "SHORT"),
                              ("taxable_yn", "BOOLEAN"), ("bankbalance", *number), ("balancedate", *day),
                              ("picture", "LONGBINARY"))
    tables["owner"] = table(("code", "TEXT", 10), ("name", *text), ("fee_percent", *number))
    tables["property"] = table(
        ("code", "TEXT", 20), ("address1", "TEXT", 30), ("address2", *text), ("address3", *text),
        ("default_gl", "TEXT", 30), ("ownercode", "TEXT", 10), ("type", "SHORT"),
        ("parent_property", "TEXT", 20), ("depn_rate", "SHORT"), ("depn_method", *text),
        ("property_type", *text), ("vacancy_status", "SHORT"))
    tables["tenancy"] = table(
        ("current rent", *number), ("bond", *number), ("when started", *day), ("when ended", *day),
        ("property code", "TEXT", 20), ("reference", "TEXT", 20), ("name", *text), ("insp_number", "SHORT"),
        ("insp_every", *text), ("every_amt", "SHORT"), ("every_freq", *text), ("rentreviewdate", *day),
        ("water_meter", "SHORT"), ("monthly_day", "SHORT"))
    tables["tenant_bond"] = table(("tenant_code", "TEXT", 20), ("date", *day), ("amount", *number),
                                  ("reason", *text))
    tables["rent_periods"] = table(
        ("tenant_code", "TEXT", 20), ("period_from", *day), ("period_to", *day), ("rent_due", "CURRENCY"),
        ("extra_charges", "CURRENCY"), ("paid", *number), ("extra_charges_paid", *number))
    tables["revenues"] = table(
        ("date", *day), ("property code", "TEXT", 20), ("amount", *number), ("revenue group", *text),
        ("description", *text), ("your reference", *text), ("rent_weeks", *number), ("paid_to", *day),
        ("counter_gl", "TEXT", 30), ("tenant_code", "TEXT", 20), ("recon_id", "LONG"), ("tax", "CURRENCY"),
        ("disburse_id", "LONG"))
    tables["expenses"] = table(("date", *day), ("disburse_id", "LONG"))
    tables["options"] = table(("taxincome", "BOOLEAN"), ("taxincrate", *number), ("Rent_Group", *text))
    tables["options"].rows.append({"taxincome": -1, "taxincrate": 15.0, "rent_group": "Rent"})
    return tables


class ImportExamples(unittest.TestCase):
    today = Day(2026, 11, 15)

    def outcome(self, tenant=None, tables=None, **members):
        portfolio = {
            "UserType": "Manager",
            "Properties": [{"Address1": "12 Main Road"}],
            "Tenants": [{"Name": "Ada", "PropertyName": "12 Main Road", "StartDate": "2026-11-01",
                         "CurrentRent": 250, "Setbalance": True, **(tenant or {})}],
            **members}
        return import_portfolio(tables or _tables(), portfolio, self.today)

    def receipts_and_paid(self, balance):
        """The receipts by their dates, and what the periods hold as paid, both newest first."""
        tables = self.outcome({"BalanceAmount": balance}).tables
        receipts = {row[0][-2:]: row[2] for row in tables["revenues"]}
        return receipts, [row[5] for row in reversed(tables["rent_periods"])]

    def test_balances(self):
        examples = {
            0: ({"15": 250, "08": 250, "01": 250}, [0, 0, 0]),
            300: ({"08": 200, "01": 250}, [0, -50, 0]),
            250: ({"15": 0, "08": 250, "01": 250}, [-250, 0, 0]),
            -100: ({"15": 350, "08": 250, "01": 250}, [100, 0, 0]),
            1000: ({}, [0, 0, 0]),
        }
        for balance, expected in examples.items():
            with self.subTest(balance):
                self.assertEqual(self.receipts_and_paid(balance), expected)

    def test_the_tax_of_the_whole_rent_is_on_every_receipt(self):
        outcome = self.outcome({"BalanceAmount": 300})
        self.assertEqual([row[11] for row in outcome.tables["revenues"]], [32.6087, 32.6087])

    def test_no_balance_means_no_receipts(self):
        outcome = self.outcome({"Setbalance": False, "BalanceAmount": 300})
        self.assertEqual(outcome.tables["revenues"], [])
        self.assertEqual([row[5] for row in outcome.tables["rent_periods"]], [0, 0, 0])
        self.assertEqual(outcome.exit_status, 0)

    def test_a_building_with_units(self):
        outcome = self.outcome({"PropertyName": " 2/12 Main Road"}, Properties=[
            {"Address1": "12 Main Road", "UnitNumbers": "1,, 2,"}])
        rows = [(row[0], row[1], row[6], row[7], row[11]) for row in outcome.tables["property"]]
        self.assertEqual(rows, [("12 Main Road", "12 Main Road", 2, "12 Main Road", 1),
                                ("1/12 Main Road", "1/12 Main Road", 1, "12 Main Road", 1),
                                ("2/12 Main Road", " 2/12 Main Road", 1, "12 Main Road", 0)])

    def test_the_rent_review_is_the_next_anniversary(self):
        starts = {"2022-09-15": "2027-09-15", "2026-12-01": "2027-12-01", "2024-02-29": "2027-02-28",
                  "2025-11-15": "2026-11-15"}
        for start, review in starts.items():
            with self.subTest(start):
                outcome = self.outcome({"StartDate": start, "Setbalance": False})
                self.assertEqual(outcome.tables["tenancy"][0][11], review)

    def test_only_a_bond_above_zero_is_written(self):
        self.assertEqual(self.outcome({"BondHeld": -5}).tables["tenant_bond"], [])
        self.assertEqual(self.outcome({"BondHeld": 12.5}).tables["tenant_bond"],
                         [["Ada", "2026-11-15", 12.5, "Opening Balance"]])

    def test_a_stray_apostrophe_costs_bond_and_periods(self):
        outcome = self.outcome({"Name": "O'Brien", "BondHeld": 5, "BalanceAmount": 0})
        self.assertEqual([report.label for report in outcome.reports], ["Execute SQL"] * 5)
        self.assertEqual((outcome.exit_status, outcome.unhandled), (1, None))

    def test_a_balance_without_receipts_ends_the_process(self):
        outcome = self.outcome({"Name": "O'Brien", "BalanceAmount": 5})
        self.assertEqual(outcome.unhandled, "no current record")
        self.assertEqual(len(outcome.tables["tenancy"]), 1)

    def test_the_cut_off_marks_what_came_before(self):
        outcome = self.outcome(LastDisbursement="2026-11-08")
        self.assertEqual([row[12] for row in outcome.tables["revenues"]], [-1, -1, 0])

    def test_the_accounts_that_stand_in(self):
        outcome = self.outcome(BankAccounts=[{"BankAccountName": "Second"}], MainBankAccount=None)
        self.assertEqual({row[8] for row in outcome.tables["revenues"]}, {"Second"})
        outcome = self.outcome(MainBankAccount={"BankAccountName": "First"})
        self.assertEqual({row[8] for row in outcome.tables["revenues"]}, {"BankAcct"})

    def test_a_code_that_is_a_later_accounts_name_is_replaced_once_more(self):
        outcome = self.outcome(
            MainBankAccount=None, Properties=[{"Address1": "12 Main Road", "BankAccount": "Kestrel Bank"}],
            BankAccounts=[{"BankAccountName": "Kestrel Bank"}, {"BankAccountName": "Kestrel Ba"}])
        self.assertEqual({row[8] for row in outcome.tables["revenues"]}, {"Kestrel B1"})
        self.assertEqual(outcome.tables["property"][0][4], "Kestrel Ba")

    def test_a_column_without_a_default_is_told(self):
        outcome = self.outcome()
        self.assertEqual(outcome.other_messages, ["Unknown type 11"])
        self.assertEqual(outcome.tables["glcodes"],
                         [["BankAcct", "Main Bank Account", 3, -1, 0, "2026-11-15", None]])

    def test_a_missing_table_is_told_and_the_run_goes_on(self):
        tables = _tables()
        del tables["notes"]
        outcome = self.outcome(tables=tables)
        self.assertEqual([report.extra for report in outcome.reports], ["delete from notes"])
        self.assertEqual(len(outcome.tables["revenues"]), 3)


if __name__ == "__main__":
    unittest.main()
