#pragma once

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <sstream>

/// Checks a property on so many random cases; a failure of the test shows the smallest case that breaks it.
template <typename Testable>
void CheckMany(int cases, Testable&& property) {
    rc::detail::TestParams params = rc::detail::configuration().testParams;
    params.maxSuccess = cases;
    const rc::detail::TestResult result =
        rc::detail::checkTestable(std::forward<Testable>(property), rc::detail::TestMetadata(), params);
    if (!result.is<rc::detail::SuccessResult>()) {
        std::ostringstream message;
        rc::detail::printResultMessage(result, message);
        FAIL() << message.str();
    }
}

/// A random number from first to last, spread evenly over the whole range in every case.
inline int Draw(int first, int last) {
    constexpr int FullSize = 100;
    return *rc::gen::resize(FullSize, rc::gen::inRange(first, last + 1));
}

/// True in so many of a hundred cases.
inline bool Chance(int percent) {
    return Draw(1, 100) <= percent;
}
