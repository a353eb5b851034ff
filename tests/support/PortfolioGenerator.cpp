#include "support/PortfolioGenerator.h"

namespace {

QByteArray TenantName(const PortfolioSize& size, int number) {
    // A step that has no factor in common with any power of two or five visits every number once.
    const int shown = size.mixedOrder ? static_cast<int>(qint64(number) * 7919 % size.tenants) : number;
    return (size.clashingNames ? QByteArray("Tenant of the long common name ").left(25)
                               : QByteArray("Tenant ")) +
           QByteArray::number(shown).rightJustified(5, '0');
}

QByteArray Tenant(const PortfolioSize& size, int number) {
    const bool balance = size.balances && number % 2 == 0;
    const double owed = number % 4 == 0 ? 512.5 : -40;
    return "{\"Name\":\"" + TenantName(size, number) + "\",\"PropertyName\":\"" +
           QByteArray::number(number / 10 + 1) + " Market Road\",\"StartDate\":\"" +
           size.start.addDays(number % 7).toString(Qt::ISODate).toLatin1() +
           "\",\"CurrentRent\":" + QByteArray::number(200 + number % 300) + ".5,\"RentFrequency\":\"" +
           size.frequency + "\",\"BondHeld\":" + QByteArray::number(number % 3 * 400) +
           (balance ? ",\"Setbalance\":true,\"BalanceAmount\":" + QByteArray::number(owed) : QByteArray()) +
           "}";
}

}  // namespace

QByteArray MakePortfolio(const PortfolioSize& size) {
    QByteArray text =
        "{\"UserType\":\"Manager\",\"ManagementFee\":8.5,\"LastDisbursement\":\"2026-10-31\","
        "\"BankAccounts\":[{\"BankAccountName\":\"Trust Account\"}],"
        "\"Owners\":[{\"OwnersName\":\"Harbour Trust\"}],\"Properties\":[";
    const int properties = (size.tenants + 9) / 10;
    for (int number = 0; number < properties; ++number) {
        text += (number > 0 ? "," : "") + QByteArray("{\"Address1\":\"") + QByteArray::number(number + 1) +
                " Market Road\",\"Owner\":\"Harbour Trust\",\"BankAccount\":\"Trust Account\"}";
    }
    text += "],\"Tenants\":[";
    for (int number = 0; number < size.tenants; ++number) {
        text += (number > 0 ? "," : "") + Tenant(size, number);
    }
    return text + "]}";
}
