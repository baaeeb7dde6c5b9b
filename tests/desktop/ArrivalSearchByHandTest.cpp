// The search for a stored load, with the keyboard only and with the mouse.

#include "StoredLoad.h"
#include "platform/runtime/Date.h"
#include "search/SchArrivals.h"

namespace Quillane::Testing {
namespace {

std::string Digits(std::string text) {
    std::erase_if(text, [](char character) { return character < '0' || character > '9'; });
    return text;
}

class ArrivalSearchByHand : public StoredLoad {
protected:
    static SchArrivals& Open(Operator& by) {
        by.UntilActive("TxtArrivalId");
        by.Press({"ctrl+o"});
        by.UntilInFront("Search Arrivals");
        by.UntilActive("TxtFilterId");
        return by.Shown<SchArrivals>();
    }
    static void UntilListed(const Operator& by, const SchArrivals& search, int lines) {
        by.Until(std::to_string(lines) + " lines", [&] { return search.GrdSch.Rows() == lines; });
    }
    /// Nothing was selected: the screen below has no `ArrivalNo` any more and is otherwise
    /// unchanged.
    static void ExpectNothingChosen(const Operator& by, const FrmWeighment& screen) {
        by.UntilInFront("Weighment for Veltrane");
        by.Until("no number", [&] { return screen.ArrivalNo == 0; });
        EXPECT_EQ(by.See([&] { return screen.TxtArrivalId.Text(); }), "1043");
        EXPECT_EQ(Buttons(by, screen), "Open ");
        by.UntilActive("TxtArrivalId");
    }
};

TEST_F(ArrivalSearchByHand, EnterMovesThroughTheFiltersAndSelectsTheCurrentLine) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        SchArrivals& search = Open(by);
        UntilListed(by, search, 12);
        by.Press({"Return"});
        by.UntilActive("TxtFilter");
        by.Type("gr");
        UntilListed(by, search, 5);
        by.Press({"Return"});
        by.UntilActive("GrdSch");
        by.Press({"Down", "Down", "Down", "Up"});
        by.Picture("arrival-search");
        by.Press({"Return"});
        UntilStored(by, screen, 1035);
    });
}

TEST_F(ArrivalSearchByHand, FiltersByIdAndByDates) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        SchArrivals& search = Open(by);
        by.Type("1038");
        UntilListed(by, search, 1);
        by.Press({"ctrl+a", "BackSpace"});
        UntilListed(by, search, 12);
        by.Press({"shift+Tab"});
        by.UntilActive("DtpToDate");
        const Date last = by.See([] { return AddDays(Today(), -200); });
        by.Press({"Home"});
        by.Type(Digits(ShownDate(last)));
        UntilListed(by, search, 2);
        by.Press({"Tab", "Return", "Return"});
        by.UntilActive("GrdSch");
        by.Press({"End", "Return"});
        UntilStored(by, screen, 1031);
    });
}

struct Key {
    const char* name;
    const char* key;
};

std::string NameOf(const testing::TestParamInfo<Key>& key) {
    return key.param.name;
}

class TakingKey : public ArrivalSearchByHand, public testing::WithParamInterface<Key> {};

TEST_P(TakingKey, OnTheListSelectsTheLine) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        Open(by);
        by.Press({"Return", "Return"});
        by.UntilActive("GrdSch");
        by.Press({"Down", GetParam().key});
        UntilStored(by, screen, 1041);
    });
}

INSTANTIATE_TEST_SUITE_P(ArrivalSearch, TakingKey,
                         testing::Values(Key{"Enter", "Return"}, Key{"KeypadEnter", "KP_Enter"},
                                         Key{"ShiftEnter", "shift+Return"}),
                         NameOf);

class LeavingKey : public ArrivalSearchByHand, public testing::WithParamInterface<Key> {};

TEST_P(LeavingKey, ClosesWithoutASelectionFromTheFilterAndFromTheList) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        Open(by);
        by.Press({GetParam().key});
        ExpectNothingChosen(by, screen);
        Open(by);
        by.Press({"Return", "Return"});
        by.UntilActive("GrdSch");
        by.Press({"Down", GetParam().key});
        ExpectNothingChosen(by, screen);
    });
}

INSTANTIATE_TEST_SUITE_P(ArrivalSearch, LeavingKey,
                         testing::Values(Key{"Esc", "Escape"}, Key{"CtrlQ", "ctrl+q"},
                                         Key{"AltF4", "alt+F4"}),
                         NameOf);

TEST_F(ArrivalSearchByHand, PressesItsButtonsByEnter) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        Open(by);
        by.Press({"Return", "Return", "Tab", "Tab"});
        by.UntilActive("BtnClose");
        by.Press({"Return"});
        ExpectNothingChosen(by, screen);
        Open(by);
        by.Press({"Return", "Return", "Down", "Tab"});
        by.UntilActive("BtnSelect");
        by.Press({"Return"});
        UntilStored(by, screen, 1041);
    });
}

TEST_F(ArrivalSearchByHand, DoubleClickSelectsALine) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        SchArrivals& search = Open(by);
        by.DoubleClickAt(LineOf(by, search.GrdSch, 2));
        UntilStored(by, screen, 1040);
    });
}

TEST_F(ArrivalSearchByHand, ClickMarksALineAndTheButtonSelectsIt) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        SchArrivals& search = Open(by);
        by.ClickAt(LineOf(by, search.GrdSch, 3));
        by.UntilActive("GrdSch");
        by.Click(search.BtnSelect);
        UntilStored(by, screen, 1039);
    });
}

TEST_F(ArrivalSearchByHand, EmptyListKeepsTheScreenOpen) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        SchArrivals& search = Open(by);
        by.Type("nobody");
        UntilListed(by, search, 0);
        by.DoubleClickAt(LineOf(by, search.GrdSch, 0));
        by.UntilActive("GrdSch");
        by.Press({"Return"});
        by.ClickInto(search.BtnSelect);
        EXPECT_TRUE(by.See([&] { return search.isVisible(); }));
        by.Press({"Escape"});
        ExpectNothingChosen(by, screen);
    });
}

TEST_F(ArrivalSearchByHand, ApostropheIsReportedAtEachKeyUntilItIsRemoved) {
    WorkOnWeighment([this](Operator& by, FrmWeighment& screen) {
        SchArrivals& search = Open(by);
        by.Press({"Return"});
        by.UntilActive("TxtFilter");
        by.Press({"apostrophe"});
        by.Answer("Database",
                  EngineWords("unrecognized token: \"' Order By Arrivals.ArrivalId desc\""),
                  {"Return"});
        UntilListed(by, search, 0);
        by.Press({"g"});
        by.Answer("Database", EngineWords("near \"g\": syntax error"), {"Return"});
        by.Press({"Home", "Delete"});
        UntilListed(by, search, 7);
        by.Press({"Escape"});
        ExpectNothingChosen(by, screen);
    });
    EXPECT_EQ(boxes->All().size(), 2U);
}

// The keys of a whole search, typed without a pause while the screens open and close.
TEST_F(ArrivalSearchByHand, NoKeyTypedAheadIsLost) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        Open(by);
        by.WithoutLooking({"key", "--delay", "0", "Return", "g", "r", "Return", "Down", "Return"});
        UntilStored(by, screen, 1037);
    });
}

} // namespace
} // namespace Quillane::Testing
