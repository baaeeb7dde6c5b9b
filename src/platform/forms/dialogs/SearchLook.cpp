#include "platform/forms/dialogs/SearchLook.h"

#include "platform/forms/controls/Label.h"
#include "platform/forms/core/ScreenLook.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace Quillane {

namespace {

constexpr int LeastDigits = 10;
constexpr int AroundDigits = 18; // the frame of a box, and the caret

QLayout* ButtonRow(const Screen& screen, std::initializer_list<VisualControl*> buttons) {
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addStretch(1);
    for (VisualControl* button : buttons) {
        button->Widget().setMinimumSize(ButtonSize(screen));
        row->addWidget(&button->Widget());
    }
    return row;
}

} // namespace

void AddFilter(QHBoxLayout& filters, std::string_view caption, VisualControl& filter, int stretch) {
    if (filters.count() > 0)
        filters.addSpacing(16);
    QWidget& box = filter.Widget();
    const int width = box.fontMetrics().horizontalAdvance(QString(LeastDigits, '0')) + AroundDigits;
    box.setMinimumWidth(std::max(width, box.minimumSizeHint().width() + AroundDigits / 2));
    filters.addWidget(new Label(caption, &box));
    filters.addWidget(&box, stretch);
    filter.SetAccessibleName(caption);
}

void LayOutSearch(Screen& screen, QHBoxLayout& filters, VisualControl& list,
                  std::initializer_list<VisualControl*> buttons, QSize least) {
    const bool small = OnSmallDisplay(screen);
    const int margin = small ? 8 : 16;
    filters.setSpacing(8);
    auto* rows = new QVBoxLayout(&screen);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(small ? 8 : 12);
    rows->addLayout(&filters);
    rows->addWidget(&list.Widget(), 1);
    rows->addLayout(ButtonRow(screen, buttons));
    const QSize largest = LargestWindow(screen);
    screen.resize(least.expandedTo(largest * 2 / 3).boundedTo(largest));
}

void Blank(TextBox& box) {
    auto change = std::exchange(box.Change, {});
    box.SetText("");
    box.Change = std::move(change);
}

} // namespace Quillane
