#include "platform/Failure.h"

#include "platform/MessageBox.h"

#include <new>

namespace platform {

Failure::Failure(int number, QString source, QString description)
    : number_(number),
      source_(std::move(source)),
      description_(std::move(description)),
      what_(QByteArray::number(number_) + ": " + description_.toUtf8()) {
}

Failure::Failure(int number, const QString& description) : Failure(number, ApplicationTitle(), description) {
}

void RaiseDivisionByZero() {
    throw Failure(FailureNumber::DivisionByZero, QStringLiteral("Division by zero"));
}

void RaiseOverflow() {
    throw Failure(FailureNumber::Overflow, QStringLiteral("Overflow"));
}

void RaiseObjectNotSet() {
    throw Failure(FailureNumber::ObjectNotSet,
                  QStringLiteral("Object variable or With block variable not set"));
}

std::optional<Failure> CurrentFailure() {
    const std::exception_ptr current = std::current_exception();
    if (!current) {
        return std::nullopt;
    }
    try {
        std::rethrow_exception(current);
    } catch (const Failure& failure) {
        return failure;
    } catch (const std::bad_alloc&) {
        return Failure(FailureNumber::OutOfMemory, QStringLiteral("Out of memory"));
    } catch (const std::exception& other) {
        return Failure(FailureNumber::InternalError, QString::fromUtf8(other.what()));
    } catch (...) {
        return Failure(FailureNumber::InternalError, QStringLiteral("Internal error"));
    }
}

}  // namespace platform
