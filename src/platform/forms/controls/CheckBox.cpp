#include "platform/forms/controls/Buttons.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"

#include <QCheckBox>
#include <QSignalBlocker>

namespace Quillane {

class CheckBox::Box : public QCheckBox {
public:
    using QCheckBox::QCheckBox;
};

CheckBox::CheckBox(Screen& screen, std::string name, std::string_view caption)
    : VisualControl(screen, std::move(name), "CheckBox"),
      box_(std::make_unique<Box>(ToQt(caption), &screen)) {
    box_->setFocusPolicy(Qt::StrongFocus);
    QObject::connect(box_.get(), &QCheckBox::toggled, box_.get(), [this] {
        RunEvent([this] {
            if (Click)
                Click();
        });
    });
}

CheckBox::~CheckBox() = default;

int CheckBox::Value() const {
    return box_->isChecked() ? 1 : 0;
}

void CheckBox::SetValue(int value) {
    if ((value != 0) == box_->isChecked())
        return;
    {
        // The handler runs in the writer, not in a signal, so that its failure reaches the writer.
        const QSignalBlocker blocker(*box_);
        box_->setChecked(value != 0);
    }
    if (Click)
        Click();
}

QWidget& CheckBox::Widget() {
    return *box_;
}

} // namespace Quillane
