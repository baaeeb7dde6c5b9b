#include "platform/forms/core/Boxes.h"

#include "platform/forms/core/BoxText.h"
#include "platform/forms/core/Interruption.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/core/Timer.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QGridLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>

namespace Quillane {

namespace {

BoxPresenter presenter;
int boxesUp = 0;

// Counts the boxes shown. When the last one closes, every timer restarts its interval.
class BoxUp {
public:
    BoxUp() { ++boxesUp; }
    ~BoxUp() {
        if (--boxesUp == 0)
            Timer::RestartAll();
    }
    BoxUp(const BoxUp&) = delete;
    BoxUp& operator=(const BoxUp&) = delete;

    QWidget* Parent() const { return interruption_.Below(); }
    int Run(QDialog& box) { return interruption_.Run(box); }

private:
    Interruption interruption_;
};

// A letter answers at once. The toolkit would first show the button as pressed for a moment, and
// the box would then receive keys that are typed for the next one.
class MessageBox : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride &&
            ButtonOf(static_cast<QKeyEvent&>(*event))) {
            event->accept();
            return true;
        }
        return QMessageBox::event(event);
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (QAbstractButton* button = ButtonOf(*event))
            button->click();
        else
            QMessageBox::keyPressEvent(event);
    }

private:
    // The button whose letter is pressed, with Alt or without.
    QAbstractButton* ButtonOf(const QKeyEvent& event) const {
        if (event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier))
            return nullptr;
        for (QAbstractButton* button : buttons()) {
            const QKeySequence shortcut = button->shortcut();
            if (!shortcut.isEmpty() && shortcut[0].key() == event.key())
                return button;
        }
        return nullptr;
    }
};

QMessageBox::Icon IconOf(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

// The title bar also holds the icon and the buttons of the frame; Qt does not reserve space for all
// of them.
void WidenToTitle(QMessageBox& shown) {
    constexpr int iconAndButtons = 150;
    const int width = shown.fontMetrics().horizontalAdvance(shown.windowTitle()) + iconAndButtons;
    if (auto* grid = qobject_cast<QGridLayout*>(shown.layout()))
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

BoxAnswer ShowMessage(const Box& box, BoxUp& up) {
    const bool question = box.buttons == BoxButtons::YesNo;
    MessageBox shown(IconOf(box.icon), ToQt(box.title), ToQt(box.text),
                     question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok, up.Parent());
    shown.setTextFormat(Qt::PlainText);
    shown.setText(TextThatFits(shown.text(), shown.font(), SpaceForText(shown)));
    const CopyOnRequest copy(shown, ToQt(box.text));
    WidenToTitle(shown);
    if (!question) {
        up.Run(shown);
        return BoxAnswer::Ok;
    }
    shown.setDefaultButton(box.defaultButton == BoxAnswer::No ? QMessageBox::No : QMessageBox::Yes);
    shown.setEscapeButton(QMessageBox::No);
    return up.Run(shown) == QMessageBox::Yes ? BoxAnswer::Yes : BoxAnswer::No;
}

std::string ShowPrompt(const InputPrompt& prompt, BoxUp& up) {
    QInputDialog shown(up.Parent());
    shown.setWindowTitle(ToQt(prompt.title));
    shown.setLabelText(ToQt(prompt.prompt));
    shown.setTextValue(ToQt(prompt.defaultText));
    return up.Run(shown) == QDialog::Accepted ? FromQt(shown.textValue()) : std::string();
}

} // namespace

std::string ProgramTitle() {
    return FromQt(QCoreApplication::applicationName());
}

BoxAnswer MsgBox(const Box& box) {
    BoxUp up;
    return presenter.message ? presenter.message(box) : ShowMessage(box, up);
}

std::string InputBox(const InputPrompt& prompt) {
    BoxUp up;
    return presenter.input ? presenter.input(prompt) : ShowPrompt(prompt, up);
}

void SetBoxPresenter(BoxPresenter replacement) {
    presenter = std::move(replacement);
}

bool BoxIsUp() {
    return boxesUp > 0;
}

} // namespace Quillane
