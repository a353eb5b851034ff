#pragma once

#include <QString>

#include <exception>
#include <optional>

namespace platform {

/// Numbers of the failures that our own code raises. They are the ones that the support people of Hearthbook
/// know from its own messages.
namespace FailureNumber {
inline constexpr int Overflow = 6;  ///< A counter or a conversion left its 16 bits.
inline constexpr int OutOfMemory = 7;
inline constexpr int SubscriptOutOfRange = 9;   ///< A place that a list doesn't have.
inline constexpr int DivisionByZero = 11;       ///< Nothing to divide by: a size, or a count of days.
inline constexpr int TypeMismatch = 13;         ///< A text that isn't the number it should be.
inline constexpr int InternalError = 51;        ///< Anything that has no number of its own.
inline constexpr int FileNotFound = 53;         ///< A program or file that is needed is not there.
inline constexpr int ObjectNotSet = 91;         ///< A row set that could not be opened was used.
inline constexpr int InvalidUseOfNull = 94;     ///< A null where a value is needed.
inline constexpr int InvalidProcedureCall = 5;  ///< An argument that the operation can't take.
}  // namespace FailureNumber

/// A failure as it reaches the message box and the error log: a number, who raised it, and a sentence.
/// The engine's failures (engine::Error) are of this type too.
class Failure : public std::exception {
public:
    Failure(int number, QString source, QString description);
    /// A failure raised by the wizard itself.
    Failure(int number, const QString& description);

    int Number() const { return number_; }
    const QString& Source() const { return source_; }
    const QString& Description() const { return description_; }
    const char* what() const noexcept override { return what_.constData(); }

private:
    int number_;
    QString source_;
    QString description_;
    QByteArray what_;
};

[[noreturn]] void RaiseOverflow();
[[noreturn]] void RaiseDivisionByZero();
[[noreturn]] void RaiseObjectNotSet();

/// The failure being handled right now (std::current_exception), translated if it is not one of ours.
/// Empty outside of a handler.
std::optional<Failure> CurrentFailure();

}  // namespace platform
