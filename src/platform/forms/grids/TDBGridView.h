#pragma once

#include "platform/forms/controls/DropDownEdit.h"
#include "platform/forms/controls/DropDownList.h"
#include "platform/forms/grids/TDBGridModel.h"

#include <QTableView>

#include <memory>
#include <optional>

namespace Quillane {

/// What is seen of a grid, its current cell and the edit in it. The editor is a line inside the
/// view that no loss of Qt's focus ends: only its commands do.
class TDBGrid::View : public QTableView {
public:
    View(TDBGrid& grid, QWidget& parent);
    ~View() override;

    /// How an edit began, which says whose the arrows are.
    enum class Begun { ByTyping, WithCaret };

    TDBGridModel& Model() { return model_; }
    void ReBind();

    int Row() const;
    int Column() const;
    /// Moves to a cell, as far as there is one; commits nothing. A stale model is reset before.
    void GoTo(int row, int column);
    /// Arrows, Home, End, Page Up and Page Down move; other keys give false.
    bool MoveBy(int key);

    bool IsEditing() const { return editing_; }
    bool ArrowsAreTheCarets() const { return begun_ == Begun::WithCaret; }
    void SetBegun(Begun begun) { begun_ = begun; }
    void BeginEdit(Begun begun, const QString& text);
    void Commit();
    void GiveUp();
    const QString& RefusedText() const { return refused_; }

    DropDownList& List() { return list_; }
    void ToggleList();

    int SelectedLine() const { return selectedLine_; } ///< -1: none
    void DeleteLine(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent* event) override;

private:
    class Painter;

    void FitColumns();
    void FitRows();
    void PlaceEditor();
    QRect CellRect() const;
    QRect ArrowRect() const;
    GridColumn& CurrentColumn() { return model_.Column(Column()); }
    void PassToEditor(QKeyEvent* event);
    const RowArray* Names();
    bool MayType(const QString& text);
    void TextTyped(bool added);
    void DropDown(std::optional<int> highlighted);
    std::optional<QString> TextToStore();
    void EndEdit();
    void SelectLine(int row);
    void Press(QPoint position);

    TDBGrid& grid_;
    TDBGridModel model_;
    std::unique_ptr<Painter> painter_;
    DropDownEdit editor_;
    DropDownList list_;
    bool editing_ = false;
    Begun begun_ = Begun::ByTyping;
    QString refused_; ///< what the last edit lost: its list does not hold it
    int selectedLine_ = -1;
};

} // namespace Quillane
