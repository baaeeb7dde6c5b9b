// A station on SQL Server in its own process, for the tests of two stations and of a killed server:
//
//     FaultsStation <connection string> <name>
//
// It writes "ready" and then reads orders, one line each. "save" enters a new weighment and clicks
// the save button until it is stored or a failure is reported. "work" repeats this until a failure
// is reported. The driver of each weighment is the name and a serial number, such as "west-17".
//
// It writes one line for each event: "entered <driver>" before the first click; "begin" and
// "commit" before a transaction begins or ends; "stored <driver>" when a save has succeeded; "box
// <title>: <text>" for each box that is not a question, with bars for line ends; after a failure
// "kept" or "lost", depending on whether the entries are still on the screen; and "done" after each
// order.

#include "faults/ServerStation.h"
#include "platform/forms/core/Application.h"
#include "platform/runtime/Failure.h"

#include <algorithm>
#include <iostream>
#include <string>

namespace Quillane::Testing {
namespace {

class Worker {
public:
    Worker(ServerStation& station, std::string name) : station_(station), name_(std::move(name)) {
        station.whileBoxIsUp = [this](const Box& box) { Report(box); };
    }

    void Save() {
        driver_ = name_ + "-" + std::to_string(++serial_);
        hasFailed_ = false;
        station_.FillIn(driver_, 1 + serial_ % 4);
        std::cout << "entered " << driver_ << std::endl;
        while (station_.screen->BtnSave.Enabled() && !hasFailed_)
            station_.screen->BtnSave_Click();
        if (hasFailed_)
            std::cout << (EntriesAreKept() ? "kept" : "lost") << std::endl;
    }
    void Work() {
        do
            Save();
        while (!hasFailed_);
    }

private:
    bool EntriesAreKept() const {
        const FrmWeighment& screen = *station_.screen;
        return screen.TxtDriverName.Text() == driver_ && screen.TxtNetWeight.Text() == "8203" &&
               screen.BagRows.RowCount() == 1 + serial_ % 4 && screen.BtnSave.Enabled();
    }

    void Report(const Box& box) {
        if (box.buttons == BoxButtons::YesNo) {
            std::cout << "stored " << driver_ << std::endl;
            return;
        }
        std::string text = box.text;
        std::replace(text.begin(), text.end(), '\n', '|');
        std::cout << "box " << box.title << ": " << text << std::endl;
        hasFailed_ = hasFailed_ || box.icon == BoxIcon::Critical;
    }

    ServerStation& station_;
    std::string name_;
    std::string driver_;
    int serial_ = 0;
    bool hasFailed_ = false;
};

int Run(const std::string& connectionString, const std::string& name) {
    ServerStation station(connectionString);
    station.OnStatement = [](std::string_view statement) {
        if (statement == "BeginTrans")
            std::cout << "begin" << std::endl;
        else if (statement == "CommitTrans")
            std::cout << "commit" << std::endl;
    };
    Worker worker(station, name);
    std::cout << "ready" << std::endl;
    for (std::string order; std::getline(std::cin, order);) {
        order == "work" ? worker.Work() : worker.Save();
        std::cout << "done" << std::endl;
    }
    return 0;
}

} // namespace
} // namespace Quillane::Testing

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "FaultsStation <connection string> <name>\n";
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Quillane::Application application(argc, argv);
    Quillane::Application::setApplicationName("Quillane");
    try {
        return Quillane::Testing::Run(argv[1], argv[2]);
    } catch (const Quillane::Failure& failure) {
        std::cout << "failed " << failure.Description() << std::endl;
        return 1;
    }
}
