#include "platform/forms/dialogs/CancelScreen.h"

#include "platform/forms/core/Boxes.h"
#include "platform/forms/dialogs/DialogLook.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QVBoxLayout>

namespace Quillane {

CancelScreen::CancelScreen(std::string_view name, const std::string& title,
                           std::string_view subtitle)
    : Screen(std::string(name), title), Progress(*new QProgressBar(this)), subtitle_(subtitle) {
    BtnCancel.Click = [this] { BtnCancel_Click(); };
    BtnCancel.SetTabIndex(0);
    LayOut();
}

CancelScreen::~CancelScreen() = default;

void CancelScreen::LayOut() {
    Progress.setTextVisible(false);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    AddButton(*buttons, BtnCancel, false);
    auto* column = DialogColumn(*this, ProgramTitle(), subtitle_);
    LookLikeText(Text, 2);
    column->addWidget(&Text);
    column->addWidget(&Progress);
    column->addLayout(buttons);
    setFixedWidth(440);
}

void CancelScreen::Form_Unload(bool& cancel) {
    cancel = true;
    BtnCancel_Click();
}

void CancelScreen::Form_KeyDown(int& key, int /*shift*/) {
    if (key == Key::Escape)
        BtnCancel_Click();
    if (key == Key::Escape || key == Key::Return || key == Key::Space)
        key = 0;
}

} // namespace Quillane
