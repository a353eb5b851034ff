#pragma once

#include "engine/Recordset.h"
#include "engine/dialect/Tokenizer.h"
#include "engine/execution/StatementCache.h"

#include <deque>
#include <string>
#include <vector>

namespace engine::execution {

class FileDatabase;

/// Rows read once, from the front, one at a time.
class ForwardOnlySet : public Recordset {
public:
    ForwardOnlySet(FileDatabase& database, const PreparedStatement& prepared,
                   const dialect::ShapedStatement& shaped);

    bool Bof() const override;
    bool Eof() const override;
    void MoveNext() override;
    void AddNew() override;
    void Edit() override;
    void Update(short type, bool force) override;
    void CancelUpdate(short type) override;
    void Delete() override;
    int FieldCount() const override;
    Field& Fields(int place) override;
    Field& Fields(const QString& name) override;

private:
    class ReadOnlyField : public Field {
    public:
        ReadOnlyField(ForwardOnlySet& set, size_t place, QString name, DataType type)
            : set_(set), place_(place), name_(std::move(name)), type_(type) {}

        const QString& Name() const override { return name_; }
        DataType Type() const override { return type_; }
        Value Get() const override { return set_.Get(place_); }
        void Set(const Value& value) override;

    private:
        ForwardOnlySet& set_;
        size_t place_;
        QString name_;
        DataType type_;
    };

    void Step();
    Value Get(size_t place) const;

    FileDatabase& database_;
    std::deque<std::string> texts_;  ///< The texts bound to the statement; they must outlive it.
    StatementHandle statement_;
    std::deque<ReadOnlyField> fields_;
    std::vector<Value> row_;
    bool hadRows_ = false;
    bool atEnd_ = false;
};

}  // namespace engine::execution
