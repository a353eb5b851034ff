#include "engine/sqlite/WriteLog.h"

namespace engine::sqlite {

namespace {

// More than a fast machine writes in one group. Room that is not written to takes no memory, whereas room
// that grows takes its old and its new size at once, and keeps twice of what is needed.
constexpr size_t UsualEntries = 64UL * 1024;
constexpr size_t UsualCharacters = 8UL * 1024 * 1024;

}  // namespace

WriteLog::WriteLog() {
    entries_.reserve(UsualEntries);
    texts_.reserve(UsualCharacters);
}

void WriteLog::Add(Write&& write) {
    if (const auto* text = std::get_if<QString>(&write)) {
        entries_.emplace_back(TextPlace{texts_.size(), text->size()});
        texts_.append(QStringView(*text).utf16(), static_cast<size_t>(text->size()));
    } else {
        entries_.emplace_back(std::get<RowWrite>(std::move(write)));
    }
}

void WriteLog::Clear() {
    entries_.clear();
    texts_.clear();
}

std::vector<Write> WriteLog::TakeAll() {
    std::vector<Write> writes;
    writes.reserve(entries_.size());
    for (auto& entry : entries_) {
        if (const auto* place = std::get_if<TextPlace>(&entry)) {
            writes.emplace_back(QString::fromUtf16(texts_.data() + place->begin, place->size));
        } else {
            writes.emplace_back(std::get<RowWrite>(std::move(entry)));
        }
    }
    Clear();
    return writes;
}

}  // namespace engine::sqlite
