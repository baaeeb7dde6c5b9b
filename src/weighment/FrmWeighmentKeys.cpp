#include "weighment/FrmWeighment.h"

#include "data/modCommon.h"
#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/KeyCodes.h"
#include "platform/runtime/Failure.h"
#include "search/SchParty.h"

#include <algorithm>
#include <array>

namespace Quillane {

namespace {

constexpr int CtrlShift = ShiftState::Ctrl + ShiftState::Shift;

/// Keys that do not start a change of a shown record.
bool KeepsMode(int key) {
    if (key >= Key::F1 && key <= Key::F12)
        return true;
    constexpr std::array quiet{Key::Alt,  Key::Shift, Key::Control, Key::End,
                               Key::Left, Key::Up,    Key::Right,   Key::Down};
    return std::find(quiet.begin(), quiet.end(), key) != quiet.end();
}

bool IsShortcut(int key, int shift) {
    if (shift == CtrlShift)
        return key == Key::Delete;
    return shift == ShiftState::Ctrl && (key == 'L' || key == 'S' || key == 'Q' || key == 'O');
}

} // namespace

std::array<TextBox*, 6> FrmWeighment::NumberBoxes() {
    return {&TxtInitialGrossWeight, &TxtTareWeight, &TxtGrossWeight,
            &TxtShortage,           &TxtDeduction,  &TxtHeapNo};
}

void FrmWeighment::Form_KeyDown(int& key, int shift) {
    RememberKey(key, shift);
    try {
        HandleKeyDown(key, shift);
    } catch (const Failure&) {
        ShowError();
    }
}

void FrmWeighment::HandleKeyDown(int& key, int shift) {
    if (key == Key::Return)
        EnterAsTab(key);
    else if (IsShortcut(key, shift))
        HandleShortcut(key, shift);
    else if (key == Key::F1 && IsActive(CboSeller))
        SearchParty(key);
    else if (!KeepsMode(key) && !BtnSave.Enabled())
        EnterChangeMode();
}

void FrmWeighment::HandleShortcut(int& key, int shift) {
    if (shift == CtrlShift) {
        if (BtnRemove.Enabled())
            BtnRemove_Click();
    } else if (key == 'L') {
        key = 0;
        BtnClear_Click();
    } else if (key == 'S' && BtnSave.Enabled()) {
        if (MsgBox({"Are you sure to save this Weighment?", "Alert", BoxIcon::Question,
                    BoxButtons::YesNo}) == BoxAnswer::Yes)
            BtnSave_Click();
    } else if (key == 'Q' && BtnClose.Enabled()) {
        BtnClose_Click();
    } else if (key == 'O' && BtnOpen.Enabled()) {
        BtnOpen_Click();
    }
}

void FrmWeighment::SearchParty(int& key) {
    SchParty search;
    search.ShowModal(this);
    if (search.SelectedPartyName.empty())
        return;
    CboSeller.SetText(search.SelectedPartyName + "-" + search.SelectedPartyCity);
    key = 0;
}

void FrmWeighment::Form_KeyPress(int& character) {
    if (character == Key::Return)
        return;
    if (character != Key::Back)
        pressedKey_.character = static_cast<char32_t>(character);
    for (const TextBox* box : NumberBoxes())
        if (box == ActiveControl())
            AllowNumericKey(character, *box, false);
    if (!BtnSave.Enabled() && !ActiveControlIsButton())
        EnterChangeMode();
}

} // namespace Quillane
