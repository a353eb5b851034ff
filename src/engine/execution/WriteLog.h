#pragma once

#include "engine/execution/Write.h"

#include <string>
#include <vector>

namespace engine::execution {

/// The writes of one group, in case they have to run again. Texts lie behind one another in one room that is
/// kept from group to group: thousands of them come and go with each.
class WriteLog {
public:
    WriteLog();

    void Add(Write&& write);
    void Clear();

    size_t Size() const { return entries_.size(); }

    /// The write at a place from 0.
    Write At(size_t place) const;

    /// The memory that the writes take, in bytes and about.
    size_t Memory() const;

private:
    struct TextPlace {
        size_t begin = 0;
        qsizetype size = 0;
    };

    std::vector<std::variant<TextPlace, RowWrite>> entries_;
    std::u16string texts_;
    size_t rows_ = 0;
};

}  // namespace engine::execution
