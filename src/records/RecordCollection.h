#pragma once

#include "platform/Failure.h"
#include "platform/MessageBox.h"
#include "records/Codes.h"
#include "records/EntryMessages.h"

#include <QHash>
#include <QString>

#include <functional>
#include <limits>
#include <memory>
#include <vector>

namespace records {

/// Told after each record that has been written to the database.
using RecordWritten = std::function<void()>;

/// Names that count as the same when two records must not share one: letter case plays no part, blanks do.
inline QString NameKey(const QString& name) {
    return name.toLower();
}

/// The pattern of the four collections: an ordered list of shared records, addressed by place from 1. A
/// caller that keeps a record sees later changes of it. Names and codes are plain fields, not keys.
///
/// Each collection states what is its own in its rules:
///   Record        the record class
///   Name          the field that is the record's name throughout the system
///   CodeLimit     how many characters Hearthbook's key column takes
///   KeepsCodes    whether a record that already has a code keeps it
///   FoundByName   whether other records find the code through the name
///
/// Places are counted in 16 bits, as Hearthbook counts its records: everything that walks the whole list
/// raises platform failure 6 if there are more than 32767 records.
template <typename Rules>
class RecordCollection {
public:
    using Record = typename Rules::Record;
    using Reference = std::shared_ptr<Record>;
    using List = std::vector<Reference>;

    /// Appends the record, whatever its name.
    void Add(Reference Item) { records_.push_back(std::move(Item)); }

    /// The record at a place from 1 to Count; platform failure 9 for any other.
    Reference Item(int vntIndexKey) const { return records_[IndexOf(vntIndexKey)]; }

    int Count() const { return static_cast<int>(records_.size()); }

    /// Drops the record at a place, platform failure 9 for a bad one; later records move down. Records that
    /// refer to it by name keep that name.
    void Remove(int vntIndexKey) {
        records_.erase(records_.begin() + static_cast<std::ptrdiff_t>(IndexOf(vntIndexKey)));
    }

    /// What the record is called all over the system.
    static const QString& NameOf(const Record& record) { return record.*Rules::Name; }

    /// The enumeration in the order of the places (NewEnum).
    auto begin() const { return records_.begin(); }
    auto end() const { return records_.end(); }

    /// The records for a walk from place 1 to Count.
    const List& Walk() const {
        if (records_.size() > static_cast<std::size_t>(std::numeric_limits<qint16>::max())) {
            platform::RaiseOverflow();
        }
        return records_;
    }

    /// True, after a message to the user, if a record other than Original (null for a new one) bears the
    /// name.
    bool NameExists(const QString& sName, const Reference& Original) const {
        const QString key = NameKey(sName);
        bool exists = false;
        for (const Reference& record : Walk()) {
            exists = exists || (record != Original && NameKey(NameOf(*record)) == key);
        }
        if (exists) {
            platform::ShowMessageBox(EntryMessage::NameExists);
        }
        return exists;
    }

    /// Gives the records their codes. Only records at earlier places can clash with one.
    void GenerateCodes() {
        const List& records = Walk();
        CodeMaker codes(Rules::CodeLimit, Count());
        for (const Reference& record : records) {
            if (!Rules::KeepsCodes || record->Code.isEmpty()) {
                record->Code = codes.MakeUniqueCode(NameOf(*record));
            }
            codes.Take(record->Code);
        }
    }

    /// All codes by name, compared exactly. Where records share a name, the last one counts. For callers that
    /// look up many names: GetCode walks the list at every call.
    QHash<QString, QString> CodesByName() const requires(Rules::FoundByName) {
        QHash<QString, QString> codes;
        codes.reserve(Count());
        for (const Reference& record : Walk()) {
            codes.insert(NameOf(*record), record->Code);
        }
        return codes;
    }

    /// The code of the record of this name, empty if there is none.
    QString GetCode(const QString& Name) const requires(Rules::FoundByName) {
        return CodesByName().value(Name);
    }

private:
    std::size_t IndexOf(int place) const {
        if (place < 1 || place > Count()) {
            throw platform::Failure(platform::FailureNumber::SubscriptOutOfRange,
                                    QStringLiteral("Subscript out of range"));
        }
        return static_cast<std::size_t>(place - 1);
    }

    List records_;
};

/// Lets a rename follow: wherever the field of a record refers to the old name, it takes the new one. Letter
/// case counts here, since the field was copied from the name itself.
template <typename Collection, typename Record>
void RenameReferences(const Collection& collection, QString Record::*field, const QString& sOriginal,
                      const QString& sNew) {
    for (const auto& record : collection.Walk()) {
        if ((*record).*field == sOriginal) {
            (*record).*field = sNew;
        }
    }
}

}  // namespace records
