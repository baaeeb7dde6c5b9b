// The screen as designed: its controls in order, before anything is loaded.

#include "platform/forms/core/Text.h"
#include "weighment/FrmWeighment.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace Quillane {
namespace {

constexpr Colour DarkRed = 0x0000C0;
constexpr Colour Yellow = 0x00FFFF;

enum class Side { Left, Right, Centre };

/// A row of the table of controls; -1 means that a control is not in the tab order.
struct Row {
    const char* name;
    const char* typeName;
    int tab = -1;
    bool visible = true;
    bool enabled = true;
};

const Row Table[] = {
    {"TxtDeduction", "TextBox", 8},
    {"Grid", "TDBGrid", 7},
    {"TxtBuiltyNo", "TextBox", 10},
    {"CmdGrossWeight", "JeweledButton", 5},
    {"TxtNetWeight", "TextBox", 62},
    {"TxtMoundKgs", "TextBox", 61},
    {"TxtScaleDeductKg", "TextBox", 58, false, false},
    {"TxtVehicleNo", "TextBox", 9},
    {"TxtDriverName", "TextBox", 11},
    {"TxtKandaDeduction", "TextBox", 15, false},
    {"ChkManualWeight", "CheckBox", 25},
    {"FrminVisible", "Frame", 51},
    {"TxtShortage", "TextBox", 14, false},
    {"Timer", "Timer"},
    {"TxtWeight", "TextBox", 26},
    {"ChkFinalized", "CheckBox", 12},
    {"TxtHeapName", "TextBox", 19, false},
    {"TxtHeapNo", "TextBox", 18, false},
    {"TxtBagsWeight", "TextBox", 39, false},
    {"TxtGrossWeight", "TextBox", 29},
    {"TxtTareWeight", "TextBox", 28},
    {"TxtInitialGrossWeight", "TextBox", 27},
    {"TxtArrivalId", "TextBox", 0},
    {"BtnPrint", "JeweledButton", 24},
    {"BtnSave", "JeweledButton", 13},
    {"BtnClear", "JeweledButton", 20},
    {"BtnOpen", "JeweledButton", 21},
    {"BtnRemove", "JeweledButton", 22},
    {"BtnClose", "JeweledButton", 23},
    {"DtpArrivalDate", "DTPicker", 1},
    {"CmdTareWeight", "JeweledButton", 6},
    {"CboCommodity", "TDBCombo", 2},
    {"CboSeller", "TDBCombo", 4},
    {"CboSellerType", "TDBCombo", 3},
    {"CboBagClass", "TDBCombo", 16, false},
    {"CboBagType", "TDBCombo", 17, false},
    {"CM", "MSComm"},
};

/// The design of a text box.
struct BoxRow {
    TextBox FrmWeighment::*box;
    int limit = 0;
    Side side = Side::Left;
    bool locked = false;
    Colour back = White;
    Colour fore = 0;
};

const BoxRow Boxes[] = {
    {&FrmWeighment::TxtDeduction, 4, Side::Right},
    {&FrmWeighment::TxtBuiltyNo, 10},
    {&FrmWeighment::TxtNetWeight, 0, Side::Right, true, ClosedGrey, DarkRed},
    {&FrmWeighment::TxtMoundKgs, 0, Side::Right, true, ClosedGrey, DarkRed},
    {&FrmWeighment::TxtScaleDeductKg, 6, Side::Right, true, ClosedGrey},
    {&FrmWeighment::TxtVehicleNo, 10},
    {&FrmWeighment::TxtDriverName, 30},
    {&FrmWeighment::TxtKandaDeduction, 6, Side::Right},
    {&FrmWeighment::TxtShortage, 5, Side::Right},
    {&FrmWeighment::TxtWeight, 0, Side::Centre, false, 0, Yellow},
    {&FrmWeighment::TxtHeapName, 10},
    {&FrmWeighment::TxtHeapNo, 4},
    {&FrmWeighment::TxtBagsWeight, 0, Side::Right, false, ClosedGrey},
    {&FrmWeighment::TxtGrossWeight, 6, Side::Right, true, ClosedGrey},
    {&FrmWeighment::TxtTareWeight, 6, Side::Right, true, ClosedGrey},
    {&FrmWeighment::TxtInitialGrossWeight, 6, Side::Right, true, ClosedGrey},
    {&FrmWeighment::TxtArrivalId, 10},
};

QLineEdit& EditOf(TextBox& box) {
    return dynamic_cast<QLineEdit&>(box.Widget());
}

Side SideOf(TextBox& box) {
    const Qt::Alignment alignment = EditOf(box).alignment();
    if (alignment & Qt::AlignRight)
        return Side::Right;
    return alignment & Qt::AlignHCenter ? Side::Centre : Side::Left;
}

TEST(Controls, AreDeclaredInTheOrderInWhichTheyAreCleared) {
    FrmWeighment screen;
    std::vector<std::string> names;
    std::vector<std::string> expected;
    for (const Control* control : screen.Controls())
        names.push_back(control->Name() + " " + control->TypeName());
    for (const Row& row : Table)
        expected.push_back(std::string(row.name) + " " + row.typeName);
    EXPECT_EQ(names, expected);
}

TEST(Controls, HaveTheirTabIndexesAndAreShownAndEnabledAsDesigned) {
    FrmWeighment screen;
    ASSERT_EQ(screen.Controls().size(), std::size(Table));
    for (std::size_t i = 0; i < std::size(Table); ++i) {
        const auto* control = dynamic_cast<VisualControl*>(screen.Controls()[i]);
        EXPECT_EQ(control ? control->TabIndex() : -1, Table[i].tab) << Table[i].name;
        if (control) {
            EXPECT_EQ(control->Visible(), Table[i].visible) << Table[i].name;
            EXPECT_EQ(control->Enabled(), Table[i].enabled) << Table[i].name;
        }
    }
}

TEST(Controls, ThatAreBoxesAreLimitedAlignedAndPaintedAsDesigned) {
    FrmWeighment screen;
    for (const BoxRow& row : Boxes) {
        TextBox& box = screen.*row.box;
        EXPECT_EQ(box.MaxLength(), row.limit) << box.Name();
        EXPECT_EQ(SideOf(box), row.side) << box.Name();
        EXPECT_EQ(box.Locked(), row.locked) << box.Name();
        EXPECT_EQ(box.BackColor(), row.back) << box.Name();
        EXPECT_EQ(box.ForeColor(), row.fore) << box.Name();
        EXPECT_EQ(box.Text(), &box == &screen.TxtWeight ? "1234567" : "") << box.Name();
    }
    const auto boxes = std::ranges::count_if(
        screen.Controls(), [](const Control* each) { return each->TypeName() == "TextBox"; });
    EXPECT_EQ(static_cast<std::size_t>(boxes), std::size(Boxes)) << "every box is in the table";
}

TEST(Controls, ShowTheReadingInYellowOnBlackAndTheResultsLarge) {
    FrmWeighment screen;
    const QFont reading = EditOf(screen.TxtWeight).font();
    EXPECT_EQ(reading.family(), "Arial");
    EXPECT_EQ(reading.pointSize(), 72);
    EXPECT_TRUE(reading.bold());
    for (TextBox* box : {&screen.TxtNetWeight, &screen.TxtMoundKgs}) {
        EXPECT_EQ(EditOf(*box).font().family(), "Arial");
        EXPECT_EQ(EditOf(*box).font().pointSize(), 18);
        EXPECT_TRUE(EditOf(*box).font().bold());
    }
}

TEST(Controls, HaveTheirCaptions) {
    FrmWeighment screen;
    EXPECT_EQ(FromQt(screen.windowTitle()), "Weighment for Veltrane");
    const std::pair<VisualControl*, const char*> captions[] = {
        {&screen.CmdGrossWeight, "Gross Weight"},
        {&screen.CmdTareWeight, "Tare Weight"},
        {&screen.ChkManualWeight, "Manual Weight"},
        {&screen.ChkFinalized, "Finalized"},
        {&screen.BtnPrint, "Print"},
        {&screen.BtnSave, "Save"},
        {&screen.BtnClear, "Clear"},
        {&screen.BtnOpen, "Open"},
        {&screen.BtnRemove, "Remove"},
        {&screen.BtnClose, "Close"},
    };
    for (const auto& [control, caption] : captions)
        EXPECT_EQ(FromQt(dynamic_cast<QAbstractButton&>(control->Widget()).text()), caption);
}

TEST(Controls, HaveTheirLabelsNextToThem) {
    FrmWeighment screen;
    std::multiset<std::string> labels;
    for (const QLabel* label : screen.findChildren<QLabel*>())
        labels.insert(FromQt(label->text()));
    for (const char* caption :
         {"Deduction", "Builty No.", "Net Weight - Kgs", "Mounds - Kgs", "Vehicle No",
          "Driver Name", "Gross Weight", "Tare Weight", "Initial Gross Weight", "Arrival ID",
          "Arrival Date", "Commodity", "Seller", "Seller Type"})
        EXPECT_EQ(labels.count(caption), 1u) << caption;
    EXPECT_GE(labels.count("Kgs"), 1u);
}

TEST(Controls, ThatAreNeverShownHaveNoCaptionEither) {
    FrmWeighment screen;
    for (const QLabel* label : screen.findChildren<QLabel*>())
        for (const char* caption : {"S.Deduct In kgs", "Scale Deduct/40Kg", "Shortage", "Heap Name",
                                    "Heap No", "Bags Weight", "Bag Class", "Bag Type"})
            EXPECT_FALSE(label->text() == caption && !label->isHidden()) << caption;
}

TEST(Controls, AreNamedForAssistiveTechnology) {
    FrmWeighment screen;
    for (Control* control : screen.Controls()) {
        auto* visual = dynamic_cast<VisualControl*>(control);
        if (!visual || !visual->Visible())
            continue;
        const auto* button = qobject_cast<QAbstractButton*>(&visual->Widget());
        const QString name = button ? button->text() : visual->FocusWidget().accessibleName();
        EXPECT_FALSE(name.isEmpty()) << visual->Name();
    }
}

TEST(Controls, ShowTheirShortcutsInToolTips) {
    FrmWeighment screen;
    const std::pair<VisualControl*, const char*> shortcuts[] = {
        {&screen.BtnSave, "(Ctrl+S)"},  {&screen.BtnClear, "(Ctrl+L)"},
        {&screen.BtnOpen, "(Ctrl+O)"},  {&screen.BtnRemove, "(Ctrl+Shift+Delete)"},
        {&screen.BtnClose, "(Ctrl+Q)"}, {&screen.CboSeller, "F1"},
    };
    for (const auto& [control, shortcut] : shortcuts)
        EXPECT_NE(control->ToolTip().find(shortcut), std::string::npos) << control->Name();
}

TEST(Controls, HaveTheShortageInTheFrame) {
    FrmWeighment screen;
    EXPECT_EQ(screen.ControlOf(screen.TxtShortage.Widget().parentWidget()), &screen.FrminVisible);
}

TEST(Controls, GiveTheGridThreeColumnsAndTheTwoListsOfItsCells) {
    FrmWeighment screen;
    EXPECT_EQ(screen.Grid.ColumnCount(), 3);
    const auto& view = dynamic_cast<QAbstractItemView&>(screen.Grid.Widget());
    for (const auto& [column, caption] :
         {std::pair{0, "Class"}, std::pair{1, "Type"}, std::pair{2, "Qty"}})
        EXPECT_EQ(view.model()->headerData(column, Qt::Horizontal).toString().toStdString(),
                  caption);
}

TEST(Controls, BeginWithTheLineAndTheTimerAsDesigned) {
    FrmWeighment screen;
    EXPECT_EQ(screen.Timer.Interval(), 200);
    EXPECT_TRUE(screen.Timer.Enabled());
    EXPECT_EQ(screen.CM.CommPort(), 1);
    EXPECT_EQ(screen.CM.Settings(), "9600,n,8,1");
    EXPECT_FALSE(screen.CM.PortOpen());
    EXPECT_EQ(screen.ChkManualWeight.Value(), 0);
    EXPECT_EQ(screen.ChkFinalized.Value(), 0);
}

TEST(Controls, BelongToAScreenWithNeitherAMaximiseNorAMinimiseButton) {
    FrmWeighment screen;
    EXPECT_FALSE(screen.windowFlags() & Qt::WindowMaximizeButtonHint);
    EXPECT_FALSE(screen.windowFlags() & Qt::WindowMinimizeButtonHint);
    EXPECT_TRUE(screen.windowFlags() & Qt::WindowCloseButtonHint);
}

} // namespace
} // namespace Quillane
