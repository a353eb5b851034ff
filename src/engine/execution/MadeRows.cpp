#include "engine/execution/MadeRows.h"

#include <algorithm>

namespace engine::execution {

namespace {

std::optional<qint64> KeyAt(const std::vector<KeyRun>& runs, qint64 ordinal) {
    for (const KeyRun& run : runs) {
        if (ordinal < run.count) {
            return run.first + ordinal;
        }
        ordinal -= run.count;
    }
    return std::nullopt;
}

}  // namespace

void MadeRows::Add(size_t place, size_t writes, const TableSchema& table, const std::vector<KeyRun>& keys) {
    qint64 before = 0;
    for (const KeyRun& run : keys) {
        if (writes == 1) {
            made_.push_back({place, 1, &table, run, before});
        } else {
            made_.push_back(
                {place + static_cast<size_t>(before), static_cast<size_t>(run.count), &table, run, 0});
        }
        before += run.count;
    }
}

std::vector<KeyRun> MadeRows::FirstKeys(size_t place) const {
    // The first one that reaches as far as the place.
    auto made = std::partition_point(made_.begin(), made_.end(),
                                     [place](const Made& rows) { return rows.place + rows.writes <= place; });
    std::vector<KeyRun> keys;
    for (; made != made_.end() && made->place <= place; ++made) {
        if (made->writes == 1) {
            keys.push_back(made->keys);
        } else {
            keys.push_back({made->keys.first + static_cast<qint64>(place - made->place), 1});
        }
    }
    return keys;
}

void MadeRows::MadeAgain(size_t place, const std::vector<KeyRun>& keys) {
    // Mostly all rows get the keys that they had, and nothing has to be kept.
    if (keys == FirstKeys(place)) {
        others_.erase(place);
    } else {
        others_[place] = keys;
    }
}

qint64 MadeRows::CountOf(size_t place) const {
    qint64 count = 0;
    for (const KeyRun& run : FirstKeys(place)) {
        count += run.count;
    }
    return count;
}

bool MadeRows::Has(const TableSchema& table, qint64 key) const {
    return std::any_of(made_.begin(), made_.end(), [&table, key](const Made& made) {
        return made.table == &table && made.keys.PlaceOf(key) < static_cast<quint64>(made.keys.count);
    });
}

MadeRows::Row MadeRows::Find(const TableSchema& table, qint64 key, size_t place) const {
    if (others_.empty()) {
        return {key};
    }
    // From the end: a key that was freed by a removal may have been given again.
    for (size_t after = made_.size(); after > 0; --after) {
        const auto& made = made_[after - 1];
        const quint64 offset = made.keys.PlaceOf(key);
        if (made.table != &table || offset >= static_cast<quint64>(made.keys.count)) {
            continue;
        }
        const size_t maker = made.writes == 1 ? made.place : made.place + offset;
        if (maker >= place) {
            continue;
        }
        const auto others = others_.find(maker);
        if (others == others_.end()) {
            return {key};
        }
        return {KeyAt(others->second, made.writes == 1 ? made.rowsBefore + static_cast<qint64>(offset) : 0),
                maker};
    }
    return {key};
}

void MadeRows::Clear() {
    made_.clear();
    others_.clear();
}

}  // namespace engine::execution
