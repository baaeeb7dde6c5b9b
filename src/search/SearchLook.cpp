#include "search/SearchLook.h"

#include "platform/forms/controls/Label.h"

#include <QHBoxLayout>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace Quillane {

namespace {

constexpr int LeastDigits = 10;
constexpr int AroundDigits = 18; // the frame of a box, and the caret

QSize AvailableSize(const Screen& screen) {
    return screen.screen()->availableSize() - QSize(8, 40); // less the window's frame
}

// A display with few logical pixels, such as 1280 x 800 at a scale of 2.
bool OnSmallDisplay(const Screen& screen) {
    const QSize available = AvailableSize(screen);
    return available.width() < 900 || available.height() < 560;
}

int LetterSize(const Screen& screen) {
    if (OnSmallDisplay(screen))
        return 9;
    const QSize available = AvailableSize(screen);
    return available.width() < 1590 || available.height() < 860 ? 11 : 13;
}

QLayout* ButtonRow(std::initializer_list<VisualControl*> buttons, QSize least) {
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addStretch(1);
    for (VisualControl* button : buttons) {
        button->Widget().setMinimumSize(least);
        row->addWidget(&button->Widget());
    }
    return row;
}

} // namespace

void SetLetterSize(Screen& screen) {
    QFont letters = screen.font();
    letters.setPointSize(LetterSize(screen));
    screen.setFont(letters);
}

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
    rows->addLayout(ButtonRow(buttons, small ? QSize(84, 32) : QSize(104, 40)));
    const QSize available = AvailableSize(screen);
    screen.resize(least.expandedTo(available * 2 / 3).boundedTo(available));
}

void SetTabOrder(std::initializer_list<VisualControl*> controls) {
    int index = 0;
    for (VisualControl* control : controls)
        control->SetTabIndex(index++);
}

void Blank(TextBox& box) {
    auto change = std::exchange(box.Change, {});
    box.SetText("");
    box.Change = std::move(change);
}

} // namespace Quillane
