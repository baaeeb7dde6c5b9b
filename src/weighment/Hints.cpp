#include "weighment/Hints.h"

#include "platform/forms/core/KeyCodes.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"

#include <cmath>
#include <initializer_list>
#include <limits>
#include <string_view>

namespace Quillane {

namespace {

constexpr int CtrlShift = ShiftState::Ctrl + ShiftState::Shift;

bool IsOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
    for (const std::string_view each : names)
        if (name == each)
            return true;
    return false;
}

/// Bags may be counted in fractions, kilograms are whole.
bool MakesNumber(const PressedKey& key) {
    const bool digit = key.character >= U'0' && key.character <= U'9';
    return digit || (key.control == "Grid" && key.character == U'.');
}

std::string Listed(const std::vector<std::string>& parts) {
    std::string all;
    for (const std::string& part : parts)
        all += (all.empty() ? "" : ", ") + part;
    return all;
}

/// The number in "Arrival ID"; 0 where it is no number that a load can have.
std::int32_t NumberOf(const std::string& arrivalId) {
    const double number = RoundWeight(Val(arrivalId));
    const bool fits = std::abs(number) <= std::numeric_limits<std::int32_t>::max();
    return fits ? static_cast<std::int32_t>(number) : 0;
}

bool StaysInList(const HintState& state) {
    const bool leaves = state.key.code == Key::Tab || state.key.code == Key::Return;
    return leaves && state.key.control == state.active && !state.activeText.empty();
}

std::string AnswerOfList(const HintState& state) {
    if (state.active == "CboSeller" && !state.sellerListed && StaysInList(state))
        return "Not in the list: F4 opens it, F1 searches.";
    if (state.active == "CboCommodity" && !state.commodityListed && StaysInList(state))
        return "Not in the list: F4 opens it.";
    if (state.key.control == "CboSellerType" && !state.key.text.empty() &&
        state.active != "CboSellerType" && state.sellerType.empty())
        return "Seller Type was not in the list and is blank now.";
    if (state.key.control == "Grid" && !state.refusedCell.empty())
        return "\"" + state.refusedCell + "\" is not in the list of the cell: F4 opens it.";
    return {};
}

std::string AnswerOfLockedBox(const HintState& state) {
    if (IsOneOf(state.key.control, {"TxtInitialGrossWeight", "TxtTareWeight"}))
        return "This weight comes from the scale: use the buttons above.";
    if (state.key.control != "TxtWeight")
        return "This figure is computed, it cannot be typed.";
    return state.fullRights ? "The reading comes from the scale: Manual Weight lets you type it."
                            : "The reading comes from the scale.";
}

std::string AnswerOfCharacter(const HintState& state) {
    const PressedKey& key = state.key;
    if (key.locked)
        return AnswerOfLockedBox(state);
    const bool inCell = key.control == "Grid";
    if (key.number && !MakesNumber(key))
        return inCell ? "Only a number can be typed here." : "Whole kilograms only.";
    if (key.full && key.control == state.active && key.text == state.activeText)
        return "No more than " + std::to_string(key.limit) + " characters.";
    return {};
}

std::string AnswerOfShortcut(const PressedKey& key) {
    const char* const first =
        key.saveEnabled ? "Save or clear first." : "Open a stored load first (Ctrl+O).";
    if (key.code == 'S' && key.shift == ShiftState::Ctrl && !key.saveEnabled)
        return "Nothing has been changed yet, so there is nothing to save.";
    if (key.code == 'O' && key.shift == ShiftState::Ctrl && !key.openEnabled)
        return "Save or clear first.";
    if (key.code == Key::Delete && key.shift == CtrlShift && !key.removeEnabled)
        return first;
    if (key.code == Key::F9 && key.shift == ShiftState::None && !key.printEnabled)
        return first;
    if (key.code == Key::Escape && !key.drops && key.control != "DtpArrivalDate")
        return "Esc closes nothing here: Ctrl+Q closes the screen, Ctrl+L clears it.";
    return {};
}

std::string AnswerFor(const HintState& state) {
    const PressedKey& key = state.key;
    if (key.code == 0)
        return {};
    const bool takesWeight = IsOneOf(key.control, {"CmdGrossWeight", "CmdTareWeight"});
    if (takesWeight && key.code == Key::Space && !key.readingAboveZero)
        return "Nothing was taken: the reading is not above 0.";
    const std::string ofCharacter = key.character != 0 ? AnswerOfCharacter(state) : std::string();
    if (!ofCharacter.empty())
        return ofCharacter;
    const std::string ofShortcut = AnswerOfShortcut(key);
    return ofShortcut.empty() ? AnswerOfList(state) : ofShortcut;
}

void NoteNumber(const HintState& state, std::vector<std::string>& notes) {
    const std::int32_t number = NumberOf(state.arrivalId);
    if (number != 0 && number != state.arrivalNo) {
        notes.emplace_back("The search has changed the number of this load: press Ctrl+L first.");
        return;
    }
    const bool chosen = !state.isOpened && state.active != "TxtArrivalId" && number > 0 &&
                        state.proposedNo > 0 && number != state.proposedNo;
    if (chosen)
        notes.push_back(
            (number > state.proposedNo ? "The number jumps from " : "The number goes back from ") +
            std::to_string(state.proposedNo) + " to " + std::to_string(number) + ".");
}

void NoteWeights(const HintState& state, std::vector<std::string>& notes) {
    const bool tareToFollow = Val(state.gross) > 0 && Val(state.tare) == 0;
    if (tareToFollow)
        notes.emplace_back(state.isOpened ? "First weighing stored: tare to follow."
                                          : "First weighing: tare to follow.");
    if (Val(state.net) < 0)
        notes.emplace_back("The net weight is below 0.");
    if (state.manualWeight)
        notes.emplace_back("Manual Weight: the reading is typed.");
}

std::vector<std::string> NotesFor(const HintState& state) {
    std::vector<std::string> notes;
    const bool untouched = !state.saveEnabled && !state.isOpened;
    if (untouched && !state.savedId.empty())
        notes.push_back("Load " + state.savedId + " is saved.");
    NoteNumber(state, notes);
    if (!state.isOpened && state.date != state.today)
        notes.emplace_back("The date is not today.");
    NoteWeights(state, notes);
    return notes;
}

/// In the order of the validation, then of what a save fails on.
std::vector<std::string> MissingOf(const HintState& state) {
    std::vector<std::string> missing;
    const auto need = [&](bool given, const char* what) {
        if (!given)
            missing.emplace_back(what);
    };
    need(!Trim(state.arrivalId).empty() && Val(state.arrivalId) != 0, "Arrival ID");
    need(!state.seller.empty(), "Seller");
    need(!state.commodity.empty(), "Commodity");
    need(!state.vehicle.empty(), "Vehicle No");
    need(Val(state.gross) != 0, "Gross Weight");
    need(state.bagLines > 0, "a bag line");
    need(state.commodity.empty() || state.commodityListed, "a Commodity of the list");
    need(state.seller.empty() || state.sellerListed, "a Seller of the list");
    if (state.incompleteLine > 0)
        missing.push_back("class, type and quantity in bag line " +
                          std::to_string(state.incompleteLine));
    need(state.bagLines == 0 || state.incompleteLine > 0 || state.bags > 0.5, "more bags");
    return missing;
}

std::string MissingFor(const HintState& state) {
    const std::vector<std::string> missing = MissingOf(state);
    if (!missing.empty())
        return "Still needed: " + Listed(missing) + ".";
    if (state.saveEnabled)
        return "Ready to save.";
    return state.isOpened ? "Stored load; nothing is changed." : std::string();
}

void AddKeysOfControl(std::string_view active, std::vector<std::string>& keys) {
    if (active == "TxtArrivalId")
        keys.emplace_back("Enter opens a stored number");
    if (IsOneOf(active, {"CmdGrossWeight", "CmdTareWeight"}))
        keys.emplace_back("Space takes the reading");
    if (active == "CboSeller")
        keys.emplace_back("F1 search party");
    if (IsOneOf(active, {"CboSeller", "CboSellerType", "CboCommodity", "Grid"}))
        keys.emplace_back("F4 list");
    if (active == "DtpArrivalDate")
        keys.emplace_back("F4 calendar");
    if (active == "Grid")
        keys.emplace_back("Ctrl+Delete remove line");
}

std::vector<std::string> KeysFor(const HintState& state) {
    std::vector<std::string> keys;
    AddKeysOfControl(state.active, keys);
    if (state.saveEnabled)
        keys.emplace_back("Ctrl+S save");
    if (state.printEnabled)
        keys.emplace_back("F9 slip");
    if (state.removeEnabled && state.fullRights)
        keys.emplace_back("Ctrl+Shift+Delete remove");
    if (state.openEnabled)
        keys.emplace_back("Ctrl+O open");
    keys.emplace_back("Ctrl+L clear");
    keys.emplace_back("Ctrl+Q close");
    return keys;
}

} // namespace

Hints HintsFor(const HintState& state) {
    return {AnswerFor(state), NotesFor(state), MissingFor(state), KeysFor(state)};
}

} // namespace Quillane
