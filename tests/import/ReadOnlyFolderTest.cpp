#include "ImportJourney.h"
#include "tools/import/ImportTool.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace {

class ReadOnlyFolderTest : public ImportJourney {
protected:
    ReadOnlyFolderTest() { UsePortfolio({.tenants = 3, .start = QDate(2026, 10, 5), .balances = false}); }
    ~ReadOnlyFolderTest() override { SetPermissions(workplace.Path(QString()), 0755); }

    static void SetPermissions(const QString& path, mode_t permissions) {
        EXPECT_EQ(::chmod(path.toUtf8().constData(), permissions), 0);
    }
};

// The file itself may be written to. Without a journal beside it, each write of the import would fail.
TEST_F(ReadOnlyFolderTest, IsRefusedBeforeAnythingIsDone) {
    const QString database = FreshDatabase("shared.mdb");
    const QString before = Contents(database);
    SetPermissions(database, 0666);
    SetPermissions(portfolio, 0644);
    SetPermissions(workplace.Path(QString()), 0555);
    const auto importAsOrdinaryUser = [&](const char* option) {
        // Whoever runs the tests as root could write all the same.
        constexpr uid_t Nobody = 65534;
        if (::geteuid() == 0 && ::setuid(Nobody) != 0) {
            std::_Exit(3);
        }
        std::_Exit(
            tools::RunImportTool({portfolio, QStringLiteral("--database"), database, QLatin1String(option)}));
    };
    for (const char* option : {"--yes", "--dry-run"}) {
        EXPECT_EXIT(importAsOrdinaryUser(option), ::testing::ExitedWithCode(2), "nothing was changed\n$");
    }
    EXPECT_EQ(Contents(database), before);
}

}  // namespace
