// F1 in the list of sellers: the search for a party, with the keyboard and with the mouse.

#include "StoredLoad.h"
#include "search/SchParty.h"

namespace Quillane::Testing {
namespace {

class PartySearchByHand : public StoredLoad {
protected:
    static SchParty& Open(Operator& by) {
        by.UntilActive("CboSeller");
        by.Press({"F1"});
        by.UntilInFront("Search Parties");
        by.UntilActive("TxtFilter");
        return by.Shown<SchParty>();
    }
    static void GoToSeller(Operator& by) {
        by.UntilActive("TxtArrivalId");
        by.Press({"Return", "Return", "Return", "Return"});
        by.UntilActive("CboSeller");
    }
    static void UntilListed(const Operator& by, const SchParty& search, int lines) {
        by.Until(std::to_string(lines) + " lines", [&] { return search.Grid.Rows() == lines; });
    }
    static void UntilSeller(const Operator& by, const FrmWeighment& screen,
                            const std::string& name) {
        by.UntilInFront("Weighment for Veltrane");
        by.Until("the seller " + name, [&] { return screen.CboSeller.Text() == name; });
        by.UntilActive("CboSeller");
    }
};

TEST_F(PartySearchByHand, SelectedPartyBecomesTheCurrentRowOfTheList) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        GoToSeller(by);
        SchParty& search = Open(by);
        by.Type("noor");
        UntilListed(by, search, 2);
        by.Press({"Down"});
        by.UntilActive("Grid");
        by.Press({"Down"});
        by.Picture("party-search");
        by.Press({"Tab"});
        by.UntilActive("CmdSelect");
        by.Press({"Return"});
        UntilSeller(by, screen, "Noor Brothers-Sahiwal");
        EXPECT_EQ(by.See([&] { return screen.CboSeller.ColumnText(1); }), "6010019");
    });
}

TEST_F(PartySearchByHand, DoubleClickSelectsALine) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        GoToSeller(by);
        SchParty& search = Open(by);
        by.Type("noor");
        UntilListed(by, search, 2);
        by.DoubleClickAt(LineOf(by, search.Grid, 0));
        UntilSeller(by, screen, "Noor Brothers-Lahore");
        EXPECT_EQ(by.See([&] { return screen.CboSeller.ColumnText(1); }), "6010004");
    });
}

TEST_F(PartySearchByHand, WholeIdMovesToItsLine) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        GoToSeller(by);
        SchParty& search = Open(by);
        const int all = by.See([&] { return search.Grid.Rows(); });
        EXPECT_GT(all, 30);
        by.Press({"shift+Tab"});
        by.UntilActive("TxtFilterId");
        by.Type("6010003");
        by.Until("the whole id", [&] { return search.TxtFilterId.Text() == "6010003"; });
        EXPECT_EQ(by.See([&] { return search.Grid.Rows(); }), all) << "the list is not read again";
        by.Press({"Down"});
        by.UntilActive("Grid");
        by.Press({"Tab", "Return"});
        UntilSeller(by, screen, "Malik Wheat Store-Sahiwal");
    });
}

struct Leaving {
    const char* name;
    void (*leave)(Operator& by, SchParty& search);
};

class LeavingPartySearch : public PartySearchByHand, public testing::WithParamInterface<Leaving> {};

TEST_P(LeavingPartySearch, DoesNotChangeTheSeller) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        GoToSeller(by);
        by.Type("chau");
        by.Press({"Return", "shift+Tab"});
        UntilSeller(by, screen, "Chaudhry Grain Traders-Okara");
        SchParty& search = Open(by);
        // The screen does not handle Enter on a box or on the list, nor Esc.
        by.Press({"Return", "Down", "Return", "Escape"});
        by.UntilActive("Grid");
        EXPECT_TRUE(by.See([&] { return search.isVisible(); }));
        GetParam().leave(by, search);
        UntilSeller(by, screen, "Chaudhry Grain Traders-Okara");
    });
}

INSTANTIATE_TEST_SUITE_P(
    PartySearch, LeavingPartySearch,
    testing::Values(Leaving{"ByCancel",
                            [](Operator& by, SchParty& search) { by.Click(search.CmdClose); }},
                    Leaving{"ByEnterOnCancel",
                            [](Operator& by, SchParty&) {
                                by.Press({"Tab", "Tab", "Return"});
                            }},
                    Leaving{"ByAltF4", [](Operator& by, SchParty&) { by.Press({"alt+F4"}); }}),
    [](const auto& leaving) { return std::string(leaving.param.name); });

TEST_F(PartySearchByHand, OpensOnlyFromTheListOfSellers) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.UntilActive("TxtArrivalId");
        by.Press({"F1", "Return", "F1", "Return", "F1", "Return", "F1", "Return"});
        by.UntilActive("CboSeller");
        EXPECT_EQ(Buttons(by, screen), "Save ") << "the Tab of Enter has begun a change";
        Open(by);
        by.Press({"alt+F4"});
        by.UntilInFront("Weighment for Veltrane");
    });
}

} // namespace
} // namespace Quillane::Testing
