#pragma once

#include "MemoryPages.h"
#include "engine/Error.h"

#include <QString>

#include <gtest/gtest.h>

namespace engine::jet {

/// What an action fails with: 0 and nothing if it doesn't.
struct Failing {
    int number = 0;
    QString sentence;
};

template <class Action>
Failing FailureOf(Action action) {
    try {
        action();
    } catch (const Error& error) {
        return {error.Number(), error.Description()};
    }
    return {};
}

/// That the file counts as damaged, with a sentence that names the page.
template <class Action>
::testing::AssertionResult FindsDamage(PageNumber page, Action action) {
    const Failing failing = FailureOf(action);
    if (failing.number != ErrorNumber::DatabaseDamaged) {
        return ::testing::AssertionFailure() << "fails with " << failing.number;
    }
    if (!failing.sentence.contains(QStringLiteral("page %1 ").arg(page))) {
        return ::testing::AssertionFailure() << failing.sentence.toStdString();
    }
    return ::testing::AssertionSuccess();
}

}  // namespace engine::jet
