#pragma once

#include "tools/json/Fault.h"
#include "tools/portfolio/PortfolioReader.h"

#include <QByteArray>

#include <ostream>

namespace tools {

inline void PrintTo(const Fault& fault, std::ostream* out) {
    *out << FaultLine(QStringLiteral("portfolio"), fault).toStdString();
}

}  // namespace tools

/// A portfolio without faults, whose members tests replace one by one. Apostrophes stand for quotation marks,
/// so that the tests can be read.
struct PortfolioText {
    QByteArray userType = "'UserType': 'Manager'";
    QByteArray accounts = "'BankAccounts': [{'BankAccountName': 'Trust Account'}]";
    QByteArray owners = "'Owners': [{'OwnersName': 'Smith'}]";
    QByteArray properties =
        "'Properties': [{'Address1': '12 Main Road'}, {'Address1': '9 Mill Court', 'UnitNumbers': '1,2'}]";
    QByteArray tenants =
        "'Tenants': [{'Name': 'Ada', 'PropertyName': '12 Main Road', 'StartDate': '2025-03-15'}]";

    QByteArray Json() const {
        QByteArray json =
            '{' + QByteArrayList{userType, accounts, owners, properties, tenants}.join(",\n") + '}';
        return json.replace('\'', '"');
    }

    tools::Faults Read() const { return tools::ReadPortfolio(Json()); }
};

/// A portfolio with one tenant, who has these members besides a name, a property and a start date.
inline PortfolioText WithTenant(const QByteArray& members) {
    PortfolioText portfolio;
    portfolio.tenants =
        "'Tenants': [{'Name': 'Ada', 'PropertyName': '12 Main Road', 'StartDate': '2025-03-15', " + members +
        "}]";
    return portfolio;
}

inline tools::Fault MakeFault(const char* pointer, const char* rule, const char* found) {
    return {QString::fromUtf8(pointer), QString::fromUtf8(rule), QString::fromUtf8(found)};
}
