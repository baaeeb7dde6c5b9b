#include "data/DialogLook.h"

#include "platform/forms/Text.h"

#include <QDialog>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillane {

namespace {

const QColor headColour(0x2F, 0x6B, 0x5E);
const QColor headingColour(0x24, 0x4C, 0x44);
const QColor messageColour(0x9C, 0x1C, 0x1C);

void SetFontSize(QWidget& widget, int points, bool bold) {
    QFont font = widget.font();
    font.setPointSize(points);
    font.setBold(bold);
    widget.setFont(font);
}

void SetTextColour(QWidget& widget, const QColor& colour) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, colour);
    widget.setPalette(palette);
}

QFrame* Head(std::string_view title, Label& subtitle) {
    auto* head = new QFrame;
    head->setAutoFillBackground(true);
    QPalette palette = head->palette();
    palette.setColor(QPalette::Window, headColour);
    head->setPalette(palette);
    auto* name = new Label(title);
    for (Label* label : {name, &subtitle})
        SetTextColour(*label, Qt::white);
    SetFontSize(*name, 18, true);
    SetFontSize(subtitle, 11, false);
    subtitle.setWordWrap(true);
    auto* column = new QVBoxLayout(head);
    column->setContentsMargins(24, 16, 24, 16);
    column->setSpacing(2);
    column->addWidget(name);
    column->addWidget(&subtitle);
    return head;
}

} // namespace

QVBoxLayout* DialogColumn(QDialog& dialog, std::string_view title, Label& subtitle) {
    auto* outer = new QVBoxLayout(&dialog);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    outer->addWidget(Head(title, subtitle));
    auto* column = new QVBoxLayout;
    column->setContentsMargins(24, 20, 24, 20);
    column->setSpacing(12);
    outer->addLayout(column);
    return column;
}

void AddField(QGridLayout& grid, std::string_view caption, TextBox& box) {
    const int row = grid.rowCount();
    auto* label = new Label(caption, &box.FocusWidget());
    SetFontSize(*label, 11, false);
    SetFontSize(box.Widget(), 12, false);
    box.Widget().setMinimumHeight(32);
    grid.setHorizontalSpacing(16);
    grid.setVerticalSpacing(8);
    grid.addWidget(label, row, 0);
    grid.addWidget(&box.Widget(), row, 1);
    grid.setColumnStretch(1, 1);
}

void AddHeading(QGridLayout& grid, std::string_view text) {
    auto* label = new Label(text);
    SetFontSize(*label, 12, true);
    SetTextColour(*label, headingColour);
    label->setContentsMargins(0, grid.rowCount() > 1 ? 10 : 0, 0, 0);
    grid.addWidget(label, grid.rowCount(), 0, 1, 2);
}

void AddCheck(QGridLayout& grid, CheckBox& check) {
    SetFontSize(check.Widget(), 11, false);
    grid.addWidget(&check.Widget(), grid.rowCount(), 1);
}

void AddButton(QHBoxLayout& row, CommandButton& button, bool leading) {
    QWidget& widget = button.Widget();
    widget.setMinimumSize(110, 38);
    SetFontSize(widget, 12, leading);
    if (leading) {
        QPalette palette = widget.palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            palette.setColor(group, QPalette::Button, headColour);
            palette.setColor(group, QPalette::ButtonText, Qt::white);
        }
        widget.setPalette(palette);
    }
    row.addWidget(&widget);
}

void LookLikeMessage(Label& label) {
    SetFontSize(label, 11, false);
    SetTextColour(label, messageColour);
    label.setWordWrap(true);
    label.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label.setMinimumHeight(2 * label.fontMetrics().lineSpacing());
}

} // namespace Quillane
