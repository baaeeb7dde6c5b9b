#include "office/window/DayBookFilterBar.h"

#include "office/window/PageLook.h"
#include "platform/forms/core/Text.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

namespace Quillane::Office {

namespace {

Date DayOf(const QDate& day) {
    return std::chrono::year(day.year()) / std::chrono::month(static_cast<unsigned>(day.month())) /
           std::chrono::day(static_cast<unsigned>(day.day()));
}

QDate ShownToday() {
    const Date today = Today();
    return {static_cast<int>(today.year()), static_cast<int>(static_cast<unsigned>(today.month())),
            static_cast<int>(static_cast<unsigned>(today.day()))};
}

struct Period {
    const char* name;
    QDate (*from)(QDate today);
    QDate (*to)(QDate today);
};

QDate MonthBegin(QDate day) {
    return {day.year(), day.month(), 1};
}

constexpr Period periods[] = {
    {"Today", [](QDate today) { return today; }, [](QDate today) { return today; }},
    {"Yesterday", [](QDate today) { return today.addDays(-1); },
     [](QDate today) { return today.addDays(-1); }},
    {"Last 7 days", [](QDate today) { return today.addDays(-6); },
     [](QDate today) { return today; }},
    {"This month", MonthBegin, [](QDate today) { return today; }},
    {"Last month", [](QDate today) { return MonthBegin(today).addMonths(-1); },
     [](QDate today) { return MonthBegin(today).addDays(-1); }},
    {"This year", [](QDate today) { return QDate(today.year(), 1, 1); },
     [](QDate today) { return today; }},
    {"Last 365 days", [](QDate today) { return today.addDays(-365); },
     [](QDate today) { return today; }}};

QDateEdit* DayBox(const char* name) {
    auto* box = new QDateEdit(ShownToday());
    box->setDisplayFormat("dd/MM/yyyy");
    box->setCalendarPopup(true);
    box->setKeyboardTracking(false);
    box->setMinimumDate(QDate(1900, 1, 1));
    box->setAccessibleName(name);
    return box;
}

/// A list that can be searched by any part of a name while it is typed.
QComboBox* NameBox(const char* name, const char* all) {
    auto* box = new QComboBox;
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->completer()->setFilterMode(Qt::MatchContains);
    box->completer()->setCompletionMode(QCompleter::PopupCompletion);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->addItem(all, QString());
    box->setAccessibleName(name);
    // A text that is not in the list means all entries.
    QObject::connect(box->lineEdit(), &QLineEdit::editingFinished, box, [box] {
        const int place = box->findText(box->currentText(), Qt::MatchFixedString);
        box->setCurrentIndex(std::max(place, 0));
        box->setEditText(box->itemText(box->currentIndex()));
    });
    return box;
}

QString ShownName(const Named& named) {
    return ToQt(named.name.empty() ? named.id : named.name);
}

/// Inserted below the entry for all.
bool Holds(const QComboBox& box, const std::vector<Named>& names) {
    const auto count = static_cast<int>(names.size());
    bool isSame = box.count() == count + 1;
    for (int place = 0; isSame && place < count; ++place) {
        const Named& named = names[static_cast<std::size_t>(place)];
        isSame = box.itemData(place + 1).toString() == ToQt(named.id) &&
                 box.itemText(place + 1) == ShownName(named);
    }
    return isSame;
}

void Fill(QComboBox& box, const std::vector<Named>& names) {
    if (Holds(box, names))
        return;
    const QString chosen = box.currentData().toString();
    while (box.count() > 1)
        box.removeItem(box.count() - 1);
    for (const Named& named : names)
        box.addItem(ShownName(named), ToQt(named.id));
    box.setCurrentIndex(std::max(box.findData(chosen), 0));
}

void AddField(QBoxLayout& row, const QString& caption, QWidget* field, int stretch = 0) {
    auto* label = new QLabel(caption);
    label->setBuddy(field);
    row.addWidget(label);
    row.addWidget(field, stretch);
}

} // namespace

DayBookFilterBar::DayBookFilterBar()
    : period_(new QComboBox), from_(DayBox("From")), to_(DayBox("To")),
      party_(NameBox("Party", "All parties")), commodity_(NameBox("Commodity", "All commodities")),
      vehicle_(new QLineEdit), inside_(new QCheckBox("Only trucks still &inside")) {
    vehicle_->setPlaceholderText("any part of the number");
    vehicle_->setAccessibleName("Vehicle");
    AddPeriods();
    LayOut();
    connect(period_, &QComboBox::activated, this, &DayBookFilterBar::TakePeriod);
    for (const QDateEdit* day : {from_, to_})
        connect(day, &QDateEdit::dateChanged, this, [this] {
            if (!isFilling_)
                period_->setCurrentIndex(-1);
            ReportChange();
        });
    for (const QComboBox* box : {party_, commodity_})
        connect(box, &QComboBox::currentIndexChanged, this, &DayBookFilterBar::ReportChange);
    connect(vehicle_, &QLineEdit::editingFinished, this, [this] {
        if (vehicle_->isModified())
            ReportChange();
        vehicle_->setModified(false);
    });
    connect(inside_, &QCheckBox::toggled, this, &DayBookFilterBar::ReportChange);
}

void DayBookFilterBar::AddPeriods() {
    period_->setAccessibleName("Period");
    period_->setPlaceholderText("As entered");
    for (const Period& period : periods)
        period_->addItem(period.name);
    period_->setCurrentIndex(0);
}

void DayBookFilterBar::LayOut() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* days = new QHBoxLayout;
    AddField(*days, "&Period", period_);
    AddField(*days, "F&rom", from_);
    AddField(*days, "&To", to_);
    AddField(*days, "&Vehicle", vehicle_, 1);
    ActAtOnce(*inside_);
    days->addWidget(inside_);
    column->addLayout(days);
    auto* names = new QHBoxLayout;
    AddField(*names, "Part&y", party_, 3);
    AddField(*names, "&Commodity", commodity_, 2);
    column->addLayout(names);
    setFocusProxy(period_);
}

void DayBookFilterBar::TakePeriod(int place) {
    const Period& period = periods[place];
    isFilling_ = true;
    from_->setDate(period.from(ShownToday()));
    to_->setDate(period.to(ShownToday()));
    isFilling_ = false;
    ReportChange();
}

void DayBookFilterBar::ReportChange() const {
    if (!isFilling_ && Changed)
        Changed();
}

ArrivalFilter DayBookFilterBar::Filter() const {
    return {.from = DayOf(from_->date()),
            .to = DayOf(to_->date()),
            .party = FromQt(party_->currentData().toString()),
            .commodity = FromQt(commodity_->currentData().toString()),
            .vehicle = FromQt(vehicle_->text().trimmed()),
            .onlyInside = inside_->isChecked()};
}

void DayBookFilterBar::Offer(const DayBookNames& names) {
    isFilling_ = true;
    Fill(*party_, names.Parties());
    Fill(*commodity_, names.Commodities());
    isFilling_ = false;
}

} // namespace Quillane::Office
