#pragma once

#include "engine/Error.h"
#include "engine/jet/TreePages.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <vector>

namespace engine::jet {

/// Pages in memory alone. Whoever reads or changes a page that nobody uses is found out, unless the pages are
/// damaged anyway.
class WatchedPages : public PageStore {
public:
    bool isDamaged = false;

    PageNumber Count() const override { return static_cast<PageNumber>(pages_.size()); }

    const Page& Read(PageNumber number) override { return At(number); }

    /// Tests damage what they change.
    Page& Change(PageNumber number) override {
        ForgetShape(number);
        return At(number);
    }

    /// New pages come from the end, and so behind all others.
    PageNumber TakeBehind(PageNumber /*page*/) override { return Take(); }
    PageNumber Take() override {
        if (free_.empty()) {
            pages_.push_back(std::make_unique<Page>());
            return Count() - 1;
        }
        const PageNumber number = *free_.begin();
        free_.erase(free_.begin());
        pages_[number]->fill(0);
        ForgetShape(number);
        return number;
    }

    void GiveBack(PageNumber number) override {
        const bool wasUsed = number < Count() && free_.insert(number).second;
        EXPECT_TRUE(isDamaged || wasUsed) << "page " << number;
    }

    /// All pages as they are, and back to them: a statement is undone.
    struct State {
        std::vector<Page> pages;
        std::set<PageNumber> free;
    };
    State Save() const {
        State state{{}, free_};
        for (const auto& page : pages_) {
            state.pages.push_back(*page);
        }
        return state;
    }
    void Restore(const State& state) {
        pages_.resize(state.pages.size());
        for (std::size_t number = 0; number < pages_.size(); ++number) {
            *pages_[number] = state.pages[number];
        }
        free_ = state.free;
        ForgetShapes();
    }

    /// How many are in use.
    std::size_t UsedCount() const { return pages_.size() - free_.size(); }

private:
    Page& At(PageNumber number) {
        if (number >= pages_.size()) {
            throw Error(ErrorNumber::DatabaseDamaged, QStringLiteral("There is no page %1.").arg(number));
        }
        EXPECT_TRUE(isDamaged || !free_.contains(number)) << "page " << number << " is used by nobody";
        return *pages_[number];
    }

    std::vector<std::unique_ptr<Page>> pages_;
    std::set<PageNumber> free_;
};

/// The pages of one index.
class PageSet : public IndexPages {
public:
    void Came(PageNumber page) override {
        const bool isNew = pages.insert(page).second;
        EXPECT_TRUE(isDamaged || isNew) << "page " << page;
    }
    void Went(PageNumber page) override {
        const bool wasThere = pages.erase(page) == 1;
        EXPECT_TRUE(isDamaged || wasThere) << "page " << page;
    }

    std::set<PageNumber> pages;
    bool isDamaged = false;
};

}  // namespace engine::jet
