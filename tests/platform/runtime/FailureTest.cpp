#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

TEST(Failure, HasNumberDescriptionAndSource) {
    const Failure failure(8018, "Port 1 is closed.", FailureSource::SerialLine);
    EXPECT_EQ(failure.Number(), 8018);
    EXPECT_EQ(failure.Description(), "Port 1 is closed.");
    EXPECT_EQ(failure.Source(), "Serial line");
}

TEST(Failure, DefaultSourceIsTheProgram) {
    EXPECT_EQ(Failure(5, "x").Source(), "Quillane");
    EXPECT_EQ(Failure(5, "x", "").Source(), "");
}

TEST(Fail, DescriptionBelongsToTheNumber) {
    const std::pair<int, const char*> cases[] = {
        {5, "Invalid procedure call or argument"},
        {6, "Overflow"},
        {9, "Subscript out of range"},
        {11, "Division by zero"},
        {13, "Type mismatch"},
        {53, "File not found"},
        {62, "Input past end of file"},
        {75, "Path/File access error"},
        {94, "Invalid use of Null"},
        {1, "Application-defined or object-defined error"},
    };
    for (const auto& [number, description] : cases) {
        try {
            Fail(number);
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), number);
            EXPECT_EQ(failure.Description(), description);
            EXPECT_EQ(failure.Source(), "Quillane");
        }
    }
}

} // namespace
} // namespace Quillane
