#pragma once

#include "office/window/PageLook.h"

#include <QDialog>
#include <QFormLayout>

namespace Quillane::Office {

/// A dialog with a form: captioned fields, below them the notices of the form, Save and Cancel.
/// Ctrl+S and Enter save, Esc closes the dialog without saving.
class FormDialog : public QDialog {
public:
    QString Refusal() const { return refusal_->text(); }

protected:
    FormDialog(const QString& title, QWidget* parent);

    /// The fields; `AddCaptioned` adds one with its caption.
    QFormLayout& Form() { return *form_; }
    /// Adds the notices and the buttons. To be called once, after the last field.
    void Finish(int width, Notice* warning = nullptr);
    /// Shows why the entries cannot be saved; an empty text shows nothing.
    void Refuse(const std::string& why);
    /// Saves and accepts the dialog, or shows why the entries are refused.
    virtual void Save() = 0;

private:
    QFormLayout* form_ = new QFormLayout;
    Notice* refusal_ = new Notice(Notice::Kind::Fault);
};

} // namespace Quillane::Office
