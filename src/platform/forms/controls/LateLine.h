#pragma once

#include <QLineEdit>

#include <optional>

namespace Quillane {

/// A line whose text from code is laid out when the line is next needed, not at each of the many
/// assignments that fill a screen: whatever reaches the line, its painting too, comes as an event.
/// Until then Qt's own `text()` has the former text.
class LateLine : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

    /// The text that was written or typed last.
    QString Text() const { return awaited_ ? *awaited_ : text(); }
    void Write(const QString& text);
    /// Lays a written text out at once: for calls of Qt's that look at the text.
    void Settle();

    bool event(QEvent* event) override;

protected:
    /// Puts a written text into the line.
    virtual void Show(const QString& text) { setText(text); }

private:
    std::optional<QString> awaited_;
};

} // namespace Quillane
