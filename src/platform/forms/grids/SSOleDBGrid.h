#pragma once

#include "platform/forms/core/Control.h"

#include <memory>
#include <string>
#include <string_view>

namespace Quillane {

class Recordset;

/// A grid that shows a recordset, one line for each row, and changes nothing in it.
///
/// The recordset's current row is the grid's current line, both ways: a line chosen by arrows, Page
/// Up, Page Down, Home, End or the mouse becomes the current row, and a row made current by code is
/// brought into view. A recordset at its end has no current line. Only the lines in view are read
/// and painted, so that a hundred thousand rows cost no more than twenty. Tab and Enter are left to
/// the screen.
class SSOleDBGrid : public VisualControl {
public:
    SSOleDBGrid(Screen& screen, std::string name);
    ~SSOleDBGrid() override;

    struct Column {
        std::string name;
        std::string caption;
        int width = 0;         ///< twips; lines narrower or wider than the grid are fitted to it
        std::string format;    ///< "dd/MM/yyyy" for a date, empty for a value's own text
        std::string dataField; ///< shown field; a name that the rows do not have shows nothing
    };
    void AddColumn(std::string_view name, std::string_view caption, int width,
                   std::string_view format = "");
    /// By name, without regard to case; another name fails (9).
    Column& Columns(std::string_view name);

    /// What is shown from now on, owned together with whoever opened it. None, and a recordset that
    /// is closed, show no lines.
    void SetDataSource(std::shared_ptr<Recordset> rows);
    int Rows() const; ///< 0 without an open recordset
    void MoveFirst();
    void MoveLast();

    /// How the current line is drawn.
    void SetActiveRowStyle(Colour foreColour, Colour backColour);
    /// In the system's highlight colours, as it is without a style of its own.
    void SetActiveRowHighlighted();

    /// Also runs where there are no rows.
    std::function<void()> DblClick;

    QWidget& Widget() override;
    bool HandleKey(int key, int shift) override;

private:
    class View;
    std::unique_ptr<View> view_;
};

} // namespace Quillane
