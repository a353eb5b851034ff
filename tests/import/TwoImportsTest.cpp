#include "ImportJourney.h"
#include "support/WriteTrace.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace {

class TwoImportsTest : public ImportJourney {
protected:
    TwoImportsTest() {
        UsePortfolio({.tenants = 100, .start = QDate(2020, 1, 6)});
        static const OneImport one = ImportAlone();
        contentsOfOne = one.contents;
        writes_ = one.writes;
    }

    ~TwoImportsTest() override {
        if (first > 0) {
            kill(first, SIGKILL);
            waitpid(first, nullptr, 0);
        }
    }

    /// Starts an import in another process, which stands still between two groups of writes, where it holds
    /// nobody up by a lock of the database engine, as soon as this many per cent of its writes are done.
    void StartFirst(const QString& database, int percent) {
        int done = 0;
        const WriteTrace stop([&done](const TracedWrite&) { ++done; },
                              [&done, enough = writes_ * percent / 100] {
                                  if (done >= enough) {
                                      raise(SIGSTOP);
                                  }
                              });
        first = StartImport(database);
        int status = 0;
        ASSERT_EQ(waitpid(first, &status, WUNTRACED), first);
        ASSERT_TRUE(WIFSTOPPED(status));
    }

    /// Lets the first import go on. Its exit status.
    int EndOfFirst() {
        int status = 0;
        do {
            kill(first, SIGCONT);
        } while (waitpid(first, &status, WUNTRACED) == first && WIFSTOPPED(status));
        first = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    int first = 0;
    QString contentsOfOne;

private:
    /// An import that nobody disturbs.
    struct OneImport {
        QString contents;
        int writes = 0;
    };

    OneImport ImportAlone() {
        OneImport one;
        const QString alone = FreshDatabase("alone.mdb");
        const WriteTrace count([&one](const TracedWrite&) { ++one.writes; });
        EXPECT_EQ(Import(alone), 0);
        one.contents = Contents(alone);
        return one;
    }

    int writes_ = 0;
};

TEST_F(TwoImportsTest, ASecondImportIsRefusedAndChangesNothing) {
    for (const int percent : {0, 50}) {
        const QString database = FreshDatabase("shared.mdb");
        StartFirst(database, percent);
        testing::internal::CaptureStderr();
        const int status = Import(database);
        const QString told = QString::fromStdString(testing::internal::GetCapturedStderr());
        EXPECT_EQ(status, 2);
        EXPECT_TRUE(told.contains(QStringLiteral("import_test, process %1").arg(first)))
            << told.toStdString();
        EXPECT_EQ(EndOfFirst(), 0);
        EXPECT_TRUE(Contents(database) == contentsOfOne) << percent;
    }
}

TEST_F(TwoImportsTest, AKilledImportKeepsNobodyOut) {
    const QString database = FreshDatabase("killed.mdb");
    StartFirst(database, 50);
    kill(first, SIGKILL);
    waitpid(first, nullptr, 0);
    first = 0;
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
