#pragma once

#include "platform/report/Report.h"

#include <QTextLayout>

#include <memory>

namespace Quillane {

/// A text, not empty, broken into lines for an object, measured in twips on no particular device,
/// so that every device breaks it alike.
class TextLines {
public:
    TextLines(const ReportObject& object, const QString& text);

    /// The height that the object needs to hold all lines; its own height where they fit.
    double NeededHeight() const { return neededHeight_; }
    QString Text() const { return layout_->text(); }
    int LineCount() const { return layout_->lineCount(); }
    /// Of the font, in twips: smaller than asked for where the text did not fit.
    int Size() const { return layout_->font().pixelSize(); }
    void Draw(QPainter& painter, QPointF corner) const { layout_->draw(&painter, corner); }

private:
    double BreakIntoLines(double width, double left, double baseline);
    void ShrinkTo(double width);

    std::unique_ptr<QTextLayout> layout_;
    double neededHeight_ = 0;
};

} // namespace Quillane
