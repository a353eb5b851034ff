"""Receipts for a tenant's rent periods, taken back from the newest until the stated balance holds."""

from money import CurrencyOverflow, currency_of_double, currency_text
from record_access import UnhandledFailure, get_field, set_field

_RECEIPT_COLUMNS = ("[date], [property code], amount, [revenue group], description, [your reference],"
                    "rent_weeks, paid_to, counter_gl, tenant_code, recon_id, tax, disburse_id")


def _tax_amount(options, rent):
    if not get_field(options, "taxincome"):
        return currency_of_double(0.0)
    rate = get_field(options, "taxincrate")
    if rate is None:
        raise UnhandledFailure("the rate of the tax is missing")
    try:
        return currency_of_double(rent - rent / (1.0 + rate / 100.0))
    except CurrencyOverflow as failure:
        raise UnhandledFailure("the tax is too large") from failure


def insert_balance_transactions(access, tenant, property_code, bank_code):
    if not tenant.sets_balance:
        return
    options = access.create_set("select * from options")
    tax = _tax_amount(options, tenant.rent)
    group = get_field(options, "rent_group")
    access.execute(
        f"insert into revenues({_RECEIPT_COLUMNS}) select period_from, '{property_code}', rent_due,'{group}',"
        f" '', '', 0, #01/01/1900#, '{bank_code}', '{tenant.code}', 0, {currency_text(tax)}, 0"
        f" from rent_periods where tenant_code = '{tenant.code}'")
    if tenant.balance == 0:
        return
    receipts = access.create_set(
        f"select * from revenues where [property code] = '{property_code}' and tenant_code = '{tenant.code}'"
        f" and [revenue group] = '{group}' order by date desc")
    periods = access.create_set(
        f"select * from rent_periods where tenant_code = '{tenant.code}' order by period_from desc")
    _walk(access, receipts, periods, tenant.balance)


def _walk(access, receipts, periods, balance):
    while balance != 0:
        amount = get_field(receipts, "amount")
        if amount < balance:
            balance -= amount
            receipts.delete()
            access.edit(periods)
            set_field(periods, "paid", 0)
            access.update(periods)
            access.move_next(periods)
            access.move_next(receipts)
            if access.is_at_end(receipts):
                return
        else:
            access.edit(receipts)
            set_field(receipts, "amount", amount - balance)
            access.update(receipts)
            access.edit(periods)
            set_field(periods, "paid", get_field(periods, "paid") - balance)
            access.update(periods)
            balance = 0
