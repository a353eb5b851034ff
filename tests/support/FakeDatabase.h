#pragma once

#include "engine/Database.h"

#include <QStringList>

#include <map>
#include <optional>
#include <string>

/// Says which of the engine's operations shall fail, and with what. The keys are the operations' names.
using FakeFailures = std::map<std::string, platform::Failure>;

inline void FailIfAsked(const FakeFailures& failures, const char* operation) {
    if (const auto found = failures.find(operation); found != failures.end()) {
        throw platform::Failure(found->second);
    }
}

/// A failure as the engine of these tests raises it.
inline platform::Failure FakeFailure(int number, const char* description,
                                     const char* source = "Fake engine") {
    return {number, QString::fromLatin1(source), QString::fromLatin1(description)};
}

class FakeField : public engine::Field {
public:
    FakeField(const FakeFailures& failures, QString name, short type, engine::Value value)
        : failures_(failures), name_(std::move(name)), type_(type), value_(std::move(value)) {}

    const QString& Name() const override { return name_; }
    engine::DataType Type() const override { return static_cast<engine::DataType>(type_); }
    engine::Value Get() const override {
        FailIfAsked(failures_, "Get");
        return value_;
    }
    void Set(const engine::Value& value) override {
        FailIfAsked(failures_, "Set");
        value_ = value;
    }

private:
    const FakeFailures& failures_;
    QString name_;
    short type_;
    engine::Value value_;
};

/// What a test looks at after the row set itself is gone.
struct FakeRows {
    FakeFailures failures;
    QStringList calls;
    int rows = 0;
    int row = 0;
    std::vector<std::unique_ptr<FakeField>> fields;

    void AddField(const char* name, short type, const engine::Value& value) {
        fields.push_back(std::make_unique<FakeField>(failures, QString::fromLatin1(name), type, value));
    }
};

class FakeRecordset : public engine::Recordset {
public:
    explicit FakeRecordset(FakeRows& rows) : rows_(rows) {}

    bool Bof() const override {
        FailIfAsked(rows_.failures, "Bof");
        return rows_.rows == 0;
    }
    bool Eof() const override {
        FailIfAsked(rows_.failures, "Eof");
        return rows_.row >= rows_.rows;
    }
    void MoveNext() override {
        Note("MoveNext", QStringLiteral("MoveNext"));
        ++rows_.row;
    }
    void AddNew() override { Note("AddNew", QStringLiteral("AddNew")); }
    void Edit() override { Note("Edit", QStringLiteral("Edit")); }
    void Update(short type, bool force) override {
        Note("Update", QStringLiteral("Update %1 %2").arg(type).arg(force ? 1 : 0));
    }
    void CancelUpdate(short type) override {
        Note("CancelUpdate", QStringLiteral("CancelUpdate %1").arg(type));
    }
    void Delete() override { Note("Delete", QStringLiteral("Delete")); }

    int FieldCount() const override { return static_cast<int>(rows_.fields.size()); }
    engine::Field& Fields(int place) override { return *rows_.fields.at(static_cast<size_t>(place)); }
    engine::Field& Fields(const QString& name) override {
        for (const auto& field : rows_.fields) {
            if (field->Name().compare(name, Qt::CaseInsensitive) == 0) {
                return *field;
            }
        }
        throw FakeFailure(3265, "Item not found in this collection.");
    }

private:
    void Note(const char* operation, const QString& call) {
        rows_.calls += call;
        FailIfAsked(rows_.failures, operation);
    }

    FakeRows& rows_;
};

/// A database that notes what it is asked and fails where it is told to.
class FakeDatabase : public engine::Database {
public:
    void Execute(const QString& statement) override {
        statements += statement;
        FailIfAsked(failures, "Execute");
    }
    std::unique_ptr<engine::Recordset> OpenRecordset(const QString& statement, short type,
                                                     short lockEdit) override {
        statements += statement;
        lastType = type;
        lastLock = lockEdit;
        FailIfAsked(failures, "OpenRecordset");
        return std::make_unique<FakeRecordset>(rows);
    }
    void Flush() override {}
    void LockForImport() override { FailIfAsked(failures, "LockForImport"); }
    void CopyTo(const QString&) override {}
    void OnLostWrite(LostWriteListener listener) override { lostWriteListener = std::move(listener); }

    QStringList statements;
    short lastType = 0;
    short lastLock = 0;
    FakeFailures failures;
    FakeRows rows;
    LostWriteListener lostWriteListener;
};
