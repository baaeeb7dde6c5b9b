#include "platform/forms/core/KeyCodes.h"

#include <QKeyEvent>

#include <gtest/gtest.h>

namespace Quillane {
namespace {

struct KeyCase {
    int qtKey;
    Qt::KeyboardModifiers modifiers;
    int code;
    int shift;
};

void PrintTo(const KeyCase& each, std::ostream* out) {
    *out << "Qt key " << each.qtKey << " with modifiers " << each.modifiers.toInt();
}

class KeyCodes : public testing::TestWithParam<KeyCase> {};

TEST_P(KeyCodes, AreTheVirtualOnes) {
    const KeyCase& each = GetParam();
    const QKeyEvent event(QEvent::KeyPress, each.qtKey, each.modifiers);
    EXPECT_EQ(each.code, KeyCodeOf(event));
    EXPECT_EQ(each.shift, ShiftStateOf(event));
}

constexpr auto Plain = Qt::NoModifier;
INSTANTIATE_TEST_SUITE_P(
    Table, KeyCodes,
    testing::Values(KeyCase{Qt::Key_S, Qt::ControlModifier, 'S', ShiftState::Ctrl},
                    KeyCase{Qt::Key_S, Plain, 'S', ShiftState::None},
                    KeyCase{Qt::Key_7, Plain, '7', ShiftState::None},
                    KeyCase{Qt::Key_7, Qt::KeypadModifier, '7', ShiftState::None},
                    KeyCase{Qt::Key_Exclam, Qt::ShiftModifier, '1', ShiftState::Shift},
                    KeyCase{Qt::Key_ParenLeft, Qt::ShiftModifier, '9', ShiftState::Shift},
                    KeyCase{Qt::Key_Apostrophe, Plain, 222, ShiftState::None},
                    KeyCase{Qt::Key_QuoteDbl, Qt::ShiftModifier, 222, ShiftState::Shift},
                    KeyCase{Qt::Key_Period, Plain, 190, ShiftState::None},
                    KeyCase{Qt::Key_Return, Plain, Key::Return, ShiftState::None},
                    KeyCase{Qt::Key_Enter, Qt::KeypadModifier, Key::Return, ShiftState::None},
                    KeyCase{Qt::Key_Tab, Plain, Key::Tab, ShiftState::None},
                    KeyCase{Qt::Key_Backtab, Plain, Key::Tab, ShiftState::Shift},
                    KeyCase{Qt::Key_Backtab, Qt::ShiftModifier, Key::Tab, ShiftState::Shift},
                    KeyCase{Qt::Key_Delete, Qt::ControlModifier | Qt::ShiftModifier, Key::Delete,
                            ShiftState::Ctrl + ShiftState::Shift},
                    KeyCase{Qt::Key_Backspace, Plain, Key::Back, ShiftState::None},
                    KeyCase{Qt::Key_Escape, Plain, Key::Escape, ShiftState::None},
                    KeyCase{Qt::Key_PageUp, Plain, Key::PageUp, ShiftState::None},
                    KeyCase{Qt::Key_Home, Plain, Key::Home, ShiftState::None},
                    KeyCase{Qt::Key_End, Plain, Key::End, ShiftState::None},
                    KeyCase{Qt::Key_Up, Qt::AltModifier, Key::Up, ShiftState::Alt},
                    KeyCase{Qt::Key_F1, Plain, Key::F1, ShiftState::None},
                    KeyCase{Qt::Key_F12, Plain, Key::F12, ShiftState::None},
                    KeyCase{Qt::Key_Shift, Plain, Key::Shift, ShiftState::Shift},
                    KeyCase{Qt::Key_Control, Plain, Key::Control, ShiftState::Ctrl},
                    KeyCase{Qt::Key_Space, Plain, Key::Space, ShiftState::None},
                    KeyCase{0x0627, Plain, 255, ShiftState::None},
                    KeyCase{Qt::Key_VolumeUp, Plain, 255, ShiftState::None}));

} // namespace
} // namespace Quillane
