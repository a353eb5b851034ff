#pragma once

#include "database/CurrentDatabase.h"
#include "platform/Clock.h"
#include "support/FakeDatabase.h"
#include "support/PrintQt.h"
#include "support/RecordingMessageBoxes.h"
#include "support/Workplace.h"

#include <gtest/gtest.h>

/// A fake database in place, message boxes that are noted, and an error log of its own.
class DatabaseFixture : public ::testing::Test {
protected:
    DatabaseFixture() { database::SetCurrentDatabase(database_); }
    ~DatabaseFixture() override { database::SetCurrentDatabase(nullptr); }

    /// The one box shown has this title and the text of this failure, and the error log has one entry: the
    /// same text and the extra text behind the time stamp.
    void ExpectReported(const char* label, const platform::Failure& failure, const QString& extra) const {
        const QString message = QStringLiteral("General Errors...\n\n%1 - %2\n\n")
                                    .arg(failure.Number())
                                    .arg(failure.Description());
        ASSERT_EQ(boxes_.requests.size(), 1U);
        EXPECT_EQ(boxes_.requests[0], (platform::MessageBoxRequest{message, QString::fromLatin1(label)}));
        EXPECT_EQ(workplace_.ErrorLog().mid(18), message + extra + QLatin1Char('\n'));
    }

    void ExpectNothingReported() const {
        EXPECT_TRUE(boxes_.requests.empty());
        EXPECT_EQ(workplace_.ErrorLog(), QString());
    }

    FakeRows& Rows() { return database_->rows; }

    Workplace workplace_;
    RecordingMessageBoxes boxes_;
    std::shared_ptr<FakeDatabase> database_ = std::make_shared<FakeDatabase>();
};
