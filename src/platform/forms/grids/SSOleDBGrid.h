#pragma once

#include "platform/forms/core/Control.h"

#include <memory>
#include <string>
#include <string_view>

namespace Quillane {

class Recordset;

/// A grid that shows a recordset, one line for each row, and changes nothing in it.
///
/// The current row of the recordset is the current line of the grid: a line selected by arrows,
/// Page Up, Page Down, Home, End or the mouse becomes the current row, and a row that code makes
/// current is scrolled into view. A recordset at its end has no current line. Only the lines in
/// view are read and painted, so that the cost does not depend on the number of rows. The screen
/// receives Tab and Enter.
class SSOleDBGrid : public VisualControl {
public:
    SSOleDBGrid(Screen& screen, std::string name);
    ~SSOleDBGrid() override;

    struct Column {
        std::string name;
        std::string caption;
        int width = 0;         ///< twips; the columns are scaled to the width of the grid
        std::string format;    ///< "dd/MM/yyyy" for a date; empty: the text of the value
        std::string dataField; ///< shown field; a name that the rows do not have shows nothing
    };
    void AddColumn(std::string_view name, std::string_view caption, int width,
                   std::string_view format = "");
    /// By name, ignoring case; an unknown name fails (9).
    Column& Columns(std::string_view name);

    /// Sets the recordset to show; its ownership is shared. Null or a closed recordset shows no
    /// lines.
    void SetDataSource(std::shared_ptr<Recordset> rows);
    int Rows() const; ///< 0 if no recordset is open
    void MoveFirst();
    void MoveLast();

    /// The appearance of the current line.
    void SetActiveRowStyle(Colour foreColour, Colour backColour);
    /// The system's highlight colours, which is the default.
    void SetActiveRowHighlighted();

    /// Also runs if there are no rows.
    std::function<void()> DblClick;

    QWidget& Widget() override;
    bool HandleKey(int key, int shift) override;

private:
    class View;
    std::unique_ptr<View> view_;
};

} // namespace Quillane
