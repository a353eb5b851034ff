#include "database/RecordAccess.h"

#include "database/CurrentDatabase.h"
#include "database/ErrorReport.h"
#include "database/FixSql.h"
#include "platform/Failure.h"

namespace database {

namespace {

/// "The object is closed": nothing to read, and nothing to tell anybody.
constexpr int ObjectClosed = 3704;

engine::Recordset& Opened(const RecordsetReference& recordset) {
    if (recordset == nullptr) {
        platform::RaiseObjectNotSet();
    }
    return *recordset;
}

bool IsCheckedForQuotes(short type) {
    constexpr short UnknownType = -1;
    return type == engine::dbBoolean || type == engine::dbMemo || type == UnknownType;
}

/// Puts a double-quote character for each pair of apostrophes. True if there was any.
bool ReplaceDoubledApostrophes(engine::Field& field) {
    const QString pair = QStringLiteral("''");
    bool replaced = false;
    for (engine::Value value = field.Get();; value = field.Get()) {
        const QString* text = std::get_if<QString>(&value);
        const qsizetype place = text == nullptr ? -1 : text->indexOf(pair);
        if (place < 0) {
            return replaced;
        }
        QString changed = *text;
        field.Set(changed.replace(place, pair.size(), QLatin1Char('"')));
        replaced = true;
    }
}

void CancelQuietly(const RecordsetReference& recordset) {
    try {
        Opened(recordset).CancelUpdate(engine::dbUpdateRegular);
    } catch (...) {
        // Nothing was being edited, and the failure that counts has been told.
    }
}

}  // namespace

void CreateSet(RecordsetReference& recordset, QString& statement, short type, short lock) {
    recordset.reset();
    try {
        recordset = CurrentDatabase().OpenRecordset(FixSql(statement), type, lock);
    } catch (...) {
        ReportError(QStringLiteral("Data Create Set"), statement);
    }
}

bool ExecuteSql(QString& statement) {
    try {
        CurrentDatabase().Execute(FixSql(statement));
        return true;
    } catch (...) {
        ReportError(QStringLiteral("Execute SQL"), statement);
        return false;
    }
}

bool ExecuteSql(QString&& statement) {
    return ExecuteSql(statement);
}

bool AddRecord(const RecordsetReference& recordset) {
    try {
        Opened(recordset).AddNew();
        return true;
    } catch (...) {
        ReportError(QStringLiteral("Add Record"), QString());
        return false;
    }
}

bool EditRecord(const RecordsetReference& recordset) {
    try {
        Opened(recordset).Edit();
        return true;
    } catch (...) {
        ReportError(QStringLiteral("Edit Record"), QString());
        return false;
    }
}

bool UpdateRecord(const RecordsetReference& recordset) {
    try {
        Opened(recordset).Update(engine::dbUpdateRegular, false);
    } catch (...) {
        ReportError(QStringLiteral("Update Record"), QString());
        CancelQuietly(recordset);
        return false;
    }
    try {
        bool replaced = false;
        for (int place = 0; place < recordset->FieldCount(); ++place) {
            engine::Field& field = recordset->Fields(place);
            if (IsCheckedForQuotes(field.Type())) {
                replaced = ReplaceDoubledApostrophes(field) || replaced;
            }
        }
        if (replaced) {
            recordset->Update();
        }
    } catch (...) {
        // A saved row is not being edited, so the first replacement ends here: the row stays as it was saved.
    }
    return true;
}

bool DataIsEmpty(const RecordsetReference& recordset) {
    if (recordset == nullptr) {
        return true;
    }
    try {
        const bool atBegin = recordset->Bof();
        const bool atEnd = recordset->Eof();
        return atBegin && atEnd;
    } catch (...) {
        if (platform::CurrentFailure()->Number() != ObjectClosed) {
            ReportError(QStringLiteral("Data Is Empty"), QString());
        }
        return true;
    }
}

bool DataEof(const RecordsetReference& recordset) {
    if (recordset == nullptr) {
        return true;
    }
    try {
        return recordset->Eof();
    } catch (...) {
        ReportError(QStringLiteral("Data EOF"), QString());
        return false;
    }
}

bool MoveNextRecord(const RecordsetReference& recordset) {
    try {
        Opened(recordset).MoveNext();
        return true;
    } catch (...) {
        ReportError(QStringLiteral("Move Next"), QString());
        return false;
    }
}

QDate LookupDate(const QString& column, const QString& table, const QString& rest, QDate defaultDate) {
    QString statement = QStringLiteral("select ") + column + QLatin1String(" as result from ") + table +
                        QLatin1Char(' ') + rest;
    RecordsetReference recordset;
    CreateSet(recordset, statement, engine::dbOpenForwardOnly, engine::dbReadOnly);
    if (DataIsEmpty(recordset)) {
        return defaultDate;
    }
    try {
        const engine::Value found = recordset->Fields(QStringLiteral("result")).Get();
        return engine::ToDate(Nz(found, engine::FromDate(defaultDate)));
    } catch (...) {
        // A row that can't be read is to the caller what a set that can't be opened is.
        ReportError(QStringLiteral("Data Create Set"), statement);
        return defaultDate;
    }
}

void CheckWritten() {
    const QString label = QStringLiteral("Import Data");
    try {
        for (const engine::Error& difference : CurrentDatabase().CheckWritten()) {
            ReportFailure(difference, label, DatabaseFile());
        }
    } catch (...) {
        ReportError(label, DatabaseFile());
    }
}

engine::Value Nz(const engine::Value& value, const engine::Value& fallback) {
    return engine::IsNull(value) ? fallback : value;
}

}  // namespace database
