#pragma once

#include "FileCheck.h"

#include <gtest/gtest.h>

namespace engine::jet {

/// That nothing is wrong with a file (FaultsOf), for an expectation.
inline ::testing::AssertionResult IsSound(const QByteArray& file, FileOf whose = FileOf::Ours) {
    const std::vector<std::string> faults = FaultsOf(file, whose);
    if (faults.empty()) {
        return ::testing::AssertionSuccess();
    }
    ::testing::AssertionResult result = ::testing::AssertionFailure();
    for (const std::string& fault : faults) {
        result << "\n" << fault;
    }
    return result;
}

}  // namespace engine::jet
