#include "Station.h"

#include "data/CompanyProfile.h"
#include "data/Con.h"
#include "platform/comm/MSComm.h"
#include "platform/comm/StationPorts.h"
#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/host/StationFile.h"
#include "platform/host/StationFolder.h"
#include "setup/DatabaseSetup.h"
#include "shell/Desktop.h"
#include "shell/Startup.h"
#include "signin/UserLogin.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"

#include <QEventLoop>
#include <QTableView>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace Quillane::Testing {

namespace {

std::string CellText(const Value& cell) {
    if (const auto* number = std::get_if<double>(&cell.Raw())) {
        char digits[40];
        std::snprintf(digits, sizeof digits, "%.17g", *number);
        return digits;
    }
    return cell.IsNull() ? "Null" : cell.Text();
}

/// Reports the failure and closes everything.
void RunDay(Operator& by, const std::function<void(Operator&)>& day) {
    try {
        day(by);
    } catch (const std::exception& missed) {
        ADD_FAILURE() << missed.what();
        by.Picture(testing::UnitTest::GetInstance()->current_test_info()->name());
    }
    by.CloseEverything();
}

} // namespace

void Station::SetUp() {
    ASSERT_TRUE(HasDisplay());
    database.emplace();
    folder = &database->folder;
    ::setenv("XDG_CONFIG_HOME", folder->File("settings").c_str(), 1);
    folder->Write("Config.ini", database->ConfigText() + "\n");
    indicator.emplace(folder->File("scale"), 12540);
    SetStationFolder(folder->path);
    TheStation() = StationFile();
    TheStation().Ports[1] = folder->File("scale");
    UseStationPorts();
    SetBoxPresenter({});
    boxes.emplace();
    end.emplace();
}

void Station::TearDown() {
    TheDesktop.reset();
    UserLogin.Release();
    CompanyProfile.Release();
    DatabaseSetup.Release();
    Con.reset();
    end.reset();
    boxes.reset();
    ForbidUnexpectedBoxes();
    MSComm::SetDevices({});
    MSComm::SetWholeBursts({});
    SetStationFolder("");
    TheStation() = StationFile();
    indicator.reset();
    ::unsetenv("XDG_CONFIG_HOME");
    database.reset();
}

void Station::Work(const Day& day) {
    QEventLoop loop;
    Operator by(*boxes);
    std::thread hands;
    QTimer::singleShot(0, &loop, [] { RunEvent(Main); });
    hands = std::thread([&] {
        RunDay(by, day);
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    hands.join();
}

void Station::WorkOnWeighment(const std::function<void(Operator&, FrmWeighment&)>& day) {
    Work([&](Operator& by) {
        by.SignIn("Nadia", "grain");
        day(by, by.OpenWeighment());
    });
}

void Station::Indicate(const Operator& by, const std::string& command) {
    by.See([&] { indicator->Command(command); });
}

void Station::RunBeside(const std::string& statement) const {
    database->Run(statement);
}

std::vector<Station::Row> Station::Stored(const std::string& query) const {
    std::vector<Row> rows;
    for (const StationDatabase::Row& cells : database->Rows(query))
        std::transform(cells.begin(), cells.end(), std::back_inserter(rows.emplace_back()),
                       CellText);
    return rows;
}

void EnterAllButBagLines(Operator& by) {
    by.UntilActive("TxtArrivalId");
    by.Press({"Return", "Return"});
    by.UntilActive("CboCommodity");
    by.Type("Wheat");
    by.Press({"Return", "Return"});
    by.UntilActive("CboSeller");
    by.Type("chau");
    by.Press({"Return"});
    by.UntilActive("CmdGrossWeight");
    by.UntilReading(12540);
    by.Press({"space"});
    by.UntilActive("CmdTareWeight");
    by.Press({"Return"});
    by.UntilActive("Grid");
    by.Press({"Tab", "Tab"});
    by.UntilActive("TxtVehicleNo");
    by.Type("LEA-4521");
    by.Press({"shift+Tab"});
    by.UntilActive("TxtDeduction");
}

void EnterGrid(Operator& by, FrmWeighment& screen) {
    auto& view = dynamic_cast<QTableView&>(screen.Grid.Widget());
    by.Click(*view.viewport(), [&] { return view.visualRect(view.model()->index(0, 0)).center(); });
    by.UntilActive("Grid");
}

} // namespace Quillane::Testing
