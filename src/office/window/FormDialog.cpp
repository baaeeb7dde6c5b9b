#include "office/window/FormDialog.h"

#include "platform/forms/core/Text.h"

#include <QPushButton>

namespace Quillane::Office {

FormDialog::FormDialog(const QString& title, QWidget* parent) : QDialog(parent) {
    constexpr int side = 20;
    constexpr int top = 16;
    constexpr int spacing = 12;
    setWindowTitle(title);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(side, top, side, top);
    column->setSpacing(spacing);
    SpaceFields(*form_);
    column->addLayout(form_);
}

void FormDialog::Finish(int width, Notice* warning) {
    auto& column = static_cast<QVBoxLayout&>(*layout());
    if (warning)
        column.addWidget(warning);
    column.addWidget(refusal_);
    column.addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    AddAction(*buttons, *this, "Save", Qt::CTRL | Qt::Key_S, [this] { Save(); })->setDefault(true);
    AddAction(*buttons, *this, "Cancel  (Esc)", {}, [this] { reject(); });
    column.addLayout(buttons);
    setMinimumWidth(width);
}

void FormDialog::Refuse(const std::string& why) {
    refusal_->Say(ToQt(why));
    GrowToFit(*this);
}

} // namespace Quillane::Office
