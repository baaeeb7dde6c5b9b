#include "platform/forms/core/Pointer.h"

#include <QCursor>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace Quillane {
namespace {

TEST(MousePointerOfTheProgram, IsTheHourglassUntilItIsSetBack) {
    EXPECT_EQ(MousePointer::Default, CurrentMousePointer());
    SetMousePointer(MousePointer::Hourglass);
    SetMousePointer(MousePointer::Hourglass);
    EXPECT_EQ(MousePointer::Hourglass, CurrentMousePointer());
    EXPECT_EQ(Qt::WaitCursor, QGuiApplication::overrideCursor()->shape());
    SetMousePointer(MousePointer::Default);
    EXPECT_EQ(MousePointer::Default, CurrentMousePointer());
    EXPECT_EQ(nullptr, QGuiApplication::overrideCursor());
}

} // namespace
} // namespace Quillane
