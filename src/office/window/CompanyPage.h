#pragma once

#include "office/records/Settings.h"
#include "office/window/OfficeSession.h"
#include "office/window/Page.h"
#include "office/window/PageLook.h"

#include <QLineEdit>

#include <array>

namespace Quillane::Office {

/// The company's particulars, as the slip prints them.
class CompanyPage : public Page {
public:
    explicit CompanyPage(OfficeSession& session);

    QString Unsaved() const override;
    QLineEdit* Box(std::string_view key) const;
    QString Refusal() const { return refusal_->text(); }

protected:
    void showEvent(QShowEvent* event) override;

private:
    struct Field {
        std::string_view key;
        const char* caption;
        QLineEdit* box;
    };

    void LayOut();
    void Reload();
    void ShowState();
    Settings Entered() const;
    void Save();
    std::string WhyRefused(const Settings& wanted);

    OfficeSession& session_;
    Settings shown_;
    bool mayWrite_ = true;
    std::array<Field, 4> fields_{{{CompanyName, "&Name", new QLineEdit},
                                  {CompanyAddress, "&Address", new QLineEdit},
                                  {CompanyPhone, "&Phone", new QLineEdit},
                                  {CompanyEmail, "&E-mail", new QLineEdit}}};
    Notice* readOnly_ = new Notice(Notice::Kind::Information);
    Notice* asks_ = new Notice(Notice::Kind::Information);
    Notice* refusal_ = new Notice(Notice::Kind::Fault);
    QLabel* saved_ = Note({});
    QPushButton* save_ = nullptr;
    QPushButton* revert_ = nullptr;
};

} // namespace Quillane::Office
