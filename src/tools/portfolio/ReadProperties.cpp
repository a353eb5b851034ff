#include "records/EntryRules.h"
#include "tools/portfolio/Sections.h"

namespace tools {

namespace {

using records::EntryLimit::Address;

/// Lists offer existing records only, but may be left without a choice.
void RefuseUnknownReference(ObjectReader& record, const char* member, const std::optional<QString>& name,
                            const NameBook& book, const QString& rule) {
    if (name && !name->isEmpty() && !book.MayHold(*name)) {
        record.Refuse(member, rule);
    }
}

records::PropertyEntry ReadPropertyEntry(ObjectReader& property, Reading& reading) {
    records::PropertyEntry entry;
    const std::optional<QString> address = property.Text("Address1", Address);
    entry.Address1 = address.value_or(QString());
    entry.Address2 = property.Text("Address2", Address).value_or(QString());
    entry.Address3 = property.Text("Address3", Address).value_or(QString());
    const std::optional<QString> owner = property.Text("Owner");
    const std::optional<QString> account = property.Text("BankAccount");
    const std::optional<QString> units = property.Text("UnitNumbers");
    property.RefuseUnknownMembers();
    RefuseFaults(property, records::FaultsOf(entry));
    EnterName(property, "Address1", address, reading.properties);
    RefuseUnknownReference(property, "Owner", owner, reading.owners,
                           QStringLiteral("No owner has this name"));
    RefuseUnknownReference(property, "BankAccount", account, reading.accounts,
                           QStringLiteral("No bank account has this name"));
    if (!address || !units) {
        reading.lettable.MissOne();
        reading.properties.MissOne();
    }
    entry.Owner = owner.value_or(QString());
    entry.BankAccount = account.value_or(QString());
    entry.UnitNumbers = units.value_or(QString());
    return entry;
}

/// Adds the property with its units, if the collection can take them, and returns how many records that
/// makes.
qsizetype AddProperty(const records::PropertyEntry& entry, qsizetype countBefore, Reading& reading) {
    const qsizetype added = 1 + records::UnitsOf(entry.UnitNumbers).size();
    if (!FitsACollection(countBefore + added)) {
        reading.lettable.MissOne();
        reading.properties.MissOne();
        return added;
    }
    records::Properties& properties = reading.collections.Properties;
    const int before = properties.Count();
    records::AddPropertyWithUnits(properties, entry);
    for (int place = before + 1; place <= properties.Count(); ++place) {
        const std::shared_ptr<records::Property> property = properties.Item(place);
        reading.properties.Add(property->Address1);
        if (records::CanBeLet(*property)) {
            reading.lettable.Add(property->Address1);
        }
    }
    return added;
}

}  // namespace

void ReadProperties(ObjectReader& portfolio, Reading& reading) {
    const std::vector<JsonValue>* values = portfolio.Array("Properties");
    if (!values) {
        reading.properties.MissOne();
        reading.lettable.MissOne();
        return;
    }
    qsizetype count = 0;
    for (std::size_t place = 0; place < values->size(); ++place) {
        const QString pointer =
            ElementPointer(portfolio.PointerTo("Properties"), static_cast<qsizetype>(place));
        if (!MustBeObject((*values)[place], pointer, reading.faults)) {
            reading.properties.MissOne();
            reading.lettable.MissOne();
            continue;
        }
        ObjectReader property((*values)[place], pointer, reading.faults);
        count += AddProperty(ReadPropertyEntry(property, reading), count, reading);
    }
    if (values->empty()) {
        portfolio.Refuse("Properties", records::EntryMessage::NoProperties);
    }
    RefuseTooManyRecords(portfolio, "Properties", count, reading.faults);
}

}  // namespace tools
