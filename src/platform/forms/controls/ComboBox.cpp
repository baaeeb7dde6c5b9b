#include "platform/forms/controls/ComboBox.h"

#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"
#include "platform/runtime/Failure.h"

#include <QComboBox>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace Quillane {

class ComboBox::Box : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

ComboBox::ComboBox(Screen& screen, std::string name, const std::vector<std::string>& items)
    : VisualControl(screen, std::move(name), "ComboBox"), box_(std::make_unique<Box>(&screen)) {
    for (const std::string& item : items)
        box_->addItem(ToQt(item));
    box_->setCurrentIndex(-1);
    box_->setFocusPolicy(Qt::StrongFocus);
    QObject::connect(box_.get(), &QComboBox::currentIndexChanged, box_.get(), [this] {
        RunEvent([this] {
            if (Click)
                Click();
        });
    });
}

ComboBox::~ComboBox() = default;

int ComboBox::ListIndex() const {
    return box_->currentIndex();
}

void ComboBox::SetListIndex(int index) {
    if (index < -1 || index >= ListCount())
        Fail(FailureNumber::InvalidCall);
    if (index == ListIndex())
        return;
    {
        const QSignalBlocker blocker(*box_);
        box_->setCurrentIndex(index);
    }
    box_->update();
    if (Click)
        Click();
}

int ComboBox::ListCount() const {
    return box_->count();
}

std::string ComboBox::Text() const {
    return FromQt(box_->currentText());
}

void ComboBox::SetText(std::string_view text) {
    const int index = box_->findText(ToQt(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0)
        Fail(FailureNumber::InvalidCall);
    SetListIndex(index);
}

QWidget& ComboBox::Widget() {
    return *box_;
}

void ComboBox::CommitEdit() {
    box_->hidePopup();
}

} // namespace Quillane
