#include "platform/forms/controls/Label.h"
#include "platform/forms/core/ScreenLook.h"
#include "scale/FrmPortSettings.h"

#include <QBoxLayout>
#include <QGridLayout>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace Quillane {

namespace {

/// A caption with its control below it, one column of a row.
void AddColumn(QGridLayout& grid, int column, std::string_view caption, VisualControl& control) {
    auto* label = new Label(caption, &control.Widget());
    grid.addWidget(label, 0, column, Qt::AlignLeft | Qt::AlignBottom);
    grid.addWidget(&control.Widget(), 1, column);
}

QGridLayout* NewRow() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(4);
    return grid;
}

} // namespace

void FrmPortSettings::DesignControls() {
    NumberInTabOrder({&CboPortName, &CboBitsPerSecond, &CboDataBits, &CboParity, &CboStopBits,
                      &CmdOpenPort, &CmdGetWeight, &TxtRawWeight, &TxtDataFrom, &CboDirection,
                      &ChkIsReversed, &CmdModifiedWeight, &TxtNotModified, &TxtModifiedWeight,
                      &CmdSave, &CmdClose});
    TxtDataFrom.SetAlignment(TextBox::Alignment::Right);
    TxtDataFrom.SetMaxLength(1);
    // A fixed-width font, so that repeated frames can be recognised.
    const double points = LetterSize(*this);
    TxtRawWeight.SetFont("Courier New", points + 2, false);
    TxtRawWeight.SetControlSymbols(true);
    TxtNotModified.SetFont("Courier New", points + 4, false);
    TxtModifiedWeight.SetFont("Courier New", points + 4, true);
}

void FrmPortSettings::DescribeControls() {
    const std::initializer_list<std::pair<VisualControl*, const char*>> names{
        {&CboPortName, "Port Name"},
        {&CboBitsPerSecond, "Bits Per Second"},
        {&CboDataBits, "Data Bits"},
        {&CboParity, "Parity"},
        {&CboStopBits, "Stop Bits"},
        {&TxtRawWeight, "Raw text as received"},
        {&Frame2, "Reading settings"},
        {&TxtDataFrom, "Length: how many digits are kept"},
        {&CboDirection, "Data Direction"},
        {&TxtNotModified, "The number as it was received"},
        {&TxtModifiedWeight, "The weight with these settings"},
    };
    for (const auto& [control, name] : names)
        control->SetAccessibleName(name);

    CmdOpenPort.SetToolTip("Open the line with these settings, again if it is open");
    CmdGetWeight.SetToolTip("Add what has been received to the raw text");
    TxtRawWeight.SetToolTip("The text as the indicator sent it; delete it by hand");
    TxtDataFrom.SetToolTip("How many digits of the number are kept, 0 to 9");
    CboDirection.SetToolTip("The end of the number from which digits are kept");
    ChkIsReversed.SetToolTip("The indicator sends the last digit first");
    CmdModifiedWeight.SetToolTip("Start the test; it runs until the screen closes");
    TxtNotModified.SetToolTip("The number as it was received");
    TxtModifiedWeight.SetToolTip("The weight with these settings");
    CmdSave.SetToolTip("Store these settings for the station");
    CmdClose.SetToolTip("Close this screen and the line");
}

void FrmPortSettings::LayOut() {
    SetLetterSize(*this);
    LayOutPortSettings();
    LayOutReading();
    SizeControls();
    auto* whole = new QVBoxLayout(this);
    const int margin = OnSmallDisplay(*this) ? 8 : 20;
    whole->setContentsMargins(margin, margin, margin, margin);
    whole->setSpacing(OnSmallDisplay(*this) ? 6 : 16);
    whole->addWidget(&Frame1.Widget());
    whole->addWidget(&Frame2.Widget());
    whole->addStretch(1);
    whole->addLayout(ButtonRow());
    const QSize largest = LargestWindow(*this);
    // A wide screen shows a longer raw text.
    const int width = std::clamp(largest.width() * 3 / 4, 880, 1200);
    resize(sizeHint().expandedTo(QSize(width, 0)).boundedTo(largest));
}

void FrmPortSettings::LayOutPortSettings() {
    auto* lists = NewRow();
    AddColumn(*lists, 0, "Port Name:", CboPortName);
    AddColumn(*lists, 1, "Bits Per Second:", CboBitsPerSecond);
    AddColumn(*lists, 2, "Data Bits:", CboDataBits);
    AddColumn(*lists, 3, "Parity:", CboParity);
    AddColumn(*lists, 4, "Stop Bits:", CboStopBits);
    lists->addWidget(&CmdOpenPort.Widget(), 1, 5);
    for (int column = 0; column < 5; ++column)
        lists->setColumnStretch(column, 1);

    auto* received = NewRow();
    received->addWidget(new Label("Raw Text:", &TxtRawWeight.Widget()), 0, 0);
    received->addWidget(&TxtRawWeight.Widget(), 1, 0);
    received->addWidget(&CmdGetWeight.Widget(), 1, 1);
    received->setColumnStretch(0, 1);

    auto* rows = RowsOf(Frame1);
    rows->addLayout(lists);
    rows->addLayout(received);
}

void FrmPortSettings::LayOutReading() {
    auto* fields = NewRow();
    AddColumn(*fields, 0, "Length:", TxtDataFrom);
    AddColumn(*fields, 1, "Data Direction:", CboDirection);
    fields->addWidget(&ChkIsReversed.Widget(), 1, 2);
    fields->addWidget(&CmdModifiedWeight.Widget(), 1, 4);
    fields->setColumnStretch(3, 1);
    TxtDataFrom.Widget().setMaximumWidth(90);

    auto* results = NewRow();
    AddColumn(*results, 0, "Not Modified:", TxtNotModified);
    AddColumn(*results, 1, "Modified Weight:", TxtModifiedWeight);

    auto* rows = RowsOf(Frame2);
    rows->addLayout(fields);
    rows->addLayout(results);
}

QBoxLayout* FrmPortSettings::RowsOf(Frame& frame) const {
    auto* rows = new QVBoxLayout(&frame.Widget());
    if (!OnSmallDisplay(*this)) {
        rows->setContentsMargins(16, 12, 16, 16);
        rows->setSpacing(14);
    }
    return rows;
}

QLayout* FrmPortSettings::ButtonRow() {
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(&CmdSave.Widget());
    row->addStretch(1);
    row->addWidget(&CmdClose.Widget());
    return row;
}

// Large buttons, and entries of about the same height.
void FrmPortSettings::SizeControls() {
    const QSize least = OnSmallDisplay(*this) ? QSize(84, 28) : QSize(120, 40);
    for (VisualControl* button : std::initializer_list<VisualControl*>{
             &CmdOpenPort, &CmdGetWeight, &CmdModifiedWeight, &CmdSave, &CmdClose})
        button->Widget().setMinimumSize(least);
    for (VisualControl* entry : std::initializer_list<VisualControl*>{
             &CboPortName, &CboBitsPerSecond, &CboDataBits, &CboParity, &CboStopBits, &TxtRawWeight,
             &TxtDataFrom, &CboDirection, &TxtNotModified, &TxtModifiedWeight})
        entry->Widget().setMinimumHeight(OnSmallDisplay(*this) ? 0 : 34);
}

} // namespace Quillane
