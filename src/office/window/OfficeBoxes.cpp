#include "office/window/OfficeBoxes.h"

#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Text.h"

#include <QMessageBox>
#include <QPushButton>

#include <exception>
#include <new>

namespace Quillane::Office {

namespace {

void Show(QWidget* over, const std::string& text, QMessageBox::Icon icon) {
    QMessageBox box(icon, ToQt(ProgramTitle()), ToQt(text), QMessageBox::Ok, over);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace

void Inform(QWidget* over, const std::string& text) {
    Show(over, text, QMessageBox::Information);
}

void Warn(QWidget* over, const std::string& text) {
    Show(over, text, QMessageBox::Warning);
}

bool Ask(QWidget* over, const std::string& text, const std::string& yes) {
    QMessageBox box(QMessageBox::Question, ToQt(ProgramTitle()), ToQt(text), QMessageBox::NoButton,
                    over);
    box.setTextFormat(Qt::PlainText);
    QPushButton* agree = box.addButton(ToQt(yes), QMessageBox::AcceptRole);
    QPushButton* cancel = box.addButton("&Cancel", QMessageBox::RejectRole);
    agree->setAutoDefault(false);
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    box.exec();
    return box.clickedButton() == agree;
}

bool Guarded(QWidget* over, const std::function<void()>& act) {
    try {
        act();
        return true;
    } catch (const std::bad_alloc&) {
        Warn(over, "This computer has no free memory. Close other programs, and try again.");
    } catch (const std::exception& failure) {
        Warn(over, failure.what());
    }
    return false;
}

} // namespace Quillane::Office
