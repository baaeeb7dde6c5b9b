#pragma once

#include "platform/ado/Connection.h"
#include "platform/forms/controls/ListScreen.h"
#include "platform/forms/grids/SSOleDBGrid.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QScrollBar>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace Quillane {

/// A connection to a new, empty embedded database.
class EmptyDatabase {
public:
    EmptyDatabase() {
        std::string pattern = (std::filesystem::temp_directory_path() / "forms-XXXXXX").string();
        folder_ = ::mkdtemp(pattern.data());
        sqlite3* file = nullptr;
        sqlite3_open((folder_ + "/Account1.db").c_str(), &file);
        sqlite3_exec(file, "Create Table Project_Registry (RegistryKey, Value)", {}, {}, {});
        sqlite3_close(file);
        connection.SetEmbeddedSupport({.folder = folder_, .registerFunctions = {}});
        connection.Open("Driver=SQL Server;Server=(embedded);Database=Account1");
    }
    ~EmptyDatabase() { std::filesystem::remove_all(folder_); }
    EmptyDatabase(const EmptyDatabase&) = delete;
    EmptyDatabase& operator=(const EmptyDatabase&) = delete;

    Connection connection;

private:
    std::string folder_;
};

/// Counts the paints of a widget.
class Paints : public QObject {
public:
    explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

/// The ids 1 to `count` as ArrivalId, each with its AccountName "Party 1" and so on, and a date.
inline std::string Numbered(int count) {
    return "With Recursive N(I) As (Select 1 Where " + std::to_string(count) +
           " > 0 Union All Select I + 1 From N Where I < " + std::to_string(count) +
           ") Select I As ArrivalId, '2026-11-20T00:00:00' As ArrivalDate, "
           "'Party ' || I As AccountName From N";
}

/// A search: a box, a grid with the columns of a list of arrivals, and a box.
class SearchScreen : public ListScreen {
public:
    TextBox TxtFilter{*this, "TxtFilter"};
    SSOleDBGrid Grid{*this, "Grid"};
    TextBox TxtAfter{*this, "TxtAfter"};

    SearchScreen() {
        TxtFilter.SetTabIndex(0);
        Grid.SetTabIndex(1);
        TxtAfter.SetTabIndex(2);
        TxtFilter.Widget().setGeometry(10, 10, 300, 28);
        Grid.Widget().setGeometry(10, 50, 600, 300);
        TxtAfter.Widget().setGeometry(10, 400, 300, 28);
        Grid.AddColumn("ID", "No.", 1000);
        Grid.AddColumn("Day", "Arrival Date", 2000, "dd/MM/yyyy");
        Grid.AddColumn("Party", "Party Name", 3000);
        Grid.Columns("ID").dataField = "ArrivalId";
        Grid.Columns("Day").dataField = "ArrivalDate";
        Grid.Columns("Party").dataField = "AccountName";
    }
};

/// The grid has the focus.
class SSOleDBGridTest : public testing::Test {
protected:
    void SetUp() override {
        screen.Show();
        ASSERT_TRUE(Testing::WaitFor([this] { return screen.isActiveWindow(); }));
        grid.SetFocus();
        screen.log.clear();
        screen.keys.clear();
    }
    void TearDown() override { screen.Unload(); }

    std::shared_ptr<Recordset> Query(const std::string& statement) {
        auto rows = std::make_shared<Recordset>();
        rows->Open(statement, database.connection);
        return rows;
    }
    std::shared_ptr<Recordset> Show(int count) {
        auto rows = Query(Numbered(count));
        grid.SetDataSource(rows);
        Settle();
        return rows;
    }
    /// Waits until pending paints are done.
    static void Settle() {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    void Press(QKeyCombination key) { screen.Press(key); }
    void Press(Qt::Key key) { screen.Press(key); }

    QAbstractScrollArea& View() { return static_cast<QAbstractScrollArea&>(grid.Widget()); }
    QWidget& Viewport() { return *View().viewport(); }
    int LineHeight() { return View().fontMetrics().height() * 3 / 2; }
    int LinesInView() { return Viewport().height() / LineHeight(); }
    int Top() { return View().verticalScrollBar()->value(); }
    bool InView(int line) { return line >= Top() && line < Top() + LinesInView(); }
    QPoint PlaceOf(int line) { return {60, (line - Top()) * LineHeight() + LineHeight() / 2}; }
    void ClickLine(int line) { screen.Click(Viewport(), PlaceOf(line)); }
    void DoubleClick(QWidget& widget, QPoint place) {
        screen.Click(widget, place);
        Testing::ScreenDriver(screen).DoubleClick(widget, place);
    }

    EmptyDatabase database;
    SearchScreen screen;
    SSOleDBGrid& grid = screen.Grid;
};

} // namespace Quillane
