// What the hint panel says, as a function of the state of the screen.

#include "weighment/Hints.h"

#include "platform/forms/core/KeyCodes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace Quillane {
namespace {

using Change = std::function<void(HintState&)>;
using Texts = std::vector<std::string>;

constexpr int CtrlShift = ShiftState::Ctrl + ShiftState::Shift;

/// A new screen with the number 1043 and today's date, the focus on the number.
HintState NewScreen() {
    const Date today{std::chrono::year(2026), std::chrono::month(11), std::chrono::day(20)};
    HintState state;
    state.active = "TxtArrivalId";
    state.arrivalId = "1043";
    state.arrivalNo = 1043;
    state.proposedNo = 1043;
    state.date = today;
    state.today = today;
    state.openEnabled = true;
    return state;
}

/// All that a save needs, entered and not yet saved.
HintState EnteredLoad() {
    HintState state = NewScreen();
    state.active = "TxtDriverName";
    state.seller = "Chaudhry Grain Traders-Okara";
    state.sellerListed = true;
    state.sellerType = "ALL";
    state.commodity = "Wheat";
    state.commodityListed = true;
    state.vehicle = "LEA-4521";
    state.gross = "8220";
    state.tare = "4320";
    state.net = "8203";
    state.bagLines = 2;
    state.bags = 100;
    state.saveEnabled = true;
    state.openEnabled = false;
    return state;
}

HintState StoredLoad() {
    HintState state = EnteredLoad();
    state.active = "DtpArrivalDate";
    state.isOpened = true;
    state.saveEnabled = false;
    state.openEnabled = state.printEnabled = state.removeEnabled = true;
    return state;
}

HintState With(HintState state, const Change& change) {
    change(state);
    return state;
}

/// A key pressed in the control that has the focus, with the buttons as they are.
HintState Pressed(HintState state, int code, int shift = ShiftState::None) {
    state.key = {.code = code,
                 .shift = shift,
                 .control = state.active,
                 .text = state.activeText,
                 .readingAboveZero = true,
                 .saveEnabled = state.saveEnabled,
                 .openEnabled = state.openEnabled,
                 .removeEnabled = state.removeEnabled,
                 .printEnabled = state.printEnabled};
    return state;
}

std::string AnswerOf(const HintState& state) {
    return HintsFor(state).answer;
}

bool Offers(const HintState& state, const std::string& key) {
    const Texts keys = HintsFor(state).keys;
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

TEST(Hints, ListWhatIsMissingInTheOrderOfTheValidation) {
    EXPECT_EQ(HintsFor(With(NewScreen(), [](HintState& s) { s.arrivalId = ""; })).missing,
              "Still needed: Arrival ID, Seller, Commodity, Vehicle No, Gross Weight, a bag line.");
    EXPECT_EQ(HintsFor(EnteredLoad()).missing, "Ready to save.");
}

TEST(Hints, NameEachMissingEntryByItself) {
    const std::pair<Change, const char*> cases[] = {
        {[](HintState& s) { s.arrivalId = "  "; }, "Arrival ID"},
        {[](HintState& s) { s.arrivalId = "0"; }, "Arrival ID"},
        {[](HintState& s) { s.arrivalId = "abc"; }, "Arrival ID"},
        {[](HintState& s) { s.seller = ""; }, "Seller"},
        {[](HintState& s) { s.commodity = ""; }, "Commodity"},
        {[](HintState& s) { s.vehicle = ""; }, "Vehicle No"},
        {[](HintState& s) { s.gross = ""; }, "Gross Weight"},
        {[](HintState& s) { s.gross = "0"; }, "Gross Weight"},
        {[](HintState& s) { s.bagLines = 0; }, "a bag line"},
        {[](HintState& s) { s.sellerListed = false; }, "a Seller of the list"},
        {[](HintState& s) { s.commodityListed = false; }, "a Commodity of the list"},
        {[](HintState& s) { s.incompleteLine = 2; }, "class, type and quantity in bag line 2"},
        {[](HintState& s) { s.bags = 0.5; }, "more bags"},
    };
    for (const auto& [change, missing] : cases)
        EXPECT_EQ(HintsFor(With(EnteredLoad(), change)).missing,
                  std::string("Still needed: ") + missing + ".");
}

// As the validation does: blanks count as a vehicle, and a weight below 0 as a weight.
TEST(Hints, CallNothingMissingThatASaveAccepts) {
    EXPECT_EQ(HintsFor(With(EnteredLoad(), [](HintState& s) { s.vehicle = " "; })).missing,
              "Ready to save.");
    EXPECT_EQ(HintsFor(With(EnteredLoad(), [](HintState& s) { s.gross = "-40"; })).missing,
              "Ready to save.");
}

TEST(Hints, SayOfAStoredLoadThatNothingIsChanged) {
    EXPECT_EQ(HintsFor(StoredLoad()).missing, "Stored load; nothing is changed.");
}

TEST(Hints, NoteWhatIsUnusual) {
    const auto savedEarlier = [](HintState& s) { s.savedId = "1042"; };
    const std::pair<HintState, Texts> cases[] = {
        {NewScreen(), {}},
        {EnteredLoad(), {}},
        {StoredLoad(), {}},
        {With(NewScreen(), savedEarlier), {"Load 1042 is saved."}},
        {With(EnteredLoad(), savedEarlier), {}},
        {With(StoredLoad(), savedEarlier), {}},
        {With(EnteredLoad(), [](HintState& s) { s.date = AddDays(s.date, -1); }),
         {"The date is not today."}},
        {With(StoredLoad(), [](HintState& s) { s.date = AddDays(s.date, -1); }), {}},
        {With(EnteredLoad(), [](HintState& s) { s.tare = ""; }),
         {"First weighing: tare to follow."}},
        {With(StoredLoad(), [](HintState& s) { s.tare = ""; }),
         {"First weighing stored: tare to follow."}},
        {With(EnteredLoad(), [](HintState& s) { s.net = "-40"; }), {"The net weight is below 0."}},
        {With(EnteredLoad(), [](HintState& s) { s.manualWeight = true; }),
         {"Manual Weight: the reading is typed."}},
    };
    for (const auto& [state, notes] : cases)
        EXPECT_EQ(HintsFor(state).notes, notes);
}

HintState Numbered(HintState state, const char* id, std::int32_t number) {
    state.arrivalId = id;
    state.arrivalNo = number;
    return state;
}

TEST(Hints, NoteANumberThatIsNotTheNextOne) {
    EXPECT_EQ(HintsFor(Numbered(EnteredLoad(), "33000", 33000)).notes,
              Texts{"The number jumps from 1043 to 33000."});
    EXPECT_EQ(HintsFor(Numbered(EnteredLoad(), "900", 900)).notes,
              Texts{"The number goes back from 1043 to 900."});
    EXPECT_EQ(HintsFor(Numbered(StoredLoad(), "900", 900)).notes, Texts{});
    const auto typing = [](HintState& s) { s.active = "TxtArrivalId"; };
    EXPECT_EQ(HintsFor(With(Numbered(EnteredLoad(), "33", 33), typing)).notes, Texts{})
        << "while the number is being typed";
    const auto noProposal = [](HintState& s) { s.proposedNo = 0; };
    EXPECT_EQ(HintsFor(With(Numbered(EnteredLoad(), "33", 33), noProposal)).notes, Texts{});
    EXPECT_EQ(HintsFor(Numbered(EnteredLoad(), "1E300", 1043)).notes, Texts{});
}

TEST(Hints, WarnThatACancelledSearchHasChangedTheNumber) {
    EXPECT_EQ(HintsFor(Numbered(StoredLoad(), "1042", 0)).notes,
              Texts{"The search has changed the number of this load: press Ctrl+L first."});
}

TEST(Hints, ExplainWhyAShortcutDidNothing) {
    const std::tuple<HintState, int, int, const char*> cases[] = {
        {NewScreen(), 'S', ShiftState::Ctrl,
         "Nothing has been changed yet, so there is nothing to save."},
        {EnteredLoad(), 'S', ShiftState::Ctrl, ""},
        {EnteredLoad(), 'O', ShiftState::Ctrl, "Save or clear first."},
        {StoredLoad(), 'O', ShiftState::Ctrl, ""},
        {EnteredLoad(), Key::Delete, CtrlShift, "Save or clear first."},
        {NewScreen(), Key::Delete, CtrlShift, "Open a stored load first (Ctrl+O)."},
        {StoredLoad(), Key::Delete, CtrlShift, ""},
        {EnteredLoad(), Key::F9, ShiftState::None, "Save or clear first."},
        {NewScreen(), Key::F9, ShiftState::None, "Open a stored load first (Ctrl+O)."},
        {StoredLoad(), Key::F9, ShiftState::None, ""},
        {EnteredLoad(), 'L', ShiftState::Ctrl, ""},
        {EnteredLoad(), 'S', ShiftState::None, ""},
        {EnteredLoad(), Key::Escape, ShiftState::None,
         "Esc closes nothing here: Ctrl+Q closes the screen, Ctrl+L clears it."},
        {StoredLoad(), Key::Escape, ShiftState::None, ""}, // the date takes it
        {NewScreen(), Key::Tab, ShiftState::None, ""},
        {NewScreen(), 0, ShiftState::None, ""},
    };
    for (const auto& [state, key, shift, answer] : cases)
        EXPECT_EQ(AnswerOf(Pressed(state, key, shift)), answer) << key << " with " << shift;
}

TEST(Hints, SayNothingOfAnEscThatClosesAList) {
    HintState state = Pressed(EnteredLoad(), Key::Escape);
    state.key.drops = true;
    EXPECT_EQ(AnswerOf(state), "");
}

// The screen is new again after the save: what counts is that Save was enabled before the key.
TEST(Hints, SayNothingOfTheSaveThatWasMade) {
    HintState state = Pressed(EnteredLoad(), 'S', ShiftState::Ctrl);
    state.saveEnabled = false;
    EXPECT_EQ(AnswerOf(state), "");
}

/// A character typed into a control; `after` is the text there now.
HintState Typed(const char* control, char32_t character, const char* before, const char* after) {
    HintState state = EnteredLoad();
    state.active = control;
    state.activeText = before;
    state = Pressed(state, static_cast<int>(character));
    state.key.character = character;
    state.activeText = after;
    return state;
}

TEST(Hints, ExplainWhyACharacterWasNotTaken) {
    const auto number = [](HintState& s) { s.key.number = true; };
    const auto locked = [](HintState& s) { s.key.locked = true; };
    const auto lockedForAll = [](HintState& s) {
        s.key.locked = true;
        s.fullRights = true;
    };
    const auto full = [](HintState& s) {
        s.key.limit = 4;
        s.key.full = true;
    };
    const std::pair<HintState, const char*> cases[] = {
        {With(Typed("TxtDeduction", U'x', "17", "17"), number), "Whole kilograms only."},
        {With(Typed("TxtDeduction", U'.', "17", "17"), number), "Whole kilograms only."},
        {With(Typed("TxtDeduction", U'5', "17", "175"), number), ""},
        {With(Typed("TxtDeduction", U'5', "1751", "1751"), full), "No more than 4 characters."},
        {With(Typed("TxtDeduction", U'5', "1751", "5"), full), ""}, // over a selection
        {With(Typed("Grid", U'x', "", ""), number), "Only a number can be typed here."},
        {With(Typed("Grid", U'.', "", ""), number), ""},
        {With(Typed("Grid", U'7', "", ""), number), ""},
        {Typed("Grid", U'J', "", ""), ""},
        {With(Typed("TxtTareWeight", U'7', "", ""), locked),
         "This weight comes from the scale: use the buttons above."},
        {With(Typed("TxtInitialGrossWeight", U'7', "", ""), locked),
         "This weight comes from the scale: use the buttons above."},
        {With(Typed("TxtNetWeight", U'7', "", ""), locked),
         "This figure is computed, it cannot be typed."},
        {With(Typed("TxtWeight", U'7', "", ""), locked), "The reading comes from the scale."},
        {With(Typed("TxtWeight", U'7', "", ""), lockedForAll),
         "The reading comes from the scale: Manual Weight lets you type it."},
        {Typed("TxtVehicleNo", U'7', "", "7"), ""},
    };
    for (const auto& [state, answer] : cases)
        EXPECT_EQ(AnswerOf(state), answer) << state.active;
}

/// Enter or Tab in a list whose text is in no row.
HintState LeftUnlisted(const char* control, int key) {
    HintState state = EnteredLoad();
    state.active = control;
    state.activeText = "Chuhan";
    state.sellerListed = state.commodityListed = false;
    return Pressed(state, key);
}

TEST(Hints, ExplainWhyTheFocusStaysInAList) {
    for (const int key : {Key::Tab, Key::Return}) {
        EXPECT_EQ(AnswerOf(LeftUnlisted("CboSeller", key)),
                  "Not in the list: F4 opens it, F1 searches.");
        EXPECT_EQ(AnswerOf(LeftUnlisted("CboCommodity", key)), "Not in the list: F4 opens it.");
    }
    EXPECT_EQ(AnswerOf(LeftUnlisted("CboSeller", 'C')), "") << "still being typed";
    const auto chosen = [](HintState& s) { s.sellerListed = true; };
    EXPECT_EQ(AnswerOf(With(LeftUnlisted("CboSeller", Key::Tab), chosen)), "");
    const auto movedOn = [](HintState& s) { s.key.control = "CboSellerType"; };
    EXPECT_EQ(AnswerOf(With(LeftUnlisted("CboSeller", Key::Tab), movedOn)), "");
}

TEST(Hints, ReportASellerTypeThatWasBlanked) {
    HintState state = LeftUnlisted("CboSellerType", Key::Tab);
    state.active = "CboSeller";
    state.activeText = "";
    state.sellerType = "";
    EXPECT_EQ(AnswerOf(state), "Seller Type was not in the list and is blank now.");
    state.sellerType = "ALL";
    EXPECT_EQ(AnswerOf(state), "");
}

TEST(Hints, ExplainWhyACellKeptItsName) {
    HintState state = EnteredLoad();
    state.active = "Grid";
    state = Pressed(state, Key::Tab);
    state.active = "TxtDeduction";
    state.refusedCell = "Jutx";
    EXPECT_EQ(AnswerOf(state), "\"Jutx\" is not in the list of the cell: F4 opens it.");
    state.key.control = "TxtDeduction";
    EXPECT_EQ(AnswerOf(state), "") << "an answer to the key before";
}

TEST(Hints, ExplainWhyNoWeightWasTaken) {
    for (const char* button : {"CmdGrossWeight", "CmdTareWeight"}) {
        HintState state = EnteredLoad();
        state.active = button;
        state = Pressed(state, Key::Space);
        EXPECT_EQ(AnswerOf(state), "");
        state.key.readingAboveZero = false;
        EXPECT_EQ(AnswerOf(state), "Nothing was taken: the reading is not above 0.");
        state.key.code = Key::Return;
        EXPECT_EQ(AnswerOf(state), "") << "Enter only moves on";
    }
}

TEST(Hints, OfferTheKeysThatWorkInEachState) {
    EXPECT_EQ(HintsFor(NewScreen()).keys, (Texts{"Enter opens a stored number", "Ctrl+O open",
                                                 "Ctrl+L clear", "Ctrl+Q close"}));
    EXPECT_EQ(HintsFor(EnteredLoad()).keys, (Texts{"Ctrl+S save", "Ctrl+L clear", "Ctrl+Q close"}));
    EXPECT_EQ(HintsFor(StoredLoad()).keys, (Texts{
                                               "F4 calendar",
                                               "F9 slip",
                                               "Ctrl+O open",
                                               "Ctrl+L clear",
                                               "Ctrl+Q close",
                                           }));
    EXPECT_TRUE(Offers(With(StoredLoad(), [](HintState& s) { s.fullRights = true; }),
                       "Ctrl+Shift+Delete remove"));
}

TEST(Hints, OfferTheKeysOfTheControlThatHasTheFocus) {
    const std::pair<const char*, Texts> cases[] = {
        {"CboSeller", {"F1 search party", "F4 list"}},
        {"CboCommodity", {"F4 list"}},
        {"CboSellerType", {"F4 list"}},
        {"CmdGrossWeight", {"Space takes the reading"}},
        {"CmdTareWeight", {"Space takes the reading"}},
        {"Grid", {"F4 list", "Ctrl+Delete remove line"}},
        {"DtpArrivalDate", {"F4 calendar"}},
        {"TxtArrivalId", {"Enter opens a stored number"}},
    };
    for (const auto& [control, keys] : cases) {
        HintState state = EnteredLoad();
        state.active = control;
        for (const std::string& key : keys)
            EXPECT_TRUE(Offers(state, key)) << control << ": " << key;
    }
    EXPECT_FALSE(
        Offers(With(EnteredLoad(), [](HintState& s) { s.active = "TxtVehicleNo"; }), "F4 list"));
}

} // namespace
} // namespace Quillane
