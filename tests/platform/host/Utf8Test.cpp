#include "platform/host/Utf8.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

TEST(IsUtf8, RefusesTextInAnotherEncoding) {
    EXPECT_TRUE(IsUtf8(""));
    EXPECT_TRUE(IsUtf8("plain"));
    EXPECT_TRUE(IsUtf8("Zoë"));
    EXPECT_FALSE(IsUtf8("Zo\xEB"));
    EXPECT_FALSE(IsUtf8("cut\xC3"));
}

} // namespace
} // namespace Quillane
