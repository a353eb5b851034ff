#pragma once

#include "engine/DBEngine.h"
#include "engine/jet/FileCheck.h"
#include "support/FormatUnderTest.h"
#include "support/PrintQt.h"
#include "support/RecordingMessageBoxes.h"
#include "support/SecondReader.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace engine {

/// A fresh database with one table of every column type, "things", and two smaller ones, "notes" and
/// "copies".
class EngineTest : public ::testing::Test {
protected:
    EngineTest() {
        const QString index = QStringLiteral("things_code");
        DBEngine::Instance().CreateDatabase(
            path, FormatUnderTest(),
            {{QStringLiteral("things"),
              {{QStringLiteral("code"), dbText, 5},
               {QStringLiteral("yes"), dbBoolean},
               {QStringLiteral("byte"), dbByte},
               {QStringLiteral("short"), dbInteger},
               {QStringLiteral("long"), dbLong},
               {QStringLiteral("money"), dbCurrency},
               {QStringLiteral("single"), dbSingle},
               {QStringLiteral("number"), dbDouble},
               {QStringLiteral("date"), dbDate},
               {QStringLiteral("bytes"), dbLongBinary},
               {QStringLiteral("memo"), dbMemo},
               {QStringLiteral("two words"), dbText, 20}},
              {{index, {QStringLiteral("code")}, true}}},
             {QStringLiteral("notes"), {{QStringLiteral("text"), dbText, 50}}, {}},
             {QStringLiteral("copies"),
              {{QStringLiteral("text"), dbText, 50}, {QStringLiteral("number"), dbDouble}},
              {}}});
        database = DBEngine::Instance().OpenDatabase(path);
    }

    QStringList Rows(const char* sql) {
        database->Flush();
        return ReadRows(path, sql);
    }

    /// What is wrong with the file as a whole. Whoever wrote it has closed it or brought all to the disk.
    std::vector<std::string> Faults() const {
        if (FormatUnderTest() == FileFormat::Jet) {
            return jet::FaultsOfFile(path);
        }
        const QStringList told = ReadRows(path, "pragma integrity_check");
        return told == QStringList{QStringLiteral("ok")}
                   ? std::vector<std::string>()
                   : std::vector{told.join(QLatin1Char('\n')).toStdString()};
    }

    /// The number of the engine error that this raises; 0 if it raises none.
    template <class Action>
    static int ErrorOf(Action action) {
        try {
            action();
        } catch (const Error& error) {
            EXPECT_EQ(error.Source(), EngineName());
            EXPECT_FALSE(error.Description().isEmpty());
            return error.Number();
        }
        return 0;
    }

    int ExecuteError(const char* statement) {
        return ErrorOf([&] { database->Execute(QString::fromUtf8(statement)); });
    }

    std::unique_ptr<Recordset> Dynaset(const char* statement) {
        return database->OpenRecordset(QString::fromUtf8(statement), dbOpenDynaset, dbOptimistic);
    }

    RecordingMessageBoxes boxes;
    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("things.mdb"));
    std::unique_ptr<Database> database;
};

}  // namespace engine
