#include "platform/Failure.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace {

using platform::Failure;

template <typename Action>
Failure FailureOf(Action action) {
    try {
        action();
    } catch (...) {
        return platform::CurrentFailure().value();
    }
    throw std::logic_error("Nothing was thrown");
}

TEST(Failure, HoldsNumberSourceAndDescription) {
    const Failure failure(3024, QStringLiteral("An engine"), QStringLiteral("Couldn't find file"));
    EXPECT_EQ(failure.Number(), 3024);
    EXPECT_EQ(failure.Source(), QStringLiteral("An engine"));
    EXPECT_EQ(failure.Description(), QStringLiteral("Couldn't find file"));
    EXPECT_STREQ(failure.what(), "3024: Couldn't find file");
}

TEST(Failure, OfTheWizardItselfNamesTheWizard) {
    EXPECT_EQ(Failure(13, QStringLiteral("Type mismatch")).Source(), QStringLiteral("Wrenfield Wizard"));
}

TEST(Failure, OverflowHasNumber6) {
    const Failure failure = FailureOf([] { platform::RaiseOverflow(); });
    EXPECT_EQ(failure.Number(), 6);
    EXPECT_EQ(failure.Description(), QStringLiteral("Overflow"));
}

TEST(Failure, ObjectNotSetHasNumber91) {
    EXPECT_EQ(FailureOf([] { platform::RaiseObjectNotSet(); }).Number(), 91);
}

TEST(CurrentFailure, IsEmptyOutsideOfAHandler) {
    EXPECT_FALSE(platform::CurrentFailure().has_value());
}

TEST(CurrentFailure, IsEmptyAgainBehindAHandler) {
    FailureOf([] { platform::RaiseOverflow(); });
    EXPECT_FALSE(platform::CurrentFailure().has_value());
}

TEST(CurrentFailure, IsTheOneBeingHandled) {
    const Failure failure =
        FailureOf([] { throw Failure(3078, QStringLiteral("An engine"), QStringLiteral("No such table")); });
    EXPECT_EQ(failure.Number(), 3078);
    EXPECT_EQ(failure.Source(), QStringLiteral("An engine"));
    EXPECT_EQ(failure.Description(), QStringLiteral("No such table"));
}

TEST(CurrentFailure, TranslatesMissingMemory) {
    EXPECT_EQ(FailureOf([] { throw std::bad_alloc(); }).Number(), 7);
}

TEST(CurrentFailure, TranslatesOtherExceptionsWithTheirText) {
    const Failure failure = FailureOf([] { throw std::runtime_error("out of paper"); });
    EXPECT_EQ(failure.Number(), 51);
    EXPECT_EQ(failure.Description(), QStringLiteral("out of paper"));
}

TEST(CurrentFailure, TranslatesWhatIsNoExceptionAtAll) {
    EXPECT_EQ(FailureOf([] { throw 42; }).Number(), 51);
}

}  // namespace
