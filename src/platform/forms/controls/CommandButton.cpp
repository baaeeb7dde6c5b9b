#include "platform/forms/controls/Buttons.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"

#include <QPainter>
#include <QPushButton>

namespace Quillane {

class CommandButton::Button : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    // The style marks the focus with a thin line, which is not visible at arm's length.
    void paintEvent(QPaintEvent* event) override {
        QPushButton::paintEvent(event);
        if (hasFocus()) {
            QPainter painter(this);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
            painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 2, 2);
        }
    }
};

CommandButton::CommandButton(Screen& screen, std::string name, std::string_view caption,
                             std::string typeName)
    : VisualControl(screen, std::move(name), std::move(typeName)),
      button_(std::make_unique<Button>(ToQt(caption), &screen)) {
    // An auto-default button would consume the screen's Enter.
    button_->setAutoDefault(false);
    button_->setFocusPolicy(Qt::StrongFocus);
    QObject::connect(button_.get(), &QPushButton::clicked, button_.get(), [this] {
        RunEvent([this] {
            if (Click)
                Click();
        });
    });
}

CommandButton::~CommandButton() = default;

void CommandButton::SetFunctionKey(int key) {
    button_->setShortcut(QKeySequence(Qt::Key_F1 + key - Key::F1));
}

QWidget& CommandButton::Widget() {
    return *button_;
}

bool CommandButton::HandleKey(int key, int shift) {
    if (key != Key::Return || shift != ShiftState::None)
        return false;
    button_->click();
    return true;
}

} // namespace Quillane
