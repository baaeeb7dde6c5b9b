#include "office/window/CompanyPage.h"

#include "office/records/StationEntries.h"
#include "office/records/Texts.h"
#include "office/window/OfficeBoxes.h"
#include "platform/forms/core/Text.h"
#include "platform/host/StationFile.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QPushButton>
#include <QShowEvent>

namespace Quillane::Office {

namespace {

constexpr int longestValue = 400; ///< of the table's column, in UTF-16 units

std::string CellOf(const Settings& settings, std::string_view key) {
    const auto found = settings.find(key);
    return found == settings.end() ? std::string() : found->second;
}

} // namespace

CompanyPage::CompanyPage(OfficeSession& session) : session_(session) {
    LayOut();
    const std::string why = session.whyReadOnly(
        session.connection, std::array<std::string_view, 1>{"Project_Registry"});
    mayWrite_ = why.empty();
    readOnly_->Say(ToQt(why));
    if (StationFile::Read(session.folder + "/Station.ini").AskCompanyName == -1)
        asks_->Say("This station asks for the company's name at each start (AskCompanyName=-1 in "
                   "Station.ini). A name entered there replaces this one.");
    for (const Field& field : fields_) {
        field.box->setReadOnly(!mayWrite_);
        connect(field.box, &QLineEdit::textEdited, this, [this] { ShowState(); });
    }
    Reload();
}

void CompanyPage::LayOut() {
    constexpr int widest = 640;
    QVBoxLayout* column = PageColumn(
        *this, "Company", "The heading of the slip. A station takes it at its next start.");
    column->addWidget(readOnly_);
    column->addWidget(asks_);
    auto* form = new QFormLayout;
    SpaceFields(*form);
    for (const Field& field : fields_) {
        field.box->setMaximumWidth(widest);
        AddCaptioned(*form, field.caption, field.box);
        if (field.key == CompanyName)
            form->addRow({}, Note("Printed in capitals. It is written to the database and to this "
                                  "station's Station.ini;\nanother station writes the name of its "
                                  "own Station.ini at its start."));
    }
    column->addLayout(form);
    column->addWidget(refusal_);
    auto* row = new QHBoxLayout;
    save_ = AddAction(*row, *this, "&Save", Qt::CTRL | Qt::Key_S, [this] { Save(); });
    revert_ = AddAction(*row, *this, "&Read again", Qt::Key_F5, [this] { Reload(); });
    row->addWidget(saved_);
    row->addStretch();
    column->addLayout(row);
    column->addStretch();
    setFocusProxy(fields_[0].box);
}

void CompanyPage::Reload() {
    shown_ = ReadSettings(session_.connection, CompanySettings());
    for (const Field& field : fields_)
        field.box->setText(ToQt(CellOf(shown_, field.key)));
    refusal_->Say({});
    saved_->clear();
    ShowState();
}

Settings CompanyPage::Entered() const {
    Settings entered;
    for (const Field& field : fields_) {
        const std::string before = CellOf(shown_, field.key);
        const std::string typed = FromQt(field.box->text());
        entered.emplace(field.key, typed == before ? before : Trimmed(typed));
    }
    return entered;
}

void CompanyPage::ShowState() {
    const bool differs = !Unsaved().isEmpty();
    save_->setEnabled(mayWrite_ && differs);
    if (differs)
        saved_->clear();
}

QString CompanyPage::Unsaved() const {
    for (const auto& [key, value] : Entered())
        if (value != CellOf(shown_, key))
            return "The company's particulars have";
    return {};
}

// The name first: it is also in Station.ini, which is restored if the database refuses the name.
std::string CompanyPage::WhyRefused(const Settings& wanted) {
    Settings others;
    for (const auto& [key, value] : wanted) {
        if (Utf16Length(value) > longestValue)
            return "A text has more than " + std::to_string(longestValue) +
                   " characters. Shorten it.";
        if (HoldsControlCharacter(value))
            return "A text contains a line break or another control character. Remove it.";
        if (key != CompanyName)
            others.emplace(key, value);
    }
    const std::string name = CellOf(wanted, CompanyName);
    if (name != CellOf(shown_, CompanyName)) {
        std::string why = SaveCompanyName(session_.connection, session_.folder,
                                          CellOf(shown_, CompanyName), name);
        if (!why.empty())
            return why;
        shown_ = ReadSettings(session_.connection, CompanySettings());
    }
    return SaveSettings(session_.connection, CompanySettings(), shown_, others);
}

void CompanyPage::Save() {
    const std::string why = WhyRefused(Entered());
    refusal_->Say(ToQt(why));
    if (!why.empty())
        return;
    Reload();
    saved_->setText("Saved.");
}

void CompanyPage::showEvent(QShowEvent* event) {
    Page::showEvent(event);
    if (!event->spontaneous() && Unsaved().isEmpty())
        Guarded(window(), [this] { Reload(); });
}

QLineEdit* CompanyPage::Box(std::string_view key) const {
    return std::ranges::find(fields_, key, &Field::key)->box;
}

} // namespace Quillane::Office
