#include "platform/forms/Buttons.h"
#include "platform/forms/EventBoundary.h"
#include "platform/forms/Screen.h"
#include "platform/forms/Text.h"

#include <QPushButton>

namespace Quillane {

class CommandButton::Button : public QPushButton {
public:
    using QPushButton::QPushButton;
};

CommandButton::CommandButton(Screen& screen, std::string name, std::string_view caption,
                             std::string typeName)
    : VisualControl(screen, std::move(name), std::move(typeName)),
      button_(std::make_unique<Button>(ToQt(caption), &screen)) {
    // An auto-default button would take the Enter that belongs to the screen.
    button_->setAutoDefault(false);
    button_->setFocusPolicy(Qt::StrongFocus);
    QObject::connect(button_.get(), &QPushButton::clicked, button_.get(), [this] {
        RunEvent([this] {
            if (Click) {
                Click();
            }
        });
    });
}

CommandButton::~CommandButton() = default;

QWidget& CommandButton::Widget() {
    return *button_;
}

bool CommandButton::HandleKey(int key, int shift) {
    if (key != Key::Return || shift != ShiftState::None) {
        return false;
    }
    button_->click();
    return true;
}

} // namespace Quillane
