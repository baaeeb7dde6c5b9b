#include "office/window/PortsPanel.h"

#include "office/records/StationEntries.h"
#include "office/window/OfficeBoxes.h"
#include "office/window/PortDialog.h"
#include "platform/forms/core/Text.h"
#include "platform/host/StationFile.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QPushButton>

#include <array>

namespace Quillane::Office {

namespace {

QVBoxLayout* Titled(const QString& title, QTableView* view) {
    auto* column = new QVBoxLayout;
    column->setSpacing(6);
    column->addWidget(Heading(title));
    LookLikeTable(*view);
    view->setAccessibleName(title);
    view->horizontalHeader()->setStretchLastSection(true);
    column->addWidget(view, 1);
    return column;
}

void Size(QTableView& view, std::initializer_list<int> widths) {
    int column = 0;
    for (const int width : widths)
        view.setColumnWidth(column++, width);
}

} // namespace

PortsPanel::PortsPanel(OfficeSession& session, QWidget& page) : session_(session), page_(page) {
    LayOut();
}

void PortsPanel::LayOut() {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(16);
    auto* left = Titled("Ports of this station (Station.ini)", ports_);
    auto* right = Titled("Serial devices of this computer", devices_);
    ports_->setModel(&portModel_);
    devices_->setModel(&deviceModel_);
    auto* actions = new QHBoxLayout;
    AddAction(*actions, page_, "&Device...", Qt::CTRL | Qt::Key_D, [this] { Assign(); });
    AddAction(*actions, page_, "&Whole bursts", Qt::CTRL | Qt::Key_B, [this] { ToggleBursts(); });
    AddAction(*actions, page_, "R&emove entry", Qt::Key_Delete, [this] { Remove(); });
    actions->addStretch();
    left->addLayout(actions);
    auto* look = new QHBoxLayout;
    AddAction(*look, page_, "&Look again", Qt::Key_F5, [this] { Reload(); });
    look->addStretch();
    right->addLayout(look);
    row->addLayout(left, 1);
    row->addLayout(right, 1);
}

void PortsPanel::Reload() {
    const StationFile station = StationFile::Read(session_.folder + "/Station.ini");
    TheStation() = station;
    shownPorts_ = station.Ports;
    shownBursts_ = station.WholeBursts;
    found_ = FindDevices();
    ShowPorts();
    ShowDevices();
}

// The two ports that the bench offers are always shown.
void PortsPanel::ShowPorts() {
    const int chosen = std::max(ChosenPort(), 1);
    std::set<int> numbers{1, 2};
    for (const auto& [port, device] : shownPorts_)
        numbers.insert(port);
    numbers.insert(shownBursts_.begin(), shownBursts_.end());
    portModel_.clear();
    portModel_.setHorizontalHeaderLabels({"Port", "Device", "Bursts", "By this user"});
    for (const int port : numbers) {
        auto* number = new QStandardItem(QString::number(port));
        number->setData(port);
        const QString device =
            ToQt(DeviceOf(port)) + (shownPorts_.contains(port) ? "" : " (usual)");
        const QString state = ToQt(DescribeAccess(DeviceOf(port)));
        auto* stateItem = new QStandardItem(state);
        stateItem->setToolTip(state);
        portModel_.appendRow({number, new QStandardItem(device),
                              new QStandardItem(shownBursts_.contains(port) ? "whole" : "-"),
                              stateItem});
        if (port == chosen)
            ports_->selectRow(portModel_.rowCount() - 1);
    }
    Size(*ports_, {50, 160, 62});
}

void PortsPanel::ShowDevices() {
    deviceModel_.clear();
    deviceModel_.setHorizontalHeaderLabels({"Device", "Description", "By this user"});
    for (const SerialDevice& each : found_) {
        QList<QStandardItem*> row{new QStandardItem(ToQt(each.systemName)),
                                  new QStandardItem(ToQt(each.description)),
                                  new QStandardItem(ToQt(each.access))};
        for (QStandardItem* item : row)
            item->setToolTip(item->text());
        deviceModel_.appendRow(row);
    }
    if (found_.empty())
        deviceModel_.appendRow(new QStandardItem("None was found."));
    if (found_.empty())
        devices_->setSpan(0, 0, 1, 3);
    else
        devices_->clearSpans();
    Size(*devices_, {110, 170});
}

int PortsPanel::ChosenPort() const {
    const QStandardItem* item = portModel_.item(ports_->currentIndex().row());
    return item ? item->data().toInt() : 0;
}

std::string PortsPanel::DeviceOf(int port) const {
    return TheStation().PortDevice(port);
}

// For a port without a device, the device that is selected at the right is proposed.
void PortsPanel::Assign() {
    const int port = std::max(ChosenPort(), 1);
    const int chosen = devices_->currentIndex().row();
    const bool isChosen = chosen >= 0 && chosen < static_cast<int>(found_.size());
    const std::string proposed = isChosen && !shownPorts_.contains(port)
                                     ? found_[static_cast<std::size_t>(chosen)].device
                                     : DeviceOf(port);
    PortDialog dialog(found_, port, proposed, shownBursts_.contains(port), window());
    if (dialog.exec() == QDialog::Accepted)
        Store(dialog.Port(), dialog.Device(), dialog.ReadsBursts());
}

void PortsPanel::Remove() {
    const int port = ChosenPort();
    const bool isKept = shownPorts_.contains(port) || shownBursts_.contains(port);
    if (isKept && Ask(window(),
                      "Remove the entries of port " + std::to_string(port) +
                          " from Station.ini? The port then has its usual device.",
                      "&Remove"))
        Store(port, std::nullopt, false);
}

void PortsPanel::ToggleBursts() {
    const int port = ChosenPort();
    if (port == 0)
        return;
    const auto device = shownPorts_.find(port);
    Store(port,
          device == shownPorts_.end() ? std::nullopt : std::optional<std::string>(device->second),
          !shownBursts_.contains(port));
}

void PortsPanel::Store(int port, const std::optional<std::string>& device, bool readsBursts) {
    const std::optional<std::string> yes("yes");
    const auto shown = shownPorts_.find(port);
    const std::array entries{StationEntry{.section = "Ports",
                                          .number = port,
                                          .shown = shown == shownPorts_.end()
                                                       ? std::nullopt
                                                       : std::optional<std::string>(shown->second),
                                          .wanted = device},
                             StationEntry{.section = "WholeBursts",
                                          .number = port,
                                          .shown = shownBursts_.contains(port) ? yes : std::nullopt,
                                          .wanted = readsBursts ? yes : std::nullopt}};
    if (const std::string why = SaveStationEntries(session_.folder, entries); !why.empty())
        Warn(window(), why);
    Reload();
}

} // namespace Quillane::Office
