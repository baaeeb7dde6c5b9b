#pragma once

#include <QRect>
#include <QScrollBar>

namespace Quillane {

/// A scroll bar that paints itself only if its appearance changes. With thousands of lines, a step
/// or a few more lines do not move its slider, and painting it costs more than painting ten lines.
class SSOleDBGridScrollBar : public QScrollBar {
public:
    explicit SSOleDBGridScrollBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {}

protected:
    void sliderChange(SliderChange change) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// The visible part of the scroll bar's state.
    struct Look {
        QRect slider;
        bool atTop = false;
        bool atEnd = false;
        bool operator==(const Look&) const = default;
    };
    Look CurrentLook() const;

    Look painted_;
};

} // namespace Quillane
