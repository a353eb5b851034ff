#include "platform/Failure.h"
#include "platform/Rounding.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using platform::ToInteger;
using platform::ToLong;

template <typename Action>
int FailureNumberOf(Action action) {
    try {
        action();
    } catch (const platform::Failure& failure) {
        return failure.Number();
    }
    return 0;
}

TEST(Rounding, TiesGoToTheEvenNeighbour) {
    EXPECT_EQ(ToInteger(2.5), 2);
    EXPECT_EQ(ToInteger(3.5), 4);
    EXPECT_EQ(ToInteger(-2.5), -2);
    EXPECT_EQ(ToLong(0.5), 0);
    EXPECT_EQ(ToLong(100000.5), 100000);
    EXPECT_EQ(ToLong(100001.5), 100002);
}

TEST(Rounding, WhatDoesNotFitSixteenBitsOverflows) {
    EXPECT_EQ(ToInteger(32767.5 - 0.1), 32767);
    EXPECT_EQ(ToInteger(-32768.5), -32768);
    EXPECT_EQ(FailureNumberOf([] { ToInteger(32767.5); }), 6);
    EXPECT_EQ(FailureNumberOf([] { ToInteger(-32769.0); }), 6);
    EXPECT_EQ(FailureNumberOf([] { ToInteger(std::nan("")); }), 6);
}

TEST(Rounding, WhatDoesNotFitThirtyTwoBitsOverflows) {
    EXPECT_EQ(ToLong(2147483647.0), 2147483647);
    EXPECT_EQ(FailureNumberOf([] { ToLong(2147483648.0); }), 6);
    EXPECT_EQ(FailureNumberOf([] { ToLong(-INFINITY); }), 6);
}

}  // namespace
