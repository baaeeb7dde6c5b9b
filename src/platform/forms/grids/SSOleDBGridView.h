#pragma once

#include "platform/ado/Recordset.h"
#include "platform/forms/grids/SSOleDBGrid.h"

#include <QAbstractScrollArea>

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace Quillane {

/// The visible part of a grid over a recordset: a header, and as many lines as fit. It reads the
/// recordset at each paint and stores none of its rows, so that a recordset which its owner has
/// closed or reopened is shown with its present rows.
class SSOleDBGrid::View : public QAbstractScrollArea {
public:
    View(SSOleDBGrid& grid, QWidget& parent);
    ~View() override;

    void AddColumn(Column column);
    Column& ColumnNamed(std::string_view name);

    void SetSource(std::shared_ptr<Recordset> rows);
    int LineCount() const; ///< 0 if no recordset is open
    void GoTo(int line);   ///< none if there is no such line
    /// Moves on arrows, Page Up, Page Down, Home and End; returns false for other keys.
    bool MoveBy(int key);

    struct LineColours {
        Colour text = 0;
        Colour base = White;
    };
    void SetLineColours(std::optional<LineColours> colours);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    class Header;
    struct RowMoved;

    void TakeMoved();
    void ReleaseMoved();
    void CurrentRowMoved();
    std::optional<int> CurrentLine() const;
    int TopLine() const;
    int LinesInView() const;
    void Fit();
    void FitAgain();
    void BringIntoView(int line);
    void ChooseAt(QPoint point);

    /// A column as it is painted: its position in the grid and its field in the recordset.
    struct Strip {
        const Column* column;
        int left;
        int width;
        int field; ///< -1: the rows have no such field
    };
    std::vector<Strip> Strips() const;
    int FieldOf(const Column& column) const;
    QString ShownText(int line, const Strip& strip) const;
    QString LineText(int line) const;
    QColor GridLineColour() const;
    void PaintFrame();
    void NoticeNewRows(int count);
    void PaintLine(QPainter& painter, int line, const QRect& place,
                   const std::vector<Strip>& strips) const;
    /// The lines around the cells of the lines in view from the first to the last.
    void PaintEdges(QPainter& painter, int first, int last, const std::vector<Strip>& strips) const;
    void PaintCell(QPainter& painter, const QString& text, const QRect& cell) const;

    SSOleDBGrid& grid_;
    std::vector<Column> columns_;
    std::shared_ptr<Recordset> rows_;
    std::optional<LineColours> lineColours_;
    std::unique_ptr<Header> header_;
    int lineHeight_ = 1;
    int fittedLines_ = 0;      ///< what the scroll bar was last fitted to
    bool choosing_ = false;    ///< a press of the mouse is making its line the current one
    bool fittingSoon_ = false; ///< a call of FitAgain is pending
};

} // namespace Quillane
