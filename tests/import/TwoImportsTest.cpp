#include "ImportJourney.h"
#include "ImportProgress.h"
#include "support/WriteTrace.h"

#include <chrono>
#include <optional>
#include <thread>

namespace {

class TwoImportsTest : public ImportJourney {
protected:
    TwoImportsTest() {
        UsePortfolio({.tenants = 100, .start = QDate(2020, 1, 6)});
        static const OneImport one = ImportAlone();
        contentsOfOne = one.contents;
        writes_ = one.writes;
    }

    /// Starts an import in another process, which stands still between two groups of writes as soon as this
    /// many per cent of its writes are done.
    void StartFirst(const QString& database, int percent) {
        progress_.HoldAfter(writes_ * static_cast<size_t>(percent) / 100);
        ImportOrder order = OrderFor(database);
        order.progress = progress_.Path();
        first.emplace(order);
        while (!progress_.IsHeld()) {
            ASSERT_FALSE(first->HasEnded());
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    /// Lets the first import go on. Its exit status.
    int EndOfFirst() {
        progress_.LetGoOn();
        return first->ExitStatus();
    }

    std::optional<OtherImport> first;
    QString contentsOfOne;

private:
    /// An import that nobody disturbs.
    struct OneImport {
        QString contents;
        size_t writes = 0;
    };

    OneImport ImportAlone() {
        OneImport one;
        const QString alone = FreshDatabase("alone.mdb");
        const WriteTrace count([&one](const TracedWrite&) { ++one.writes; });
        EXPECT_EQ(Import(alone), 0);
        one.contents = Contents(alone);
        return one;
    }

    size_t writes_ = 0;
    const ImportProgress progress_{workplace.Path(QStringLiteral("progress"))};
};

TEST_F(TwoImportsTest, ASecondImportIsRefusedAndChangesNothing) {
    for (const int percent : {0, 50}) {
        const QString database = FreshDatabase("shared.mdb");
        StartFirst(database, percent);
        testing::internal::CaptureStderr();
        const int status = Import(database);
        const QString told = QString::fromStdString(testing::internal::GetCapturedStderr());
        EXPECT_EQ(status, 2);
        EXPECT_TRUE(told.contains(first->NameInRefusals())) << told.toStdString();
        EXPECT_EQ(EndOfFirst(), 0);
        EXPECT_TRUE(Contents(database) == contentsOfOne) << percent;
    }
}

TEST_F(TwoImportsTest, AKilledImportKeepsNobodyOut) {
    const QString database = FreshDatabase("killed.mdb");
    StartFirst(database, 50);
    first->Kill();
    EXPECT_EQ(Import(database), 0);
    EXPECT_TRUE(Contents(database) == contentsOfOne);
}

TEST_F(TwoImportsTest, AnotherFileMayBeFilledMeanwhile) {
    StartFirst(FreshDatabase("first.mdb"), 50);
    const QString second = FreshDatabase("second.mdb");
    EXPECT_EQ(Import(second), 0);
    EXPECT_TRUE(Contents(second) == contentsOfOne);
}

}  // namespace
