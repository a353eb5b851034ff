#include "platform/DeepStack.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <stdexcept>

namespace {

constexpr size_t Megabyte = size_t{1024} * 1024;

/// Goes down until so many bytes of the stack are in use.
int UseStack(size_t bytes) {
    std::array<char, 4096> room{};
    std::memset(room.data(), static_cast<int>(bytes % 100), room.size());
    const volatile char* kept = room.data();
    return bytes < room.size() ? 1 : 1 + UseStack(bytes - room.size()) * (kept[100] == kept[200] ? 1 : 0);
}

TEST(DeepStack, HasTheRoomThatWasAskedFor) {
    for (const size_t megabytes : {1U, 64U, 512U}) {
        int steps = 0;
        // The sanitizers' steps are larger.
        platform::RunOnDeepStack(megabytes * Megabyte, [&] { steps = UseStack(megabytes * Megabyte / 4); });
        EXPECT_GE(steps, static_cast<int>(megabytes * 64));
    }
}

TEST(DeepStack, WhatIsThrownArrives) {
    for (const size_t megabytes : {1U, 64U}) {
        EXPECT_THROW(
            platform::RunOnDeepStack(megabytes * Megabyte, [] { throw std::runtime_error("deep down"); }),
            std::runtime_error);
    }
}

TEST(DeepStack, MoreThanThereIsFails) {
    bool ran = false;
    EXPECT_THROW(platform::RunOnDeepStack(size_t{1} << 60U, [&] { ran = true; }), std::bad_alloc);
    EXPECT_FALSE(ran);
}

}  // namespace
