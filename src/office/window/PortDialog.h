#pragma once

#include "office/window/FormDialog.h"
#include "office/window/SerialDevices.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSpinBox>

namespace Quillane::Office {

/// A form that gives a port number its device.
class PortDialog : public FormDialog {
public:
    PortDialog(const std::vector<SerialDevice>& devices, int port, const std::string& device,
               bool readsBursts, QWidget* parent);

    int Port() const { return port_->value(); }
    std::string Device() const;
    bool ReadsBursts() const { return bursts_->isChecked(); }

private:
    void LayOut();
    void Save() override;

    QSpinBox* port_ = new QSpinBox;
    QComboBox* device_ = new QComboBox;
    QCheckBox* bursts_ = new QCheckBox("Read in &whole bursts");
};

} // namespace Quillane::Office
