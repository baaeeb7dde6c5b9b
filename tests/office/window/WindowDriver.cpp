#include "WindowDriver.h"

#include "platform/forms/core/Text.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QWindow>

namespace Quillane::Office {

namespace {

void Activate(QWidget& window) {
    if (QApplication::activeWindow() == &window)
        return;
    window.activateWindow();
    EXPECT_TRUE(Testing::WaitFor([&] { return QApplication::activeWindow() == &window; }));
}

} // namespace

void Press(QWidget& window, QKeyCombination key) {
    Activate(window);
    Testing::PressIn(window, key);
}

void Type(QWidget& window, std::string_view text) {
    for (const char character : text)
        QTest::keyClick(window.windowHandle(), character);
}

void ShowWindow(QWidget& window) {
    window.show();
    Activate(window);
}

namespace {

QStringList CutTexts(const QWidget& window) {
    QStringList cut;
    for (const auto* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible() && button->width() < button->sizeHint().width())
            cut.append(button->text());
    for (const auto* label : window.findChildren<QLabel*>())
        if (label->isVisible() &&
            (label->wordWrap() ? label->height() < label->heightForWidth(label->width())
                               : label->width() < label->sizeHint().width()))
            cut.append(label->text());
    return cut;
}

} // namespace

void LookAt(QWidget& window, const std::string& name) {
    QCoreApplication::processEvents();
    EXPECT_EQ(FromQt(CutTexts(window).join(" / ")), "");
    const QString folder = qEnvironmentVariable("QUILLANE_PICTURES");
    if (folder.isEmpty())
        return;
    window.grab().save(folder + "/" + ToQt(name) + ".png");
}

Visit::Visit(std::function<void(QDialog&)> act)
    : act_(std::move(act)), below_(QApplication::activeModalWidget()) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
    timer_.start(1);
}

Visit::~Visit() {
    EXPECT_TRUE(tookPlace_) << "no dialog was shown";
}

void Visit::Look() {
    auto* modal = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
    if (!modal || modal == below_ || !modal->isVisible() || QApplication::activeWindow() != modal)
        return;
    timer_.stop();
    tookPlace_ = true;
    const QPointer<QDialog> dialog = modal;
    act_(*modal);
    if (!dialog || !dialog->isVisible())
        return;
    ADD_FAILURE() << "the dialog is left open: " << FromQt(dialog->windowTitle());
    dialog->reject();
}

Answers::Answers(std::vector<std::string> buttons) : buttons_(std::move(buttons)) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
    timer_.start(1);
}

Answers::~Answers() {
    EXPECT_EQ(texts_.size(), buttons_.size()) << "not all of the boxes were shown";
}

void Answers::Look() {
    auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box || !box->isVisible() || box == answered_)
        return;
    answered_ = box;
    texts_.push_back(FromQt(box->text()));
    const std::string button = texts_.size() <= buttons_.size() ? buttons_[texts_.size() - 1] : "";
    for (QAbstractButton* each : box->buttons())
        if (FromQt(each->text().remove('&')) == button) {
            each->click();
            return;
        }
    ADD_FAILURE() << "no button \"" << button << "\" in: " << texts_.back();
    box->reject();
}

} // namespace Quillane::Office
