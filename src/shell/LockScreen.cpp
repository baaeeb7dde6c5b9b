#include "shell/LockScreen.h"

#include "platform/forms/core/Boxes.h"
#include "platform/forms/dialogs/DialogLook.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QVBoxLayout>

namespace Quillane {

LockScreen::LockScreen() : Screen("LockScreen", ProgramTitle()) {
    BtnCancel.Click = [this] { BtnCancel_Click(); };
    BtnCancel.SetTabIndex(0);
    LayOut();
}

LockScreen::~LockScreen() = default;

void LockScreen::LayOut() {
    auto* bar = new QProgressBar;
    bar->setRange(0, 0);
    bar->setTextVisible(false);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    AddButton(*buttons, BtnCancel, false);
    auto* column = DialogColumn(*this, "Quillane", subtitle_);
    LookLikeText(text_, 2);
    column->addWidget(&text_);
    column->addWidget(bar);
    column->addLayout(buttons);
    setFixedWidth(440);
}

// The owner of the window closes it.
void LockScreen::Form_Unload(bool& cancel) {
    cancel = true;
    BtnCancel_Click();
}

void LockScreen::Form_KeyDown(int& key, int /*shift*/) {
    if (key == Key::Escape)
        BtnCancel_Click();
    if (key == Key::Escape || key == Key::Return || key == Key::Space)
        key = 0;
}

void LockScreen::BtnCancel_Click() {
    IsCancelled = true;
    BtnCancel.SetEnabled(false);
}

} // namespace Quillane
