#pragma once

#include <string>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace velna::test {

/// Whether two files' bytes are equal; else the first line that differs, as both have it.
inline ::testing::AssertionResult sameBytes(const std::string& actual,
                                            const std::string& expected) {
    if (actual == expected) return ::testing::AssertionSuccess();
    std::size_t start = 0;
    int line = 1;
    for (std::size_t i = 0; i < actual.size() && i < expected.size() && actual[i] == expected[i];
         ++i)
        if (actual[i] == '\n') {
            start = i + 1;
            ++line;
        }
    const auto lineAt = [start](const std::string& text) {
        return start < text.size() ? text.substr(start, text.find('\n', start) - start) : "(end)";
    };
    return ::testing::AssertionFailure()
           << "line " << line << " is\n  " << lineAt(actual) << "\nand not\n  " << lineAt(expected);
}

}  // namespace velna::test
