#pragma once

#include "engine/jet/PageStore.h"

#include <memory>
#include <utility>
#include <vector>

namespace engine::jet {

/// Copies of pages. A group of statements makes hundreds of them and lets go of them all, and the next one
/// does so again: their memory isn't asked for each time.
class PageCopies {
public:
    std::unique_ptr<Page> Make(const Page& page) {
        if (spare_.empty()) {
            return std::make_unique<Page>(page);
        }
        std::unique_ptr<Page> copy = std::move(spare_.back());
        spare_.pop_back();
        *copy = page;
        return copy;
    }

    /// None is taken as well.
    void TakeBack(std::unique_ptr<Page> copy) {
        if (copy && spare_.size() < MostSpare) {
            spare_.push_back(std::move(copy));
        }
    }

private:
    static constexpr std::size_t MostSpare = 1024;

    std::vector<std::unique_ptr<Page>> spare_;
};

}  // namespace engine::jet
