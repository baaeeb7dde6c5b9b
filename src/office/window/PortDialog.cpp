#include "office/window/PortDialog.h"

#include "office/records/Texts.h"
#include "platform/forms/core/Text.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

namespace Quillane::Office {

PortDialog::PortDialog(const std::vector<SerialDevice>& devices, int port,
                       const std::string& device, bool readsBursts, QWidget* parent)
    : QDialog(parent) {
    constexpr int highestPort = 32767; // as the stations read a port's number
    setWindowTitle("Give a port its device");
    port_->setRange(1, highestPort);
    port_->setValue(port);
    device_->setEditable(true);
    device_->setInsertPolicy(QComboBox::NoInsert);
    for (const SerialDevice& each : devices)
        device_->addItem(ToQt(each.device));
    device_->setEditText(ToQt(device));
    bursts_->setChecked(readsBursts);
    LayOut();
}

void PortDialog::LayOut() {
    constexpr int width = 620;
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(20, 16, 20, 16);
    column->setSpacing(12);
    auto* form = new QFormLayout;
    form->setHorizontalSpacing(16);
    form->setVerticalSpacing(8);
    const auto add = [&](const char* caption, QWidget* field) {
        field->setMinimumHeight(30);
        field->setAccessibleName(QString(caption).remove('&'));
        auto* label = new QLabel(caption);
        label->setMinimumHeight(30);
        label->setBuddy(field);
        form->addRow(label, field);
    };
    add("&Port number", port_);
    add("&Device", device_);
    form->addRow({}, bursts_);
    form->addRow({}, Note("For an indicator that pauses between its frames: no number is cut."));
    column->addLayout(form);
    column->addWidget(refusal_);
    column->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    AddAction(*buttons, *this, "Save", Qt::CTRL | Qt::Key_S, [this] { Save(); })->setDefault(true);
    AddAction(*buttons, *this, "Cancel  (Esc)", {}, [this] { reject(); });
    column->addLayout(buttons);
    setMinimumWidth(width);
}

std::string PortDialog::Device() const {
    return Trimmed(FromQt(device_->currentText()));
}

void PortDialog::Save() {
    if (Device().empty())
        refusal_->Say("Device is empty. Please choose a device from the list, or type its name.");
    else if (HoldsControlCharacter(Device()))
        refusal_->Say("The device's name holds a line break or another control character. Please "
                      "take it out.");
    else
        accept();
    GrowToFit(*this);
}

} // namespace Quillane::Office
