"""The import itself: codes, the wipe, and the rows of the four collections in their order."""

from calendar_rules import add_years, is_no_date, no_date, parse_iso
from codes import CodeBook
from balance import insert_balance_transactions
from money import CurrencyOverflow, currency_of_double, currency_text, double_text
from record_access import UnhandledFailure
from records import bank_accounts_of, owners_of, properties_of, tenants_of
from rent import RentTerms, rent_periods

_WIPE = (
    "delete from notes",
    "delete from mortgage",
    "delete from disbursement",
    "delete from workorder",
    "delete from GLCODES where gl_code = 'Payee1' and description = 'Fence Repairs Ltd'",
    "delete from contractor where contractornumber = 1000 and name = 'Freds Gardening'",
    "delete from contractor where contractornumber = 1001 and name = 'Toms Tree Services'",
    "delete from recon",
    "delete from property",
    "delete from tenancy",
    "delete from owner",
    "delete from auto_fee",
    "delete from autopayment",
    "delete from autorevenue",
    "delete from budget",
    "delete from budgetproperty",
    "delete from budgetvalue",
    "delete from chattel",
    "delete from custom_fields",
    "delete from expenses",
    "delete from extra_fees",
    "delete from budgetproperty",
    "delete from glcodes where type = 3",
    "delete from insp_room_attr",
    "delete from insp_rooms",
    "delete from insp_schedule",
    "delete from mileage",
    "delete from pictures",
    "delete from property_rooms",
    "delete from rent_periods",
    "delete from rent_periods_charges",
    "delete from rentchanges",
    "delete from revenues",
    "delete from split_charges",
    "delete from tenant_bond",
    "delete from woquote",
    "delete from workorder",
)
_PERIOD_COLUMNS = "tenant_code, period_from,period_to,rent_due,extra_charges,paid,extra_charges_paid"
_ADDRESS_COLUMN_LENGTH = 30


class ImportRun:
    """One run of a portfolio on the tables behind `access`."""

    def __init__(self, access, portfolio):
        self._access = access
        self._today = access.today
        self._fee = float(portfolio.get("ManagementFee", 0))
        cut_off = portfolio.get("LastDisbursement")
        self._last_disbursement = no_date(self._today) if cut_off is None else parse_iso(cut_off)
        self._accounts = CodeBook("name", 10)
        self._owners = CodeBook("name", 10)
        self._properties = CodeBook("address1", 20)
        self._tenants = CodeBook("name", 20, keeps_codes=False)
        self._accounts.records = bank_accounts_of(portfolio, self._today)
        self._owners.records = owners_of(portfolio)
        self._properties.records = properties_of(portfolio)
        self._tenants.records = tenants_of(portfolio, self._today)

    def run(self):
        for book in (self._accounts, self._owners, self._properties, self._tenants):
            book.generate_codes()
        for statement in _WIPE:
            self._access.execute(statement)
        self._insert_accounts()
        self._insert_owners()
        self._insert_properties()
        self._insert_tenants()
        self._set_disbursement_cut_off()

    def _insert_accounts(self):
        ledger = self._access.create_set("select * from glcodes")
        for account in self._accounts.records:
            self._access.insert_row(ledger, {
                "type": 3, "taxable_yn": True, "gl_code": account.code, "description": account.name,
                "bankbalance": account.balance, "balancedate": account.balance_date})

    def _insert_owners(self):
        rows = self._access.create_set("select * from owner")
        for owner in self._owners.records:
            if owner.code:
                self._access.insert_row(rows, {
                    "code": owner.code, "name": owner.name, "fee_percent": self._fee})

    def _insert_properties(self):
        rows = self._access.create_set("select * from property")
        occupied = {tenant.property_name for tenant in self._tenants.records}
        for place in self._properties.records:
            self._access.insert_row(rows, {
                "code": place.code,
                "address1": place.address1[:_ADDRESS_COLUMN_LENGTH],
                "address2": place.address2,
                "address3": place.address3,
                "default_gl": self._accounts.code_of(place.bank_account),
                "ownercode": self._owners.code_of(place.owner),
                "type": place.kind,
                "parent_property": self._properties.code_of(place.parent),
                "depn_rate": 4,
                "depn_method": "DV",
                "property_type": "House",
                "vacancy_status": 0 if place.address1 in occupied else 1})

    def _insert_tenants(self):
        rows = self._access.create_set("select * from tenancy")
        for tenant in self._tenants.records:
            property_code = self._properties.code_of(tenant.property_name)
            self._access.insert_row(rows, {
                "current rent": tenant.rent,
                "bond": tenant.bond,
                "when started": tenant.start,
                "when ended": tenant.end,
                "property code": property_code,
                "reference": tenant.code,
                "name": tenant.name,
                "insp_number": 1,
                "insp_every": "Never",
                "every_amt": tenant.number,
                "every_freq": tenant.frequency,
                "rentreviewdate": self._rent_review(tenant.start),
                "water_meter": 0,
                "monthly_day": tenant.month_day})
            self._insert_bond(tenant)
            self._insert_periods(tenant)
            bank_code = self._bank_code(tenant.property_name) or self._accounts.records[0].code
            insert_balance_transactions(self._access, tenant, property_code, bank_code)

    def _rent_review(self, start):
        review = add_years(start, 1)
        while review < self._today:
            review = add_years(review, 1)
        return review

    def _insert_bond(self, tenant):
        if tenant.bond > 0:
            self._access.execute(
                f"insert into tenant_bond(tenant_code, [date], amount, reason) values ('{tenant.code}', "
                f"{self._today.as_literal()}, {double_text(tenant.bond)}, 'Opening Balance')")

    def _insert_periods(self, tenant):
        try:
            rent = currency_of_double(tenant.rent)
        except CurrencyOverflow as failure:
            raise UnhandledFailure("the rent is too large") from failure
        terms = RentTerms(tenant.start, tenant.end, rent, tenant.frequency, tenant.number, tenant.month_day)
        for period in rent_periods(terms, self._today):
            self._access.execute(
                f"insert into rent_periods ({_PERIOD_COLUMNS}) values('{tenant.code}',"
                f"{period.first.as_literal()},{period.last.as_literal()},{currency_text(period.rent)},0,0,0)")

    def _bank_code(self, property_name):
        """The account's code, or the account's name where there is no such account."""
        code = ""
        for place in self._properties.records:
            if place.address1 == property_name:
                code = place.bank_account
                for account in self._accounts.records:
                    if account.name == code:
                        code = account.code
        return code

    def _set_disbursement_cut_off(self):
        if is_no_date(self._last_disbursement):
            return
        date = self._last_disbursement.as_literal()
        self._access.execute(f"update expenses set disburse_id = -1 where [date] <= {date}")
        self._access.execute(f"update revenues set disburse_id = -1 where [date] <= {date}")
