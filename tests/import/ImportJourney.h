#pragma once

#include "OtherImport.h"
#include "platform/MessageBox.h"
#include "support/FormatUnderTest.h"
#include "support/PortfolioGenerator.h"
#include "support/PrintQt.h"
#include "support/RecordingMessageBoxes.h"
#include "support/SecondReader.h"
#include "support/Workplace.h"

#include <QFile>
#include <QHash>
#include <QStringList>

#include <gtest/gtest.h>

/// The whole batch import, run within this process or in another one, on fresh Hearthbook databases.
class ImportJourney : public ::testing::Test {
public:
    /// The tables that an import changes, and some that it must leave alone.
    static const QStringList& Tables();

    /// All rows of the tables, in one text.
    static QString Contents(const QString& database);
    static QString AsText(const QHash<QString, QStringList>& rows);

protected:
    ImportJourney();

    /// Writes a portfolio and makes it the one that is imported.
    void UsePortfolio(const PortfolioSize& size);

    /// A new copy of a fresh Hearthbook database, which has some rows to be wiped.
    QString FreshDatabase(const char* name, engine::FileFormat format = FormatUnderTest());

    /// Whether a file is sound to its last byte that says anything. What an import that was killed has left
    /// undone is taken back first, as by any program that opens the file.
    static bool IsSound(const QString& database);

    /// Runs the import in this process as of 2026-11-21, with more options, and gives its exit status.
    int Import(const QString& database, const QStringList& more = {}) const;

    /// The same, for a process of its own.
    ImportOrder OrderFor(const QString& database) const;

    Workplace workplace;
    RecordingMessageBoxes boxes;
    QString portfolio = workplace.Path(QStringLiteral("portfolio.json"));
};
