#include "Program.h"
#include "engine/jet/rules/RulesFile.h"
#include "support/PrintQt.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using engine::jet::PropertyBytes;

/// Imports into a Jet file with rules of its own.
class RuledDatabase : public testing::Test {
protected:
    void SetUp() override {
        const ProgramResult made =
            RunProgram(QStringLiteral(CREATE_PROGRAM),
                       {QStringLiteral("--format"), QStringLiteral("jet"), database}, folder.path());
        ASSERT_EQ(made.status, 0) << made.errors.toStdString();
    }
    void SetProperties(const char* table, const PropertyBytes& properties) const {
        engine::jet::RulesFile(engine::jet::SystemDisk(), database).SetProperties(table, properties.Block());
        ASSERT_TRUE(QFile::remove(engine::jet::Journal::NameFor(database)));
    }
    ProgramResult Import(const char* option) const {
        return RunImport({ExamplePortfolio(), QStringLiteral("--database"), database, QLatin1String(option)},
                         folder.filePath(QStringLiteral("config")));
    }

    QTemporaryDir folder;
    QString database = folder.filePath(QStringLiteral("property.mdb"));
};

TEST_F(RuledDatabase, ARuleThatIsNotUnderstoodStopsTheImportBeforeItsFirstWrite) {
    SetProperties("tenancy", PropertyBytes().OfColumn("reference", "ValidationRule",
                                                      QStringLiteral("Eval([reference]) > 2")));
    const QByteArray before = FileBytes(database);
    for (const char* option : {"--dry-run", "--yes"}) {
        const ProgramResult result = Import(option);
        EXPECT_EQ(result.status, 2) << option;
        EXPECT_EQ(result.output, "") << option;
        EXPECT_TRUE(result.errors.contains("nothing was changed: 3219")) << result.errors.toStdString();
        EXPECT_TRUE(result.errors.contains("tenancy.reference")) << result.errors.toStdString();
    }
    EXPECT_TRUE(FileBytes(database) == before);
}

TEST_F(RuledDatabase, WhatARuleRefusesIsReportedAndTheRestIsWritten) {
    SetProperties("owner", PropertyBytes()
                               .OfTable("ValidationRule", QStringLiteral("[name] <> \"Smith Family Trust\""))
                               .OfTable("ValidationText", QStringLiteral("No owner is called that.")));
    const ProgramResult result = Import("--yes");
    EXPECT_EQ(result.status, 1) << result.errors.toStdString();
    EXPECT_TRUE(result.output.contains("Failures reported: 1.")) << result.output.toStdString();
    EXPECT_TRUE(result.errors.contains("No owner is called that.")) << result.errors.toStdString();
}

}  // namespace
