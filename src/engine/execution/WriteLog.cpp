#include "engine/execution/WriteLog.h"

namespace engine::execution {

namespace {

// More than a fast machine writes in one group. Room that is not written to takes no memory, whereas room
// that grows takes its old and its new size at once, and keeps twice of what is needed.
constexpr size_t UsualEntries = 64UL * 1024;
constexpr size_t UsualCharacters = 8UL * 1024 * 1024;

// What the values of a changed row take, and those that it held before.
constexpr size_t MemoryOfARow = 2048;

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
        ++rows_;
    }
}

void WriteLog::Clear() {
    entries_.clear();
    texts_.clear();
    rows_ = 0;
}

Write WriteLog::At(size_t place) const {
    const auto& entry = entries_.at(place);
    if (const auto* text = std::get_if<TextPlace>(&entry)) {
        return QString::fromUtf16(texts_.data() + text->begin, text->size);
    }
    return std::get<RowWrite>(entry);
}

size_t WriteLog::Memory() const {
    return entries_.size() * sizeof(entries_[0]) + texts_.size() * sizeof(char16_t) + rows_ * MemoryOfARow;
}

}  // namespace engine::execution
