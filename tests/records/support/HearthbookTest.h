#pragma once

#include "database/CurrentDatabase.h"
#include "records/ImportRun.h"
#include "support/FormatUnderTest.h"
#include "support/RecordsTest.h"
#include "support/SecondReader.h"
#include "tools/schema/HearthbookSchema.h"

#include <QStringList>

/// A fresh Hearthbook database, open, on November 15, 2026.
class HearthbookTest : public RecordsTest {
protected:
    HearthbookTest() {
        platform::PinToday(QDate(2026, 11, 15));
        engine::DBEngine::Instance().CreateDatabase(path_, FormatUnderTest(), tools::HearthbookTables());
        database::UseDatabaseFile(path_);
        if (!database::StartDatabase()) {
            qFatal("The new database can't be opened");
        }
        tools::FillFreshDatabase(database::CurrentDatabase());
    }
    ~HearthbookTest() override {
        database::SetCurrentDatabase(nullptr);
        database::UseDatabaseFile(QString());
    }

    static void Execute(const QString& statement) { database::CurrentDatabase().Execute(statement); }

    /// As if the database had never had this table.
    void DropTable(const char* table) const {
        database::CurrentDatabase().Flush();
        if (!RunElsewhere(path_, QByteArray("drop table ").append(table).constData())) {
            qFatal("The table can't be dropped");
        }
    }

    /// The rows of a select, each with its values joined by "|".
    static QStringList Rows(const QString& statement) {
        const auto set = database::CurrentDatabase().OpenRecordset(statement, engine::dbOpenForwardOnly,
                                                                   engine::dbReadOnly);
        QStringList rows;
        for (; !set->Eof(); set->MoveNext()) {
            QStringList values;
            for (int place = 0; place < set->FieldCount(); ++place) {
                const engine::Value value = set->Fields(place).Get();
                values += engine::IsNull(value) ? u"NULL"_s : engine::ToText(value);
            }
            rows += values.join(u'|');
        }
        return rows;
    }

    void ExpectNoMessages() const {
        EXPECT_TRUE(boxes_.requests.empty()) << boxes_.requests.front().text.toStdString();
    }

    QString path_ = workplace_.Path(u"property.mdb"_s);
};
