#pragma once

#include "tools/json/Fault.h"
#include "tools/json/JsonValue.h"

#include <QDate>
#include <QSet>
#include <QString>

#include <limits>
#include <optional>

namespace tools {

enum class NullMeans { Fault, Absent };

/// Reads the members of one object, with a fault for each that is not as it should be. A member of the wrong
/// type gives nothing, an absent one its default, so that the caller can tell whether a further rule makes
/// sense.
class ObjectReader {
public:
    ObjectReader(const JsonValue& object, QString pointer, Faults& faults)
        : object_(object), pointer_(std::move(pointer)), faults_(faults) {}

    std::optional<QString> Text(const char* name, int limit = std::numeric_limits<int>::max());
    /// Amounts and fees: with more decimals than currency has they would be rounded in some places and not in
    /// others.
    std::optional<double> Amount(const char* name);
    /// As Amount, for text boxes that take no minus sign.
    std::optional<double> AmountFromZero(const char* name);
    std::optional<qint16> Integer(const char* name, qint16 lowest, qint16 absent);
    std::optional<bool> Boolean(const char* name);
    std::optional<QDate> Date(const char* name, QDate absent, NullMeans nullMeans);

    /// The member's value whatever it is; null if it is absent.
    const JsonValue* Value(const char* name);
    /// The member's elements, empty if it is absent; null, with a fault, if it is no array.
    const std::vector<JsonValue>* Array(const char* name);

    /// A fault about a member that has been read.
    void Refuse(const char* name, const QString& rule);

    bool IsRefused(const char* name) const { return refused_.contains(QLatin1String(name)); }

    /// To be called when all has been read: any other member is a fault.
    void RefuseUnknownMembers();

    QString PointerTo(const char* name) const { return MemberPointer(pointer_, QLatin1String(name)); }

private:
    std::nullopt_t WrongType(const char* name, const QString& rule);

    const JsonValue& object_;
    QString pointer_;
    Faults& faults_;
    QSet<QString> known_;
    QSet<QString> refused_;
};

/// Whether the value is an object, with a fault if it isn't.
bool MustBeObject(const JsonValue& value, const QString& pointer, Faults& faults);

}  // namespace tools
