#include "office/window/PortDialog.h"

#include "office/records/Texts.h"
#include "platform/forms/core/Text.h"

namespace Quillane::Office {

PortDialog::PortDialog(const std::vector<SerialDevice>& devices, int port,
                       const std::string& device, bool readsBursts, QWidget* parent)
    : FormDialog("Give a port its device", parent) {
    constexpr int highestPort = 32767; // as the stations read a port's number
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
    AddCaptioned(Form(), "&Port number", port_);
    AddCaptioned(Form(), "&Device", device_);
    ActAtOnce(*bursts_);
    Form().addRow({}, bursts_);
    Form().addRow({}, Note("For an indicator that pauses between its frames: no number is cut."));
    Finish(width);
}

std::string PortDialog::Device() const {
    return Trimmed(FromQt(device_->currentText()));
}

void PortDialog::Save() {
    if (Device().empty())
        Refuse("Device is empty. Choose a device from the list, or type its name.");
    else if (HoldsControlCharacter(Device()))
        Refuse("The name of the device contains a line break or another control character. Remove "
               "it.");
    else
        accept();
}

} // namespace Quillane::Office
