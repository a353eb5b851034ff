#include "tools/portfolio/PortfolioReader.h"

#include "records/EntryRules.h"
#include "records/ImportSettings.h"
#include "tools/json/JsonDocument.h"
#include "tools/portfolio/Sections.h"

#include <limits>

namespace tools {

namespace {

constexpr qsizetype MostRecords = std::numeric_limits<qint16>::max();

void ReadUserType(ObjectReader& portfolio, Reading& reading) {
    const std::optional<QString> type = portfolio.Text("UserType");
    reading.isLandlord = type == QLatin1String("Landlord");
    if (type && type->isEmpty()) {
        portfolio.Refuse("UserType", records::EntryMessage::TypeRequired);
    } else if (type && !reading.isLandlord && *type != QLatin1String("Manager")) {
        portfolio.Refuse("UserType", QStringLiteral("Must be \"Landlord\" or \"Manager\""));
    }
    records::ImportSettings& settings = records::CurrentSettings();
    settings.IsLandlord = reading.isLandlord;
    settings.ManagementFee = portfolio.AmountFromZero("ManagementFee").value_or(0);
    settings.LastDisbursement = portfolio.Date("LastDisbursement", platform::NoDate(), NullMeans::Absent)
                                    .value_or(platform::NoDate());
}

void ReadDocument(const JsonValue& document, Faults& faults) {
    if (!MustBeObject(document, QString(), faults)) {
        return;
    }
    ObjectReader portfolio(document, QString(), faults);
    Reading reading{records::TheCollections(), faults, false, {}, {}, {}, {}, {}};
    ReadUserType(portfolio, reading);
    ReadBankAccounts(portfolio, reading);
    ReadOwners(portfolio, reading);
    ReadProperties(portfolio, reading);
    ReadTenants(portfolio, reading);
    portfolio.RefuseUnknownMembers();
}

}  // namespace

bool FitsACollection(qsizetype count) {
    return count <= MostRecords;
}

void RefuseTooManyRecords(ObjectReader& portfolio, const char* section, qsizetype count, Faults& faults) {
    if (!FitsACollection(count)) {
        faults.push_back({portfolio.PointerTo(section),
                          QStringLiteral("At most %1 records are allowed").arg(MostRecords),
                          QString::number(count)});
    }
}

void RefuseFaults(ObjectReader& record, const records::EntryFaults& faults) {
    for (const records::EntryFault& fault : faults) {
        if (!record.IsRefused(fault.Field)) {
            record.Refuse(fault.Field, fault.Message);
        }
    }
}

void EnterName(ObjectReader& record, const char* member, const std::optional<QString>& name, NameBook& book) {
    if (!name) {
        book.MissOne();
        return;
    }
    if (!name->isEmpty() && book.Clashes(*name)) {
        record.Refuse(member, records::EntryMessage::NameExists);
    }
    book.Add(*name);
}

Faults ReadPortfolio(QByteArray bytes) {
    Faults faults;
    records::CreateCollections(records::TheCollections());
    if (const std::optional<JsonValue> document = ParseJson(std::move(bytes), faults)) {
        ReadDocument(*document, faults);
    }
    if (!faults.empty()) {
        records::CreateCollections(records::TheCollections());
        records::CurrentSettings() = records::ImportSettings();
    }
    return faults;
}

Faults ReadPortfolioFile(const QString& path) {
    Faults faults;
    std::optional<QByteArray> bytes = ReadWholeFile(path, faults);
    return bytes ? ReadPortfolio(*std::move(bytes)) : faults;
}

}  // namespace tools
