#include "TableFile.h"
#include "engine/Error.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <map>

namespace engine::jet {
namespace {

using Row = std::vector<Value>;
using Rows = std::map<RowPlace, Row>;

QString SomeText(int most) {
    const int length = *rc::gen::inRange(0, most + 1);
    return QString(length, QChar(*rc::gen::element<char16_t>(u'a', u'\u00E9', u'\u0416')));
}

Value SomeValue(int column) {
    if (*rc::gen::inRange(0, 5) == 0) {
        return column == 1 ? Value(false) : Value();
    }
    switch (column) {
        case 0:
            return *rc::gen::inRange<qint64>(-100, 100000);
        case 1:
            return *rc::gen::arbitrary<bool>();
        case 2:
            return SomeText(255);
        case 3:
            return SomeText(*rc::gen::element(40, 3000, 9000));
        default:
            return QByteArray(*rc::gen::inRange(0, *rc::gen::element(100, 9000)), 'p');
    }
}

Row ReadRow(const Table& table, RowPlace key) {
    const StoredRow stored = table.Read(key);
    Row row;
    for (int column = 0; column < 5; ++column) {
        row.push_back(table.ValueOf(stored, column));
    }
    return row;
}

Rows ReadRows(const Table& table) {
    Rows rows;
    for (auto key = table.FirstRow(); key; key = table.RowBehind(*key)) {
        rows[*key] = ReadRow(table, *key);
    }
    return rows;
}

/// A table, and a plain map that is to hold the same.
class TableAndMap {
public:
    void DoSomething() {
        const int action = *rc::gen::inRange(0, 100);
        if (action < 50 || rows.empty()) {
            Row row;
            for (int column = 0; column < 5; ++column) {
                row.push_back(SomeValue(column));
            }
            const RowPlace key = file.table->Insert(row);
            RC_ASSERT(!rows.contains(key));
            if (IsNull(row[0])) {
                row[0] = qint64{file.table->Figures().LastNumber()};
            }
            rows[key] = row;
        } else if (action < 80) {
            const int column = *rc::gen::inRange(0, 5);
            const Value value = SomeValue(column);
            const RowPlace key = SomeKey();
            file.table->Update(key, {{column, value}});
            rows[key][static_cast<std::size_t>(column)] = value;
        } else if (action < 98) {
            const RowPlace key = SomeKey();
            file.table->Delete(key);
            rows.erase(key);
        } else {
            file.table->Wipe();
            rows.clear();
        }
    }

    void DoStatement() {
        const PagedFile::Mark mark = file.pages->SetMark();
        const Rows before = rows;
        const int steps = *rc::gen::inRange(1, 6);
        for (int step = 0; step < steps; ++step) {
            DoSomething();
        }
        if (*rc::gen::inRange(0, 6) == 0) {
            file.pages->UndoTo(mark);
            rows = before;
        }
        file.pages->EndStatement();
    }

    void CompareAll() {
        RC_ASSERT(ReadRows(*file.table) == rows);
        RC_ASSERT(file.table->Figures().Rows() == rows.size());
    }

    /// What has reached the disk, when all has.
    void CheckFile() {
        file.pages->EndGroup(GroupKind::Adds);
        RC_ASSERT(FaultsOf(file.Content()) == std::vector<std::string>());
    }

    TableFile file{TableFile::Indexes::Some};
    Rows rows;

private:
    RowPlace SomeKey() const {
        return std::next(rows.begin(),
                         *rc::gen::inRange<std::ptrdiff_t>(0, static_cast<std::ptrdiff_t>(rows.size())))
            ->first;
    }
};

RC_GTEST_PROP(JetTableProperty, ATableHoldsWhatAMapHolds, ()) {
    TableAndMap both;
    const int statements = *rc::gen::inRange(1, 40);
    for (int statement = 0; statement < statements; ++statement) {
        both.DoStatement();
        const int then = *rc::gen::inRange(0, 10);
        if (then < 3) {
            both.file.pages->EndGroup(then == 0 ? GroupKind::Removes : GroupKind::Adds);
        }
        if (then == 0) {
            both.file.Open();
            both.CompareAll();
            both.CheckFile();
        }
    }
    both.CompareAll();
    both.CheckFile();
}

// Stopped at some write of a group, the file holds the rows from before it, or all that it did.
RC_GTEST_PROP(JetTableProperty, AProgramThatIsEndedLeavesTheRowsOfWholeGroups, ()) {
    TableAndMap both;
    Rows before;
    for (int group = 0; group < 3; ++group) {
        const int statements = *rc::gen::inRange(1, 8);
        for (int statement = 0; statement < statements; ++statement) {
            both.DoStatement();
        }
        before = group < 2 ? both.rows : before;
        if (group < 2) {
            both.file.pages->EndGroup(GroupKind::Adds);
        }
    }
    both.file.disk.stopAt = both.file.disk.operations + *rc::gen::inRange(0, 60);
    bool isStopped = false;
    try {
        both.file.pages->EndGroup(GroupKind::Adds);
    } catch (const ModelDisk::Stopped&) {
        isStopped = true;
    }
    both.file.disk.stopAt.reset();
    both.file.Open();
    const Rows found = ReadRows(*both.file.table);
    RC_CLASSIFY(isStopped, "stopped");
    RC_CLASSIFY(found == both.rows, "whole");
    RC_ASSERT(found == both.rows || (isStopped && found == before));
    both.rows = found;
    both.CompareAll();
    both.CheckFile();
}

}  // namespace
}  // namespace engine::jet
