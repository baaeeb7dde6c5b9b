#pragma once

#include "office/window/OfficeSession.h"
#include "office/window/PageLook.h"
#include "office/window/SerialDevices.h"

#include <QStandardItemModel>
#include <QTableView>
#include <QWidget>

#include <functional>
#include <map>
#include <optional>
#include <set>

namespace Quillane::Office {

/// The ports of this station in `Station.ini`, and the serial devices of this computer.
class PortsPanel : public QWidget {
public:
    /// The shortcuts work on the whole page.
    PortsPanel(OfficeSession& session, QWidget& page);

    /// Lists the devices; replaced by tests.
    std::function<std::vector<SerialDevice>()> FindDevices = SerialDevices;

    QTableView* Ports() { return ports_; }
    QTableView* Devices() { return devices_; }
    void Reload();

private:
    void LayOut();
    void ShowPorts();
    void ShowDevices();
    /// The number of the selected port; 0 if none is selected.
    int ChosenPort() const;
    std::string DeviceOf(int port) const;

    void Assign();
    void Remove();
    void ToggleBursts();
    void Store(int port, const std::optional<std::string>& device, bool readsBursts);

    OfficeSession& session_;
    QWidget& page_;
    std::map<int, std::string> shownPorts_;
    std::set<int> shownBursts_;
    std::vector<SerialDevice> found_;
    QStandardItemModel portModel_;
    QStandardItemModel deviceModel_;
    QTableView* ports_ = new QTableView;
    QTableView* devices_ = new QTableView;
};

} // namespace Quillane::Office
