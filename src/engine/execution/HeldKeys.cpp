#include "engine/execution/HeldKeys.h"

namespace engine::execution {

HeldKeys::HeldKeys(HeldKeysList& list) : list_(list) {
    list_.held_.push_back(this);
}

HeldKeys::~HeldKeys() {
    std::erase(list_.held_, this);
}

void HeldKeysList::GroupEnded() {
    for (HeldKeys* held : held_) {
        held->readAt = 0;
    }
}

void HeldKeysList::Follow(const MadeRows& rows) {
    for (HeldKeys* held : held_) {
        for (qint64& key : held->keys) {
            key = rows.Find(*held->table, key, held->readAt).key.value_or(KeyOfNoRow);
        }
    }
}

}  // namespace engine::execution
