#pragma once

#include "platform/report/Report.h"

#include <QTextLayout>

#include <memory>

namespace Quillane {

/// A non-empty text that is wrapped for an object. It is measured in twips independently of a
/// device, so that all devices wrap it in the same way.
class TextLines {
public:
    TextLines(const ReportObject& object, const QString& text);

    /// The height of the object if all lines fit, otherwise the height that they need.
    double NeededHeight() const { return neededHeight_; }
    QString Text() const { return layout_->text(); }
    int LineCount() const { return layout_->lineCount(); }
    /// The font size in twips, reduced if the text did not fit.
    int Size() const { return layout_->font().pixelSize(); }
    void Draw(QPainter& painter, QPointF corner) const { layout_->draw(&painter, corner); }

private:
    double BreakIntoLines(double width, double left, double baseline);
    void ShrinkTo(double width);

    std::unique_ptr<QTextLayout> layout_;
    double neededHeight_ = 0;
};

} // namespace Quillane
