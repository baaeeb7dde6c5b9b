// The page that moves a station to a SQL Server, up to the end.

#include "office/window/MovePage.h"

#include "../move/ServerFixture.h"
#include "WindowDriver.h"

#include <QMainWindow>

namespace Quillane::Office {
namespace {

class OfficeMoveToServer : public StationToMoveToServer {
protected:
    OfficeMoveToServer() {
        station.Open(connection);
        page = new MovePage(session);
        window.setCentralWidget(page);
        window.resize(1090, 640);
        ShowWindow(window);
        page->setFocus();
    }

    Connection connection;
    OfficeSession session{
        .connection = connection, .folder = station.folder.path, .user = "Nadia", .level = 1};
    QMainWindow window;
    MovePage* page = nullptr;
};

TEST_F(OfficeMoveToServer, MovesTheStationAndClosesTheOffice) {
    const std::map<std::string, long> counts = Counts();
    page->Choose(Place(), {});
    LookAt(window, "move-to-server");
    const Answers answers({"Move", "OK"});
    Press(window, Qt::CTRL | Qt::Key_M);
    ASSERT_EQ(answers.Texts().size(), 2U);
    EXPECT_NE(answers.Texts()[1].find(" are on the server; counts, sums and checksums agree."),
              std::string::npos)
        << answers.Texts()[1];
    EXPECT_FALSE(window.isVisible());
    ExpectMoved(counts);
}

} // namespace
} // namespace Quillane::Office
