#include "platform/forms/controls/Buttons.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"

#include <QRadioButton>
#include <QSignalBlocker>

#include <algorithm>

namespace Quillane {

class OptionButton::Button : public QRadioButton {
public:
    using QRadioButton::QRadioButton;
};

OptionButton::OptionButton(Screen& screen, std::string name, std::string_view caption)
    : VisualControl(screen, std::move(name), "OptionButton"),
      button_(std::make_unique<Button>(ToQt(caption), &screen)) {
    button_->setFocusPolicy(Qt::StrongFocus);
    QObject::connect(button_.get(), &QRadioButton::toggled, button_.get(), [this](bool selected) {
        if (selected)
            RunEvent([this] {
                if (Click)
                    Click();
            });
    });
}

OptionButton::~OptionButton() = default;

bool OptionButton::Value() const {
    return button_->isChecked();
}

void OptionButton::SetValue(bool selected) {
    if (selected == button_->isChecked())
        return;
    {
        const QSignalBlocker blocker(*button_);
        // An exclusive group does not allow its selected button to be deselected.
        button_->setAutoExclusive(selected);
        button_->setChecked(selected);
        button_->setAutoExclusive(true);
    }
    if (selected && Click)
        Click();
}

QWidget& OptionButton::Widget() {
    return *button_;
}

bool OptionButton::HandleKey(int key, int shift) {
    const bool back = key == Key::Up || key == Key::Left;
    const bool on = key == Key::Down || key == Key::Right;
    if (shift != ShiftState::None || (!back && !on))
        return false;
    if (OptionButton* neighbour = Neighbour(on ? 1 : -1)) {
        neighbour->SetFocus();
        neighbour->SetValue(true);
    }
    return true;
}

OptionButton* OptionButton::Neighbour(int step) const {
    std::vector<OptionButton*> group;
    for (Control* control : Owner().Controls()) {
        auto* option = dynamic_cast<OptionButton*>(control);
        if (option && option->CanTakeFocus() &&
            option->button_->parentWidget() == button_->parentWidget())
            group.push_back(option);
    }
    const auto here = std::ranges::find(group, this) - group.begin();
    const auto there = here + step;
    return there >= 0 && there < std::ssize(group) ? group[static_cast<std::size_t>(there)]
                                                   : nullptr;
}

} // namespace Quillane
