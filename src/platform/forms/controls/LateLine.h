#pragma once

#include <QLineEdit>

#include <optional>

namespace Quillane {

/// A line that lays out a text from code when the next event reaches it (painting is an event too),
/// and not at each of the many assignments that fill a screen. Until then Qt's `text()` returns the
/// former text.
class LateLine : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

    /// The text that was written or typed last.
    QString Text() const { return awaited_ ? *awaited_ : text(); }
    void Write(const QString& text);
    /// Lays out a written text immediately, before a call of Qt that uses the text.
    void Settle();

    bool event(QEvent* event) override;

protected:
    /// Puts a written text into the line.
    virtual void Show(const QString& text) { setText(text); }

private:
    std::optional<QString> awaited_;
};

} // namespace Quillane
