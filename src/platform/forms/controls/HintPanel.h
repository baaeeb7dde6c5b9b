#pragma once

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

namespace Quillane {

/// Advice on a screen, painted where the layout leaves space. It is not a control of the screen: it
/// has no position in the control order or the tab order, takes no focus, key or mouse press, and
/// requests no space from the layout. Lines that do not fit are left out, the last ones first.
///
/// `Source` is called each time the program has processed its waiting events. Requires: it is
/// quick, changes nothing and does not fail.
class HintPanel : public QWidget {
public:
    enum class Kind {
        Answer, ///< why the last key did nothing: bold, and announced to a screen reader
        Note,   ///< something unusual: bold
        Plain,
        Keys
    };
    struct Line {
        Kind kind = Kind::Plain;
        std::string text;
        bool operator==(const Line&) const = default;
    };

    HintPanel();

    std::function<std::vector<Line>()> Source;
    /// Runs when a different answer is shown.
    std::function<void()> Answered;

    /// Shows the present lines of the source.
    void Refresh();
    const std::vector<Line>& Lines() const { return lines_; }
    /// The answer among the lines, or the empty text.
    std::string Answer() const;

    QSize sizeHint() const override { return {0, 0}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<Line> lines_;
};

} // namespace Quillane
