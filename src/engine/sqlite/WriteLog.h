#pragma once

#include "engine/sqlite/Write.h"

#include <string>
#include <vector>

namespace engine::sqlite {

/// The writes of one group, in case they have to run again. Texts lie behind one another in one room that is
/// kept from group to group: thousands of them come and go with each.
class WriteLog {
public:
    WriteLog();

    void Add(Write&& write);
    void Clear();

    /// All writes in their order; the log is empty then.
    std::vector<Write> TakeAll();

private:
    struct TextPlace {
        size_t begin = 0;
        qsizetype size = 0;
    };

    std::vector<std::variant<TextPlace, RowWrite>> entries_;
    std::u16string texts_;
};

}  // namespace engine::sqlite
