#include "platform/forms/dialogs/DialogLook.h"

#include "platform/forms/core/ScreenLook.h"

#include <QDialog>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace Quillane {

namespace {

QFrame* Head(std::string_view title, Label& subtitle, std::string_view note = {}) {
    auto* head = new QFrame;
    head->setAutoFillBackground(true);
    QPalette palette = head->palette();
    palette.setColor(QPalette::Window, ToQt(DialogGreen));
    head->setPalette(palette);
    auto* name = new Label(title);
    auto* small = new Label(note);
    for (Label* label : {name, small, &subtitle})
        SetTextColour(*label, White);
    SetFontSize(*name, 18, true);
    SetFontSize(*small, 9, false);
    SetFontSize(subtitle, 11, false);
    subtitle.setWordWrap(true);
    auto* top = new QHBoxLayout;
    top->addWidget(name);
    top->addStretch();
    top->addWidget(small);
    auto* column = new QVBoxLayout(head);
    column->setContentsMargins(24, 16, 24, 16);
    column->setSpacing(2);
    column->addLayout(top);
    column->addWidget(&subtitle);
    return head;
}

QLabel* Caption(std::string_view text, TextBox& box) {
    auto* label = new Label(text, &box.FocusWidget());
    SetFontSize(*label, 11, false);
    SetFontSize(box.Widget(), 12, false);
    box.Widget().setMinimumHeight(32);
    return label;
}

void SetSpacing(QGridLayout& grid) {
    grid.setHorizontalSpacing(16);
    grid.setVerticalSpacing(8);
}

} // namespace

QVBoxLayout* DialogColumn(QDialog& dialog, std::string_view title, Label& subtitle,
                          std::string_view note) {
    auto* outer = new QVBoxLayout(&dialog);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    outer->addWidget(Head(title, subtitle, note));
    auto* column = new QVBoxLayout;
    column->setContentsMargins(24, 20, 24, 20);
    column->setSpacing(12);
    outer->addLayout(column);
    return column;
}

QVBoxLayout* ScrollingColumn(QDialog& dialog, std::string_view title, Label& subtitle,
                             QHBoxLayout& buttons) {
    auto* outer = new QVBoxLayout(&dialog);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    outer->addWidget(Head(title, subtitle));
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(24, 16, 24, 0);
    column->setSpacing(10);
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(content);
    outer->addWidget(scroll, 1);
    buttons.setContentsMargins(24, 14, 24, 16);
    buttons.setSpacing(10);
    outer->addLayout(&buttons);
    return column;
}

void FitToDisplay(QDialog& dialog, int width) {
    const QSize largest = LargestWindow(dialog);
    auto* scroll = dialog.findChild<QScrollArea*>();
    const int used = std::min(width, largest.width());
    QLayout& column = *scroll->widget()->layout();
    const int content =
        column.hasHeightForWidth() ? column.heightForWidth(used) : column.sizeHint().height();
    const int around = dialog.layout()->sizeHint().height() - scroll->sizeHint().height();
    dialog.resize(QSize(used, content + around).boundedTo(largest));
}

void BringIntoSight(QWidget& part) {
    auto* scroll = part.window()->findChild<QScrollArea*>();
    scroll->widget()->layout()->activate();
    scroll->ensureWidgetVisible(&part, 0, 0);
}

void AddField(QGridLayout& grid, std::string_view caption, TextBox& box) {
    const int row = grid.rowCount();
    SetSpacing(grid);
    grid.addWidget(Caption(caption, box), row, 0);
    grid.addWidget(&box.Widget(), row, 1, 1, -1);
    grid.setColumnStretch(1, 1);
}

void AddFields(QGridLayout& grid, std::string_view leftCaption, TextBox& left,
               std::string_view rightCaption, TextBox& right) {
    const int row = grid.rowCount();
    SetSpacing(grid);
    grid.addWidget(Caption(leftCaption, left), row, 0);
    grid.addWidget(&left.Widget(), row, 1);
    grid.addWidget(Caption(rightCaption, right), row, 2);
    grid.addWidget(&right.Widget(), row, 3);
    grid.setColumnStretch(1, 1);
    grid.setColumnStretch(3, 1);
}

void AddHeading(QGridLayout& grid, std::string_view text) {
    auto* label = new Label(text);
    SetFontSize(*label, 12, true);
    SetTextColour(*label, HeadingGreen);
    label->setContentsMargins(0, grid.rowCount() > 1 ? 10 : 0, 0, 0);
    grid.addWidget(label, grid.rowCount(), 0, 1, -1);
}

void AddCheck(QGridLayout& grid, CheckBox& check) {
    SetFontSize(check.Widget(), 11, false);
    grid.addWidget(&check.Widget(), grid.rowCount(), 1);
}

void AddOptions(QGridLayout& grid, OptionButton& left, OptionButton& right) {
    auto* options = new QHBoxLayout;
    options->setSpacing(32);
    for (OptionButton* option : {&left, &right}) {
        SetFontSize(option->Widget(), 11, false);
        options->addWidget(&option->Widget());
    }
    options->addStretch();
    grid.addLayout(options, grid.rowCount(), 0, 1, -1);
}

void AddTextAndButton(QGridLayout& grid, Label& text, CommandButton& button) {
    LookLikeText(text, 1);
    auto* row = new QHBoxLayout;
    row->addWidget(&text, 1);
    SetFontSize(button.Widget(), 11, false);
    row->addWidget(&button.Widget());
    grid.addLayout(row, grid.rowCount(), 0, 1, -1);
}

void AddButton(QHBoxLayout& row, CommandButton& button, bool leading) {
    QWidget& widget = button.Widget();
    SetFontSize(widget, 12, leading);
    widget.setMinimumSize(std::max(110, widget.sizeHint().width() + 16), 38);
    if (leading) {
        QPalette palette = widget.palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            palette.setColor(group, QPalette::Button, ToQt(DialogGreen));
            palette.setColor(group, QPalette::ButtonText, Qt::white);
        }
        widget.setPalette(palette);
    }
    row.addWidget(&widget);
}

void LookLikeText(Label& label, int lines) {
    SetFontSize(label, 11, false);
    label.setWordWrap(true);
    label.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label.setMinimumHeight(lines * label.fontMetrics().lineSpacing());
}

void LookLikeMessage(Label& label) {
    LookLikeText(label, 2);
    SetTextColour(label, MessageRed);
}

} // namespace Quillane
