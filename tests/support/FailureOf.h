#pragma once

#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>

#include <utility>

namespace Quillane {

/// Returns the failure that an action throws; an action that succeeds fails the test.
template <typename Action>
Failure FailureOf(Action action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure;
    }
    ADD_FAILURE() << "the action has not failed";
    return {0, "no failure was thrown"};
}

template <typename Action>
int FailureNumberOf(Action action) {
    return FailureOf(std::move(action)).Number();
}

/// The text of a failure of the database.
template <typename Action>
std::string DatabaseFailureOf(Action action) {
    const Failure failure = FailureOf(std::move(action));
    EXPECT_EQ(failure.Source(), FailureSource::Database);
    return failure.Description();
}

} // namespace Quillane
