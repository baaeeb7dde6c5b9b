#pragma once

#include "platform/forms/controls/ListScreen.h"

#include <gtest/gtest.h>

namespace Quillane {

/// The settings that the station gives its pick lists.
inline void SetUpAsPickList(TDBCombo& list) {
    list.Layout = {.ColumnHeaders = false,
                   .RowDividerStyle = 2,
                   .ScrollBars = 2,
                   .AutoCompletion = true,
                   .AutoDropDown = true,
                   .LimitToList = true,
                   .AllowColMove = false,
                   .AllowRowSizing = false,
                   .EmptyRows = false,
                   .AllowColSelect = false,
                   .ExtendRightColumn = true,
                   .Appearance = 0,
                   .BorderStyle = 1};
    list.Columns[1].Visible = false;
    list.Splits[0].Columns[1] = {.Visible = false, .AllowSizing = false};
}

/// Two pick lists, with a box before and a box after them.
class TwoLists : public ListScreen {
public:
    TextBox TxtBefore{*this, "TxtBefore"};
    TDBCombo CboSeller{*this, "CboSeller"};
    TDBCombo CboCommodity{*this, "CboCommodity"};
    TextBox TxtAfter{*this, "TxtAfter"};

    TwoLists() {
        int place = 0;
        for (VisualControl* control : std::initializer_list<VisualControl*>{
                 &TxtBefore, &CboSeller, &CboCommodity, &TxtAfter}) {
            control->SetTabIndex(place);
            control->Widget().setGeometry(10, 10 + 40 * place++, 300, 28);
        }
        SetUpAsPickList(CboSeller);
        SetUpAsPickList(CboCommodity);
    }
};

/// The list of sellers has the focus; some names have the same beginning, and one occurs twice.
class TDBComboTest : public testing::Test {
protected:
    void SetUp() override {
        Fill({"Ali Traders", "Bashir", "Bashir Sons", "Bashir", "Chaudhry"});
        screen.CboCommodity.SetArray(NamesWithIds({"Wheat", "Maize", "Gram"}));
        screen.CboCommodity.ReBind();
        list.RowChange = [this] { changes.push_back(list.Bookmark().value()); };
        screen.Show();
        ASSERT_TRUE(Testing::WaitFor([this] { return screen.isActiveWindow(); }));
        list.SetFocus();
        screen.log.clear();
        screen.keys.clear();
    }
    void TearDown() override { screen.Unload(); }

    void Press(QKeyCombination key) { screen.Press(key); }
    void Press(Qt::Key key) { screen.Press(key); }
    void Type(std::string_view text) { screen.Type(text); }
    void Commit(std::string_view text) { Testing::ScreenDriver(screen).Commit(text); }
    void Click(QWidget& widget, QPoint place) { screen.Click(widget, place); }
    void ClickRow(int row) { screen.ClickRow(list, row); }
    void Fill(std::initializer_list<const char*> names) {
        list.SetArray(NamesWithIds(names));
        list.ReBind();
    }
    QLineEdit& Line() { return static_cast<QLineEdit&>(list.FocusWidget()); }
    QPoint Arrow() { return {list.Widget().width() - 8, list.Widget().height() / 2}; }
    void RefuseAndStay() {
        list.NotInList = [this] {
            ++refusals;
            list.SetFocus();
        };
    }

    TwoLists screen;
    TDBCombo& list = screen.CboSeller;
    std::vector<int> changes;
    int refusals = 0;
};

} // namespace Quillane
