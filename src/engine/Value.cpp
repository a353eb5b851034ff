#include "engine/Value.h"

#include "platform/Failure.h"

namespace engine {

namespace {

[[noreturn]] void RaiseNull() {
    throw platform::Failure(platform::FailureNumber::InvalidUseOfNull, QStringLiteral("Invalid use of Null"));
}

[[noreturn]] void RaiseTypeMismatch() {
    throw platform::Failure(platform::FailureNumber::TypeMismatch, QStringLiteral("Type mismatch"));
}

// Chooses the conversion by what the value holds.
template <class... Conversions>
struct Overloaded : Conversions... {
    using Conversions::operator()...;
};
template <class... Conversions>
Overloaded(Conversions...) -> Overloaded<Conversions...>;

// A yes is stored and counted as -1 all over Hearthbook.
constexpr int Yes = -1;

}  // namespace

Value FromDate(QDate date) {
    return QDateTime(date, QTime(0, 0), Qt::UTC);
}

double ToDouble(const Value& value) {
    return std::visit(Overloaded{
                          [](const Null&) -> double { RaiseNull(); },
                          [](bool yes) -> double { return yes ? Yes : 0; },
                          [](qint64 number) { return static_cast<double>(number); },
                          [](double number) { return number; },
                          [](Currency amount) { return amount.ToDouble(); },
                          [](const QString& text) {
                              bool isNumber = false;
                              const double number = text.trimmed().toDouble(&isNumber);
                              if (!isNumber) {
                                  RaiseTypeMismatch();
                              }
                              return number;
                          },
                          [](const auto&) -> double { RaiseTypeMismatch(); },
                      },
                      value);
}

bool ToBoolean(const Value& value) {
    return ToDouble(value) != 0;
}

QDate ToDate(const Value& value) {
    if (IsNull(value)) {
        RaiseNull();
    }
    const auto* date = std::get_if<QDateTime>(&value);
    if (date == nullptr) {
        RaiseTypeMismatch();
    }
    return date->date();
}

QString ToText(const Value& value) {
    return std::visit(Overloaded{
                          [](const Null&) -> QString { RaiseNull(); },
                          [](bool yes) { return QString::number(yes ? Yes : 0); },
                          [](qint64 number) { return QString::number(number); },
                          [](double number) { return QString::number(number, 'g', 15); },
                          [](Currency amount) { return amount.ToText(QStringLiteral(".")); },
                          [](const QDateTime& date) {
                              return date.time() == QTime(0, 0)
                                         ? date.date().toString(Qt::ISODate)
                                         : date.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
                          },
                          [](const QString& text) { return text; },
                          [](const QByteArray&) -> QString { RaiseTypeMismatch(); },
                      },
                      value);
}

}  // namespace engine
