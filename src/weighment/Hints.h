#pragma once

#include "platform/runtime/Date.h"

#include <cstdint>
#include <string>
#include <vector>

/// What the hint panel of the weighment screen says. It follows from the state of the screen alone:
/// no statement is run for it and nothing is written.
namespace Quillane {

/// The key that was pressed last, and the screen as it was just before.
struct PressedKey {
    int code = 0; ///< 0: none yet
    int shift = 0;
    char32_t character = 0; ///< what it types; 0: nothing
    std::string control;    ///< the name of the control that had the focus
    std::string text;       ///< of that control; empty where it has none
    bool locked = false;    ///< it was a box that cannot be typed into
    int limit = 0;          ///< the longest text that it takes; 0: no limit
    bool full = false;      ///< its text is as long as that
    bool number = false;    ///< it takes numbers only
    bool drops = false;     ///< a list was open or a cell was being edited
    bool readingAboveZero = false;
    bool saveEnabled = false;
    bool openEnabled = false;
    bool removeEnabled = false;
    bool printEnabled = false;
};

/// What the hints depend on. Texts of boxes are as shown.
struct HintState {
    std::string active; ///< the name of the control that has the focus
    std::string arrivalId;
    std::int32_t arrivalNo = 0;
    std::int32_t proposedNo = 0; ///< the number that the program last proposed; 0: none
    std::string savedId;         ///< the number of the load saved last; empty: none
    std::string seller;
    std::string sellerType;
    std::string commodity;
    bool sellerListed = false; ///< the list has a current row
    bool commodityListed = false;
    std::string vehicle;
    std::string tare;
    std::string gross;
    std::string net;
    int bagLines = 0;
    int incompleteLine = 0; ///< the first bag line without class, type or quantity; 0: none
    double bags = 0;
    std::string refusedCell; ///< what the last edit of a bag line lost, since no list holds it
    std::string activeText;  ///< of the control that has the focus
    Date date{};
    Date today{};
    bool isOpened = false;
    bool manualWeight = false;
    bool fullRights = false; ///< a user of level 1
    bool saveEnabled = false;
    bool openEnabled = false;
    bool removeEnabled = false;
    bool printEnabled = false;
    PressedKey key;
};

struct Hints {
    std::string answer;             ///< why the last key did nothing; empty if it did something
    std::vector<std::string> notes; ///< what is unusual about the load
    std::string missing;            ///< what a save still needs
    std::vector<std::string> keys;  ///< the keys that work now

    bool operator==(const Hints&) const = default;
};

Hints HintsFor(const HintState& state);

} // namespace Quillane
