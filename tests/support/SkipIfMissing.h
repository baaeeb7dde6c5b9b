#pragma once

#include <gtest/gtest.h>

#include <string>

/// Skips a test, or all tests of a fixture from its `SetUp`, if this machine lacks what it needs.
/// The argument is a text that says what is missing and how to get it; empty if nothing is.
#define SKIP_IF_MISSING(why)                                                                       \
    if (const std::string missing = (why); !missing.empty())                                       \
    GTEST_SKIP() << missing
