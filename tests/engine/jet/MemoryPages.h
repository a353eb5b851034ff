#pragma once

#include "engine/jet/Damage.h"
#include "engine/jet/PageStore.h"

#include <memory>
#include <set>
#include <vector>

namespace engine::jet {

/// Pages in memory alone: a new one for each that is taken, and none ever used again.
class MemoryPages : public PageStore {
public:
    explicit MemoryPages(PageNumber count = 3) : pages_(count) {}

    PageNumber Count() const override { return static_cast<PageNumber>(pages_.size()); }
    const Page& Read(PageNumber number) override { return At(number); }
    /// Tests damage what they change.
    Page& Change(PageNumber number) override {
        NoteChangeOfMaps();
        ForgetShape(number);
        return At(number);
    }
    /// New pages come from the end, and so behind all others.
    PageNumber TakeBehind(PageNumber /*page*/) override { return Take(); }
    PageNumber Take() override {
        pages_.emplace_back();
        return Count() - 1;
    }
    void GiveBack(PageNumber number) override { given.insert(number); }

    std::set<PageNumber> given;

private:
    Page& At(PageNumber number) {
        if (number >= Count()) {
            RaiseDamaged(number, QStringLiteral("isn't there"));
        }
        if (!pages_[number]) {
            pages_[number] = std::make_unique<Page>();
        }
        return *pages_[number];
    }

    std::vector<std::unique_ptr<Page>> pages_;
};

}  // namespace engine::jet
