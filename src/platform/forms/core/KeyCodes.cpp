#include "platform/forms/core/KeyCodes.h"

#include <QKeyEvent>

#include <array>
#include <string_view>
#include <utility>

namespace Quillane {

namespace {

constexpr int Unnamed = 255;

constexpr std::array<std::pair<int, int>, 30> Named{{
    {Qt::Key_Backspace, Key::Back},
    {Qt::Key_Tab, Key::Tab},
    {Qt::Key_Backtab, Key::Tab},
    {Qt::Key_Clear, 12},
    {Qt::Key_Return, Key::Return},
    {Qt::Key_Enter, Key::Return},
    {Qt::Key_Shift, Key::Shift},
    {Qt::Key_Control, Key::Control},
    {Qt::Key_Alt, Key::Alt},
    {Qt::Key_AltGr, Key::Alt},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, Key::Escape},
    {Qt::Key_Space, Key::Space},
    {Qt::Key_PageUp, Key::PageUp},
    {Qt::Key_PageDown, Key::PageDown},
    {Qt::Key_End, Key::End},
    {Qt::Key_Home, Key::Home},
    {Qt::Key_Left, Key::Left},
    {Qt::Key_Up, Key::Up},
    {Qt::Key_Right, Key::Right},
    {Qt::Key_Down, Key::Down},
    {Qt::Key_Print, 44},
    {Qt::Key_Insert, Key::Insert},
    {Qt::Key_Delete, Key::Delete},
    {Qt::Key_Meta, 91},
    {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
    {Qt::Key_Help, 47},
}};

// A digit with Shift arrives as the other character of its key.
constexpr std::string_view SignsAboveDigits = ")!@#$%^&*(";

// The punctuation keys, each with its character without and with Shift.
constexpr std::array<std::pair<std::string_view, int>, 11> Punctuation{{
    {";:", 186},
    {"=+", 187},
    {",<", 188},
    {"-_", 189},
    {".>", 190},
    {"/?", 191},
    {"`~", 192},
    {"[{", 219},
    {"\\|", 220},
    {"]}", 221},
    {"'\"", 222},
}};

int CodeOfCharacter(char character) {
    if ((character >= 'A' && character <= 'Z') || (character >= '0' && character <= '9'))
        return character;
    if (const auto digit = SignsAboveDigits.find(character); digit != std::string_view::npos)
        return '0' + static_cast<int>(digit);
    for (const auto& [characters, code] : Punctuation)
        if (characters.find(character) != std::string_view::npos)
            return code;
    return Unnamed;
}

} // namespace

int KeyCodeOf(const QKeyEvent& event) {
    const int key = event.key();
    for (const auto& [qt, code] : Named)
        if (key == qt)
            return code;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return Key::F1 + key - Qt::Key_F1;
    return key > 0x20 && key < 0x7F ? CodeOfCharacter(static_cast<char>(key)) : Unnamed;
}

int ShiftStateOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    const bool shift = modifiers & Qt::ShiftModifier || event.key() == Qt::Key_Backtab;
    return (shift ? ShiftState::Shift : 0) |
           (modifiers & Qt::ControlModifier ? ShiftState::Ctrl : 0) |
           (modifiers & Qt::AltModifier ? ShiftState::Alt : 0);
}

} // namespace Quillane
