#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace engine::jet {

/// Those of a file's faults (FaultsOf) that don't have any of these words.
template <std::size_t Count>
std::vector<std::string> Without(const std::array<const char*, Count>& words,
                                 std::vector<std::string> faults) {
    std::erase_if(faults, [&words](const std::string& fault) {
        return std::any_of(words.begin(), words.end(),
                           [&fault](const char* word) { return fault.find(word) != std::string::npos; });
    });
    return faults;
}

/// The faults that docs/jet.md doesn't name as what a program may leave that was stopped in the middle of a
/// group, for those who don't know its journal.
inline std::vector<std::string> OtherThanOfAStop(std::vector<std::string> faults) {
    static constexpr std::array Known = {"is neither free nor used",
                                         "isn't in its map",
                                         ": says it has ",
                                         ": lacks an entry",
                                         "has an entry that isn't its row's",
                                         "has entries out of order",
                                         "has other neighbours",
                                         "of a child that ends with",
                                         "is met twice",
                                         "is unique and has twice",
                                         "has a long value that can't be read"};
    return Without(Known, std::move(faults));
}

/// The same for groups in which rows have moved between two pages in both directions.
inline std::vector<std::string> OtherThanOfCrossingMoves(std::vector<std::string> faults) {
    static constexpr std::array Known = {"there is no row", "where no row has moved to",
                                         "has an entry of no row"};
    return Without(Known, OtherThanOfAStop(std::move(faults)));
}

}  // namespace engine::jet
