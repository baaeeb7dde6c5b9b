// The pick lists of the screen: roles and sellers, and names that are not in a list.

#include "weighment/WeighmentFixture.h"

namespace Quillane {
namespace {

using Testing::Lines;
using Testing::ScreenDriver;
using Testing::StatementsOf;
using Testing::Trace;

class FrmWeighmentLists : public Testing::WeighmentScreenTest {
protected:
    void SetUp() override {
        ShowScreen();
        ASSERT_TRUE(Testing::WaitFor([this] { return screen->isActiveWindow(); }));
    }

    std::vector<std::string> SellerNames() {
        std::vector<std::string> names;
        for (int row = 0; row < screen->CboSeller.Array()->RowCount(); ++row)
            names.push_back(screen->CboSeller.Array()->Get(row, 0));
        return names;
    }
};

TEST_F(FrmWeighmentLists, ChosenSellerTypeFillsTheSellers) {
    const auto all = SellerNames();
    screen->CboSeller.SetText("Chaudhry Grain Traders-Okara");
    screen->CboSellerType.SetFocus();
    Trace trace(*screen, line);
    ScreenDriver(*screen).Press(Qt::Key_Down);
    EXPECT_EQ(screen->CboSellerType.Text(), "Suppliers");
    EXPECT_EQ(trace.Take(), (Lines{screen->CboSellerType.Array()->Get(1, 1)}))
        << "the hidden column is the statement";
    EXPECT_EQ(screen->CboSeller.Text(), "") << "the seller must be chosen again";
    EXPECT_FALSE(screen->CboSeller.Bookmark());
    EXPECT_LT(SellerNames().size(), all.size());
    ScreenDriver(*screen).Press(Qt::Key_Up);
    EXPECT_EQ(SellerNames(), all);
}

TEST_F(FrmWeighmentLists, TypedSellerTypeFillsTheSellers) {
    screen->CboCommodity.SetFocus();
    ScreenDriver(*screen).Press(Qt::Key_Tab);
    Trace trace(*screen, line);
    ScreenDriver(*screen).Type("bro");
    EXPECT_EQ(screen->CboSellerType.Text(), "Brokers");
    EXPECT_EQ(trace.Take().size(), 2u) << "by its first letter Buyers or Brokers, then the other";
}

TEST_F(FrmWeighmentLists, UnchangedSellerTypeFillsTheSellersOnce) {
    Trace trace(*screen, line);
    screen->CboSellerType.SetBookmark(0);
    EXPECT_EQ(trace.Take(), Lines{});
    screen->NewWeighment();
    trace.Take();
    screen->CboSellerType.SetBookmark(0);
    EXPECT_EQ(StatementsOf(trace.Take()).size(), 1u) << "a clear has left no role current";
}

TEST_F(FrmWeighmentLists, UnlistedNameKeepsTheFocus) {
    for (TDBCombo* list : {&screen->CboSeller, &screen->CboCommodity}) {
        for (const bool byMouse : {false, true}) {
            list->SetText("");
            list->SetFocus();
            ScreenDriver driver(*screen);
            driver.Type("xyzzy'");
            if (byMouse)
                driver.Click(screen->TxtVehicleNo);
            else
                driver.Press(Qt::Key_Tab);
            EXPECT_EQ(screen->ActiveControlName(), list->Name());
            EXPECT_EQ(list->Text(), "xyzzy'") << "so that it can be corrected";
            EXPECT_FALSE(list->Bookmark());
        }
        list->SetText("");
    }
}

TEST_F(FrmWeighmentLists, UnlistedNameFromCodeIsKept) {
    screen->CboSeller.SetText("Nobody-Nowhere");
    screen->CboSeller.SetFocus();
    ScreenDriver(*screen).Press(Qt::Key_Tab);
    EXPECT_EQ(screen->ActiveControlName(), "CmdGrossWeight");
    EXPECT_EQ(screen->CboSeller.Text(), "Nobody-Nowhere");
    EXPECT_FALSE(screen->CboSeller.Bookmark());
}

TEST_F(FrmWeighmentLists, UnlistedSellerTypeIsCleared) {
    screen->CboSellerType.SetFocus();
    ScreenDriver(*screen).Type("xyz").Press(Qt::Key_Tab);
    EXPECT_EQ(screen->CboSellerType.Text(), "");
    EXPECT_EQ(screen->ActiveControlName(), "CboSeller");
}

TEST_F(FrmWeighmentLists, TypingTheBeginningOfANameSelectsIt) {
    screen->CboSeller.SetFocus();
    ScreenDriver(*screen).Type("chaudhry g").Press(Qt::Key_Tab);
    EXPECT_EQ(screen->CboSeller.Text(), "Chaudhry Grain Traders-Okara");
    EXPECT_TRUE(screen->CboSeller.ColumnText(1).starts_with("6"));
    EXPECT_EQ(screen->ActiveControlName(), "CmdGrossWeight");
}

} // namespace
} // namespace Quillane
