#include "OperationsTest.h"
#include "StopFaults.h"

namespace engine::jet {
namespace {

/// Groups that add or remove, and the file after each write of theirs: as a program finds it that doesn't
/// know the journal, where the one that writes is stopped.
class JetMiddleOfAGroup : public JetOperations {
protected:
    void DoGroup() {
        const GroupKind kind = values_.OneIn(3) ? GroupKind::Removes : GroupKind::Adds;
        const auto before = Kept();
        for (int statement = values_.Below(kind == GroupKind::Adds ? 20 : 12); statement > 0; --statement) {
            TableAndMaps& table = SomeTable();
            kind == GroupKind::Adds ? table.AddOrChange() : table.RemoveSome();
            pages_->EndStatement();
        }
        disk_.afterWrite = [&](const ModelDisk::File& file) {
            if (&file == disk_.files[Path].get()) {
                LookAtWritten(file.bytes, before);
                ++writes;
            }
        };
        pages_->EndGroup(kind);
        disk_.afterWrite = {};
    }

    int writes = 0;

private:
    std::array<TableAndMaps::Kept, 2> Kept() const { return {tables_[0].All(), tables_[1].All()}; }

    void LookAtWritten(const QByteArray& bytes, const std::array<TableAndMaps::Kept, 2>& before) {
        EXPECT_EQ(OtherThanOfCrossingMoves(FaultsOf(bytes, FileOf::Others)), std::vector<std::string>());
        ModelDisk disk;
        disk.files[Path] = std::make_shared<ModelDisk::File>();
        disk.files[Path]->bytes = bytes;
        PagedFile pages(disk, Path);
        for (std::size_t table = 0; table < tables_.size(); ++table) {
            tables_[table].FindAllThatStays(pages, before[table]);
        }
    }
};

// WRENFIELD_JET_OPERATIONS asks for more groups as well.
TEST_F(JetMiddleOfAGroup, WhatItLeavesAsItIsIsFoundAfterEachWrite) {
    const int groups = Asked("WRENFIELD_JET_OPERATIONS", 5000) / 100;
    for (int group = 0; group < groups; ++group) {
        DoGroup();
        ASSERT_FALSE(HasFailure()) << "in group " << group << " of seed " << seed_;
    }
    EXPECT_GT(writes, 10 * groups);
    LookAtEverything();
}

}  // namespace
}  // namespace engine::jet
