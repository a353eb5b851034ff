#pragma once

#include "IsSound.h"
#include "ModelDisk.h"
#include "TableAndMaps.h"
#include "engine/jet/MakeDatabase.h"

namespace engine::jet {

/// A file with two tables of all column types, and what the tests are asked for.
class JetOperations : public ::testing::Test {
protected:
    JetOperations() {
        MakeDatabase(disk_, Path, {TableOfAllTypes("rising", true), TableOfAllTypes("falling", false)},
                     QDateTime(QDate(2026, 3, 1), QTime(9, 30), Qt::UTC), KeepIndexes);
        Open();
    }

    TableAndMaps& SomeTable() { return tables_[static_cast<std::size_t>(values_.Below(2))]; }

    void DoSomething() {
        TableAndMaps& table = SomeTable();
        values_.OneIn(100) ? table.DoInVain() : table.DoSomething();
        pages_->EndStatement();
        if (values_.OneIn(40)) {
            pages_->EndGroup(values_.OneIn(2) ? GroupKind::Adds : GroupKind::Removes);
        }
    }

    /// At what has reached the disk, as another program finds it.
    void LookAtEverything() {
        pages_->EndGroup(GroupKind::Adds);
        EXPECT_TRUE(IsSound(disk_.files[Path]->bytes));
        Open();
        std::for_each(tables_.begin(), tables_.end(), [](TableAndMaps& table) { table.CompareAll(); });
    }

    static int Asked(const char* variable, int usual) {
        const int asked = qEnvironmentVariableIntValue(variable);
        return asked > 0 ? asked : usual;
    }

    const int seed_ = Asked("WRENFIELD_SEED", 2026);

    void Open() {
        pages_ = std::make_unique<PagedFile>(disk_, Path);
        std::for_each(tables_.begin(), tables_.end(), [this](TableAndMaps& table) { table.Open(*pages_); });
    }

    inline static const QString Path = QStringLiteral("/books/all.mdb");
    ModelDisk disk_;
    RandomValues values_{static_cast<std::uint64_t>(seed_)};
    std::unique_ptr<PagedFile> pages_;
    std::array<TableAndMaps, 2> tables_{TableAndMaps("rising", values_), TableAndMaps("falling", values_)};
};

}  // namespace engine::jet
