#include "Program.h"
#include "support/HalfWritten.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

// A dry run writes nothing of its own, and yet takes back what was left half written, in a Jet file whose
// journal is ours: nobody else could read it.
TEST(LeftJournal, ADryRunTakesBackWhatAKilledProgramLeft) {
    const QTemporaryDir folder;
    const QString database = folder.filePath(QStringLiteral("property.mdb"));
    ASSERT_EQ(RunProgram(QStringLiteral(CREATE_PROGRAM),
                         {QStringLiteral("--format"), QStringLiteral("jet"), database}, folder.path())
                  .status,
              0);
    const QByteArray before = FileBytes(database);
    LeaveHalfWritten(database, QStringLiteral("insert into owner(code) values('half')"));
    ASSERT_FALSE(FileBytes(database) == before);
    const ProgramResult result =
        RunImport({ExamplePortfolio(), QStringLiteral("--database"), database, QStringLiteral("--dry-run")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(FileBytes(database) == before);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1) << "the journal is gone";
}
