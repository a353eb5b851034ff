#include "DatabaseFixture.h"
#include "database/ErrorReport.h"
#include "platform/Files.h"
#include "support/CommaLocale.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace {

class ErrorReport : public DatabaseFixture {
protected:
    ErrorReport() { platform::PinToday(QDate(2026, 11, 21)); }
    ~ErrorReport() override { platform::PinToday(QDate()); }

    void Report(const platform::Failure& failure) const {
        try {
            throw platform::Failure(failure);
        } catch (...) {
            database::ReportError(QStringLiteral("A label"), QStringLiteral("extra"));
        }
    }

    QString FileText(const char* name) const {
        QFile file(workplace_.Path(QString::fromUtf8(name)));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QStringLiteral("no file");
    }

    bool LogMatches(const char* name, const char* pattern) const {
        const QString whole = QRegularExpression::anchoredPattern(QString::fromLatin1(pattern));
        return QRegularExpression(whole).match(FileText(name)).hasMatch();
    }
};

TEST_F(ErrorReport, ShowsNumberAndDescriptionAndLogsThemWithTheExtraText) {
    Report(FakeFailure(3078, "No such table."));
    ExpectReported("A label", FakeFailure(3078, "No such table."), QStringLiteral("extra"));
}

TEST_F(ErrorReport, OutsideOfAHandlerHasAnEmptyMessage) {
    database::ReportError(QStringLiteral("A label"), QStringLiteral("extra"));
    ASSERT_EQ(boxes_.requests.size(), 1U);
    EXPECT_EQ(boxes_.requests[0], (platform::MessageBoxRequest{QString(), QStringLiteral("A label")}));
    EXPECT_EQ(workplace_.ErrorLog().mid(18), QStringLiteral("extra\n"));
}

TEST_F(ErrorReport, OfNumberZeroHasAnEmptyMessage) {
    Report(FakeFailure(0, "Nothing."));
    ASSERT_EQ(boxes_.requests.size(), 1U);
    EXPECT_EQ(boxes_.requests[0].text, QString());
}

TEST_F(ErrorReport, OfTheJetEngineHasAnEmptyMessage) {
    Report(FakeFailure(3078, "No such table.", "Microsoft JET Database Engine"));
    ASSERT_EQ(boxes_.requests.size(), 1U);
    EXPECT_EQ(boxes_.requests[0], (platform::MessageBoxRequest{QString(), QStringLiteral("A label")}));
    EXPECT_EQ(workplace_.ErrorLog().mid(17), QStringLiteral(" extra\n"));
}

TEST_F(ErrorReport, OfAnEngineOfNearlyThatNameIsShown) {
    Report(FakeFailure(3078, "No such table.", "Microsoft Jet Database Engine"));
    ASSERT_EQ(boxes_.requests.size(), 1U);
    EXPECT_NE(boxes_.requests[0].text, QString());
}

TEST_F(ErrorReport, IsCounted) {
    const int before = database::ReportedErrors();
    Report(FakeFailure(1, "one"));
    Report(FakeFailure(2, "two"));
    EXPECT_EQ(database::ReportedErrors(), before + 2);
}

TEST_F(ErrorReport, IsLoggedOnlyAfterTheBox) {
    class Watching : public RecordingMessageBoxes {
    public:
        explicit Watching(const Workplace& workplace) : workplace_(workplace) {}
        platform::Answer Show(const platform::MessageBoxRequest& request) override {
            logAtBox = workplace_.ErrorLog();
            return RecordingMessageBoxes::Show(request);
        }
        QString logAtBox = QStringLiteral("no box");

    private:
        const Workplace& workplace_;
    };
    Watching boxes(workplace_);
    Report(FakeFailure(1, "one"));
    EXPECT_EQ(boxes.logAtBox, QString());
    EXPECT_NE(workplace_.ErrorLog(), QString());
}

TEST_F(ErrorReport, IsCountedAndShownEvenIfTheLogCanNotBeWritten) {
    platform::SetProgramDirectory(workplace_.Path(QStringLiteral("no such folder")));
    Report(FakeFailure(1, "one"));
    EXPECT_EQ(boxes_.requests.size(), 1U);
    EXPECT_FALSE(database::IsLogWritable());
}

TEST_F(ErrorReport, IsKnownToBeLoggedOnceTheLogCanBeWrittenAgain) {
    platform::SetProgramDirectory(workplace_.Path(QStringLiteral("no such folder")));
    database::WriteLog(QStringLiteral("one"));
    platform::SetProgramDirectory(workplace_.Path(QStringLiteral(".")));
    database::WriteLog(QStringLiteral("two"));
    EXPECT_TRUE(database::IsLogWritable());
}

TEST_F(ErrorReport, LogLineHasAStampABlankAndTheText) {
    database::WriteLog(QStringLiteral("some text"));
    EXPECT_TRUE(LogMatches("errNov26.log", "21/11/26 [0-2][0-9]:[0-5][0-9]:[0-5][0-9] some text\n"));
    EXPECT_TRUE(boxes_.requests.empty());
}

TEST_F(ErrorReport, LogsOfAMonthGoToOneFile) {
    platform::PinToday(QDate(2026, 11, 1));
    database::WriteLog(QStringLiteral("one"));
    platform::PinToday(QDate(2026, 11, 30));
    database::WriteLog(QStringLiteral("two\nthree"));
    EXPECT_TRUE(LogMatches("errNov26.log", "01/11/26 [0-9:]{8} one\n30/11/26 [0-9:]{8} two\nthree\n"));
}

TEST_F(ErrorReport, ANewMonthBeginsAFile) {
    database::WriteLog(QStringLiteral("one"));
    platform::PinToday(QDate(2026, 12, 1));
    database::WriteLog(QStringLiteral("two"));
    platform::PinToday(QDate(2107, 1, 1));
    database::WriteLog(QStringLiteral("three"));
    EXPECT_TRUE(LogMatches("errNov26.log", "21/11/26 [0-9:]{8} one\n"));
    EXPECT_TRUE(LogMatches("errDec26.log", "01/12/26 [0-9:]{8} two\n"));
    EXPECT_TRUE(LogMatches("errJan07.log", "01/01/07 [0-9:]{8} three\n"));
}

TEST_F(ErrorReport, LogIsNamedInTheUsersLanguageAndStampedTheSameEverywhere) {
    platform::PinToday(QDate(2026, 3, 5));
    const CommaLocale german;
    database::WriteLog(QStringLiteral("text"));
    EXPECT_TRUE(LogMatches("errMär26.log", "05/03/26 [0-9:]{8} text\n"));
}

TEST_F(ErrorReport, LogThatCanNotBeWrittenIsNoMatter) {
    QDir().mkpath(workplace_.Path(QStringLiteral("errNov26.log")));
    database::WriteLog(QStringLiteral("text"));
    EXPECT_TRUE(boxes_.requests.empty());
}

}  // namespace
