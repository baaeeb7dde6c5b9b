#pragma once

#include <QWidget>

namespace Quillane::Office {

/// A page of the main window that may hold unsaved entries. A page without entries is a plain
/// widget.
class Page : public QWidget {
public:
    using QWidget::QWidget;

    /// The unsaved entries as the beginning of a sentence: "The company's particulars have". Empty
    /// if nothing would be lost.
    virtual QString Unsaved() const { return {}; }
};

} // namespace Quillane::Office
