#include "weighment/FrmWeighment.h"

#include "platform/forms/controls/Label.h"
#include "platform/forms/core/ScreenLook.h"

#include <QBoxLayout>
#include <QFrame>
#include <QGridLayout>
#include <QScrollArea>

#include <initializer_list>
#include <utility>

namespace Quillane {

namespace {

void MakeWeightBox(TextBox& box, int characters) {
    box.SetAlignment(TextBox::Alignment::Right);
    box.SetMaxLength(characters);
}

void MakeReadOnly(TextBox& box) {
    box.SetLocked(true);
    box.SetBackColor(ClosedGrey);
}

void MakeResult(TextBox& box) {
    MakeWeightBox(box, 0);
    MakeReadOnly(box);
    box.SetForeColor(DarkRed);
    box.SetFont("Arial", 18, true);
}

QLabel* Caption(std::string_view text, QWidget* buddy = nullptr) {
    auto* label = new Label(text, buddy);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return label;
}

/// One line of the weight column: caption, figure, unit.
void AddWeightLine(QGridLayout& grid, int row, std::string_view caption, TextBox& box) {
    grid.addWidget(Caption(caption), row, 0);
    grid.addWidget(&box.Widget(), row, 1);
    grid.addWidget(Caption("Kgs"), row, 2);
}

} // namespace

void FrmWeighment::NumberControls() {
    const std::initializer_list<std::pair<VisualControl*, int>> places{
        {&TxtArrivalId, 0},      {&DtpArrivalDate, 1},
        {&CboCommodity, 2},      {&CboSellerType, 3},
        {&CboSeller, 4},         {&CmdGrossWeight, 5},
        {&CmdTareWeight, 6},     {&Grid, 7},
        {&TxtDeduction, 8},      {&TxtVehicleNo, 9},
        {&TxtBuiltyNo, 10},      {&TxtDriverName, 11},
        {&ChkFinalized, 12},     {&BtnSave, 13},
        {&TxtShortage, 14},      {&TxtKandaDeduction, 15},
        {&CboBagClass, 16},      {&CboBagType, 17},
        {&TxtHeapNo, 18},        {&TxtHeapName, 19},
        {&BtnClear, 20},         {&BtnOpen, 21},
        {&BtnRemove, 22},        {&BtnClose, 23},
        {&BtnPrint, 24},         {&ChkManualWeight, 25},
        {&TxtWeight, 26},        {&TxtInitialGrossWeight, 27},
        {&TxtTareWeight, 28},    {&TxtGrossWeight, 29},
        {&TxtBagsWeight, 39},    {&FrminVisible, 51},
        {&TxtScaleDeductKg, 58}, {&TxtMoundKgs, 61},
        {&TxtNetWeight, 62},
    };
    for (const auto& [control, index] : places)
        control->SetTabIndex(index);
}

void FrmWeighment::DesignControls() {
    NumberControls();
    DesignBoxes();
    DesignGrid();
    HideControls();
    DescribeControls();
    // A key that does not start a change, since a change disables Print.
    BtnPrint.SetFunctionKey(Key::F9);
}

void FrmWeighment::DesignBoxes() {
    MakeWeightBox(TxtDeduction, 4);
    MakeWeightBox(TxtShortage, 5);
    MakeWeightBox(TxtKandaDeduction, 6);
    MakeWeightBox(TxtBagsWeight, 0);
    TxtBagsWeight.SetBackColor(ClosedGrey);
    for (TextBox* box :
         {&TxtScaleDeductKg, &TxtGrossWeight, &TxtTareWeight, &TxtInitialGrossWeight}) {
        MakeWeightBox(*box, 6);
        MakeReadOnly(*box);
    }
    for (TextBox* box : {&TxtInitialGrossWeight, &TxtTareWeight, &TxtGrossWeight, &TxtDeduction})
        box->SetFont("Arial", OnSmallDisplay(*this) ? 12 : 16, false);
    TxtScaleDeductKg.SetEnabled(false);
    MakeResult(TxtNetWeight);
    MakeResult(TxtMoundKgs);
    TxtArrivalId.SetMaxLength(10);
    TxtVehicleNo.SetMaxLength(10);
    TxtBuiltyNo.SetMaxLength(10);
    TxtDriverName.SetMaxLength(30);
    TxtHeapName.SetMaxLength(10);
    TxtHeapNo.SetMaxLength(4);

    TxtWeight.SetAlignment(TextBox::Alignment::Centre);
    TxtWeight.SetFont("Arial", 72, true);
    TxtWeight.SetBackColor(Black);
    TxtWeight.SetForeColor(Yellow);
    TxtWeight.SetText("1234567");
}

void FrmWeighment::DesignGrid() {
    Grid.AddColumn("Class", 180);
    Grid.AddColumn("Type", 180);
    Grid.AddColumn("Qty", 80, TDBGrid::CellKind::Number);
    Grid.SetDropDown(0, CboBagClass);
    Grid.SetDropDown(1, CboBagType);
}

// Never shown, but their values are used.
void FrmWeighment::HideControls() {
    TxtShortage.Widget().setParent(&FrminVisible.Widget());
    for (VisualControl* control : std::initializer_list<VisualControl*>{
             &TxtScaleDeductKg, &TxtKandaDeduction, &TxtShortage, &TxtHeapName, &TxtHeapNo,
             &TxtBagsWeight, &CboBagClass, &CboBagType})
        control->SetVisible(false);
}

void FrmWeighment::DescribeControls() {
    const std::initializer_list<std::pair<VisualControl*, const char*>> names{
        {&TxtWeight, "Scale reading in kilograms"},
        {&TxtArrivalId, "Arrival ID"},
        {&DtpArrivalDate, "Arrival Date"},
        {&CboCommodity, "Commodity"},
        {&CboSellerType, "Seller Type"},
        {&CboSeller, "Seller"},
        {&Grid, "Bag lines: class, type and quantity"},
        {&TxtVehicleNo, "Vehicle No"},
        {&TxtBuiltyNo, "Builty No."},
        {&TxtDriverName, "Driver Name"},
        {&TxtInitialGrossWeight, "Initial Gross Weight in kilograms"},
        {&TxtTareWeight, "Tare Weight in kilograms"},
        {&TxtGrossWeight, "Gross Weight in kilograms"},
        {&TxtDeduction, "Deduction in kilograms"},
        {&TxtNetWeight, "Net Weight in kilograms"},
        {&TxtMoundKgs, "Net weight in mounds and kilograms"},
        {&TxtScaleDeductKg, "S.Deduct In kgs"},
        {&TxtKandaDeduction, "Scale Deduct/40Kg"},
        {&TxtShortage, "Shortage in kilograms"},
        {&TxtHeapName, "Heap Name"},
        {&TxtHeapNo, "Heap No"},
        {&TxtBagsWeight, "Bags Weight"},
        {&CboBagClass, "Bag Class"},
        {&CboBagType, "Bag Type"},
        {&FrminVisible, "Further deductions"},
    };
    for (const auto& [control, name] : names)
        control->SetAccessibleName(name);

    BtnSave.SetToolTip("Save this weighment (Ctrl+S)");
    BtnClear.SetToolTip("Clear the screen for the next load (Ctrl+L)");
    BtnOpen.SetToolTip("Find and open a stored weighment (Ctrl+O)");
    BtnRemove.SetToolTip("Remove the weighment shown (Ctrl+Shift+Delete)");
    BtnPrint.SetToolTip("Show the slip of the weighment shown (F9)");
    BtnClose.SetToolTip("Close this screen (Ctrl+Q)");
    CmdGrossWeight.SetToolTip("Take the reading as the loaded vehicle's weight (Space)");
    CmdTareWeight.SetToolTip("Take the reading as the empty vehicle's weight (Space)");
    ChkManualWeight.SetToolTip("Stop the live reading and type a weight");
    CboSeller.SetToolTip("Type a name, or F4 for the list; F1 searches the parties");
    Grid.SetToolTip("Type or F4 for a list; Ctrl+Delete removes a line");
}

void FrmWeighment::LayOut() {
    SetLetterSize(*this);

    auto* middle = new QHBoxLayout;
    middle->setSpacing(24);
    middle->addLayout(ArrivalFields(), 3);
    middle->addLayout(WeightFields(), 2);

    auto* content = new QWidget;
    auto* rows = new QVBoxLayout(content);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(12);
    rows->addLayout(middle, 1);
    rows->addLayout(ButtonRow());

    // On a display that is too small, everything but the reading scrolls.
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(content);
    auto* whole = new QVBoxLayout(this);
    whole->setSpacing(12);
    whole->addLayout(ReadingRow());
    whole->addWidget(scroll, 1);

    const QSize largest = LargestWindow(*this);
    const QSize around(40, TxtWeight.Widget().sizeHint().height() + 40);
    const QSize wanted = (content->sizeHint() + around).expandedTo(QSize(980, 640));
    resize(wanted.expandedTo(largest * 2 / 3).boundedTo(largest));
}

QLayout* FrmWeighment::ReadingRow() {
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(&TxtWeight.Widget(), 1);
    row->addWidget(&ChkManualWeight.Widget(), 0, Qt::AlignBottom);
    return row;
}

QLayout* FrmWeighment::ArrivalFields() {
    auto* fields = new QGridLayout;
    fields->setVerticalSpacing(8);
    fields->setHorizontalSpacing(10);
    fields->setColumnStretch(1, 1);
    fields->setColumnStretch(3, 1);
    int row = 0;
    fields->addWidget(Caption("Arrival ID"), row, 0);
    fields->addWidget(&TxtArrivalId.Widget(), row, 1);
    fields->addWidget(Caption("Arrival Date"), row, 2);
    fields->addWidget(&DtpArrivalDate.Widget(), row++, 3);
    fields->addWidget(Caption("Commodity"), row, 0);
    fields->addWidget(&CboCommodity.Widget(), row++, 1, 1, 3);
    fields->addWidget(Caption("Seller Type"), row, 0);
    fields->addWidget(&CboSellerType.Widget(), row++, 1, 1, 3);
    fields->addWidget(Caption("Seller"), row, 0);
    fields->addWidget(&CboSeller.Widget(), row++, 1, 1, 3);
    fields->addWidget(&Grid.Widget(), row, 0, 1, 4);
    fields->setRowStretch(row++, 1);
    fields->addWidget(Caption("Vehicle No"), row, 0);
    fields->addWidget(&TxtVehicleNo.Widget(), row, 1);
    fields->addWidget(Caption("Builty No."), row, 2);
    fields->addWidget(&TxtBuiltyNo.Widget(), row++, 3);
    fields->addWidget(Caption("Driver Name"), row, 0);
    fields->addWidget(&TxtDriverName.Widget(), row, 1);
    fields->addWidget(&ChkFinalized.Widget(), row, 3, Qt::AlignLeft);
    return fields;
}

QLayout* FrmWeighment::WeightFields() {
    auto* captures = new QHBoxLayout;
    captures->addWidget(&CmdGrossWeight.Widget());
    captures->addWidget(&CmdTareWeight.Widget());
    CmdGrossWeight.Widget().setMinimumHeight(44);
    CmdTareWeight.Widget().setMinimumHeight(44);

    auto* rule = new QFrame;
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);

    auto* figures = new QGridLayout;
    figures->setVerticalSpacing(8);
    figures->setHorizontalSpacing(10);
    figures->setColumnStretch(1, 1);
    // Wide enough for the mounds of the largest load, also on a small display.
    figures->setColumnMinimumWidth(1, 120);
    AddWeightLine(*figures, 0, "Initial Gross Weight", TxtInitialGrossWeight);
    AddWeightLine(*figures, 1, "Tare Weight", TxtTareWeight);
    AddWeightLine(*figures, 2, "Gross Weight", TxtGrossWeight);
    AddWeightLine(*figures, 3, "Deduction", TxtDeduction);
    figures->addWidget(rule, 4, 0, 1, 3);
    figures->addWidget(Caption("Net Weight - Kgs"), 5, 0);
    figures->addWidget(&TxtNetWeight.Widget(), 5, 1);
    figures->addWidget(Caption("Mounds - Kgs"), 6, 0);
    figures->addWidget(&TxtMoundKgs.Widget(), 6, 1);

    auto* column = new QVBoxLayout;
    column->setSpacing(12);
    column->addLayout(captures);
    column->addLayout(figures);
    // The contents of the frame are never shown, so it needs no space.
    FrminVisible.Widget().setMaximumHeight(0);
    column->addWidget(&FrminVisible.Widget());
    column->addWidget(&hints_, 1);
    return column;
}

QLayout* FrmWeighment::ButtonRow() {
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(&BtnSave.Widget());
    row->addSpacing(24);
    row->addWidget(&BtnClear.Widget());
    row->addWidget(&BtnOpen.Widget());
    row->addWidget(&BtnRemove.Widget());
    row->addWidget(&BtnPrint.Widget());
    row->addStretch(1);
    row->addWidget(&BtnClose.Widget());
    for (VisualControl* button : std::initializer_list<VisualControl*>{
             &BtnSave, &BtnClear, &BtnOpen, &BtnRemove, &BtnPrint, &BtnClose})
        button->Widget().setMinimumSize(ButtonSize(*this));
    return row;
}

} // namespace Quillane
