#include "Program.h"
#include "support/PrintQt.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// Where the output of a program goes to get lost, as the shell is told of it.
class LostOutput : public testing::TestWithParam<const char*> {
protected:
    LostOutput() { CopyFreshDatabase(Database()); }

    QString Database() const { return directory_.filePath(QStringLiteral("property.mdb")); }

    ProgramResult Run(const char* program, const QString& arguments) const {
        const QString command = QStringLiteral("%1; exec '%2' %3")
                                    .arg(QLatin1String(GetParam()), QLatin1String(program), arguments);
        return RunProgram(QStringLiteral("bash"), {QStringLiteral("-c"), command},
                          directory_.filePath(QStringLiteral("config")));
    }

    ProgramResult Import(const char* mode) const {
        return Run(IMPORT_PROGRAM, QStringLiteral("'%1' --database '%2' %3")
                                       .arg(ExamplePortfolio(), Database(), QLatin1String(mode)));
    }

    static void ExpectToldAsLost(const ProgramResult& result, int status) {
        EXPECT_EQ(result.status, status);
        EXPECT_EQ(result.output, "");
        EXPECT_TRUE(result.errors.contains("The output could not be written: ")) << result.errors.constData();
    }

    QTemporaryDir directory_;
};

}  // namespace

TEST_P(LostOutput, OfAWholeImportIsAFailure) {
    ExpectToldAsLost(Import("--yes"), 1);
    EXPECT_EQ(QueryDatabase(Database(), QStringLiteral("select count(*) from tenancy")), "30");
}

TEST_P(LostOutput, OfADryRunChangesNothing) {
    const QByteArray before = FileBytes(Database());
    ExpectToldAsLost(Import("--dry-run"), 2);
    EXPECT_TRUE(FileBytes(Database()) == before);
}

TEST_P(LostOutput, OfHelpAndVersionIsAFailure) {
    for (const char* program : {IMPORT_PROGRAM, CREATE_PROGRAM}) {
        ExpectToldAsLost(Run(program, QStringLiteral("--help")), 2);
        ExpectToldAsLost(Run(program, QStringLiteral("--version")), 2);
    }
}

// A full disk, nowhere at all, a reader who has gone away, and a file opened for reading alone.
INSTANTIATE_TEST_SUITE_P(Ways, LostOutput,
                         testing::Values("exec > /dev/full", "exec >&-", "exec > >(true); wait $!",
                                         "exec 1< /dev/null"));
