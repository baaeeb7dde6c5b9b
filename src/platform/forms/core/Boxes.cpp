#include "platform/forms/core/Boxes.h"

#include "platform/forms/core/BoxText.h"
#include "platform/forms/core/Interruption.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/core/Timer.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>

namespace Quillane {

namespace {

BoxPresenter presenter;
int boxesUp = 0;

// While a box is up everything is held up; as the last one closes, every timer starts anew.
class BoxUp {
public:
    BoxUp() { ++boxesUp; }
    ~BoxUp() {
        if (--boxesUp == 0) {
            Timer::RestartAll();
        }
    }
    BoxUp(const BoxUp&) = delete;
    BoxUp& operator=(const BoxUp&) = delete;

    Screen* Parent() const { return interruption_.Below(); }

private:
    Interruption interruption_;
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

// Beside the title stand the frame's picture and its buttons, and Qt does not count on all of them.
void WidenToTitle(QMessageBox& shown) {
    constexpr int besideTitle = 150;
    const int width = shown.fontMetrics().horizontalAdvance(shown.windowTitle()) + besideTitle;
    if (auto* grid = qobject_cast<QGridLayout*>(shown.layout())) {
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
    }
}

BoxAnswer ShowMessage(const Box& box, QWidget* parent) {
    const bool question = box.buttons == BoxButtons::YesNo;
    QMessageBox shown(IconOf(box.icon), ToQt(box.title), ToQt(box.text),
                      question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok, parent);
    shown.setTextFormat(Qt::PlainText);
    shown.setText(TextThatFits(shown.text(), shown.font(), RoomForText(shown)));
    const CopyOnRequest copy(shown, ToQt(box.text));
    WidenToTitle(shown);
    if (!question) {
        shown.exec();
        return BoxAnswer::Ok;
    }
    shown.setDefaultButton(box.defaultButton == BoxAnswer::No ? QMessageBox::No : QMessageBox::Yes);
    shown.setEscapeButton(QMessageBox::No);
    return shown.exec() == QMessageBox::Yes ? BoxAnswer::Yes : BoxAnswer::No;
}

std::string ShowPrompt(const InputPrompt& prompt, QWidget* parent) {
    QInputDialog shown(parent);
    shown.setWindowTitle(ToQt(prompt.title));
    shown.setLabelText(ToQt(prompt.prompt));
    shown.setTextValue(ToQt(prompt.defaultText));
    return shown.exec() == QDialog::Accepted ? FromQt(shown.textValue()) : std::string();
}

} // namespace

std::string ProgramTitle() {
    return FromQt(QCoreApplication::applicationName());
}

BoxAnswer MsgBox(const Box& box) {
    const BoxUp up;
    return presenter.message ? presenter.message(box) : ShowMessage(box, up.Parent());
}

std::string InputBox(const InputPrompt& prompt) {
    const BoxUp up;
    return presenter.input ? presenter.input(prompt) : ShowPrompt(prompt, up.Parent());
}

void SetBoxPresenter(BoxPresenter replacement) {
    presenter = std::move(replacement);
}

bool BoxIsUp() {
    return boxesUp > 0;
}

} // namespace Quillane
