#pragma once

#include "engine/execution/MadeRows.h"

#include <QtGlobal>

#include <limits>
#include <vector>

namespace engine::execution {

class HeldKeysList;

/// The keys of rows that a row set holds on to while writes go on. They follow rows that get other keys.
class HeldKeys {
public:
    explicit HeldKeys(HeldKeysList& list);
    ~HeldKeys();
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;

    const TableSchema* table = nullptr;
    std::vector<qint64> keys;
    /// How many writes of the present group had been done when the keys were read.
    size_t readAt = 0;

private:
    HeldKeysList& list_;
};

/// The key of a row that has been lost. No row has it, short of a file that was made to have it.
inline constexpr qint64 KeyOfNoRow = std::numeric_limits<qint64>::min();

/// All that are held on a database.
class HeldKeysList {
public:
    /// The group has reached the disk: its rows keep their keys from now on.
    void GroupEnded();

    /// The writes of the group have run a second time.
    void Follow(const MadeRows& rows);

private:
    friend class HeldKeys;
    std::vector<HeldKeys*> held_;
};

}  // namespace engine::execution
