#include "office/window/DayBookPage.h"

#include "office/records/Texts.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/dialogs/LockScreen.h"
#include "platform/runtime/Failure.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QTableView>
#include <QTime>

namespace Quillane::Office {

DayBookPage::DayBookPage(OfficeSession& session)
    : session_(session), filter_(new DayBookFilterBar), tabs_(new QTabWidget),
      picture_(new PictureView), state_(Note("")), progress_(new QProgressBar),
      cancel_(new QPushButton("Cancel reading  (Esc)")), all_(new QCheckBox("&All tables")),
      fault_(new Notice(Notice::Kind::Fault)) {
    LayOut();
    reading_.setInterval(0);
    connect(&reading_, &QTimer::timeout, this, &DayBookPage::ReadOn);
    filter_->Changed = [this] { Read(); };
    arrivals_.Failed = [this](const std::string& reason) { fault_->Say(ToQt(reason)); };
    Read();
}

void DayBookPage::LayOut() {
    QVBoxLayout* column = PageColumn(*this, "Day book", "The arrivals of a period and their sums.");
    column->addWidget(filter_);
    column->addWidget(fault_);
    AddTabs();
    column->addWidget(tabs_, 1);
    AddStatus(*column);
    AddActions(*column);
    setFocusProxy(filter_);
}

void DayBookPage::AddTabs() {
    constexpr int account = 3;
    arrivalsTable_ = new DayBookTable(arrivals_, ArrivalHeadings(), account);
    dayTable_ = new DayBookTable(days_, SumHeadings(SumsBy::Day));
    partyTable_ = new DayBookTable(parties_, SumHeadings(SumsBy::Party));
    commodityTable_ = new DayBookTable(commodities_, SumHeadings(SumsBy::Commodity));
    tabs_->addTab(arrivalsTable_, "Arriva&ls");
    tabs_->addTab(dayTable_, "By &day");
    tabs_->addTab(partyTable_, "&By party");
    tabs_->addTab(commodityTable_, "By co&mmodity");
    tabs_->addTab(picture_, "Pict&ure");
    tabs_->setDocumentMode(true);
}

void DayBookPage::AddStatus(QBoxLayout& column) {
    constexpr int progressWidth = 220;
    auto* row = new QHBoxLayout;
    progress_->setFixedWidth(progressWidth);
    progress_->setRange(0, 100);
    cancel_->setAutoDefault(false);
    row->addWidget(state_, 1);
    row->addWidget(progress_);
    row->addWidget(cancel_);
    column.addLayout(row);
    connect(cancel_, &QPushButton::clicked, this, &DayBookPage::CancelReading);
    auto* escape = new QShortcut(Qt::Key_Escape, this);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, &DayBookPage::CancelReading);
}

void DayBookPage::AddActions(QBoxLayout& column) {
    auto* row = new QHBoxLayout;
    AddAction(*row, *this, "Read again", QKeySequence(Qt::Key_F5), [this] { Read(); });
    row->addStretch();
    ActAtOnce(*all_);
    row->addWidget(all_);
    AddAction(*row, *this, "Print", QKeySequence("Ctrl+P"), [this] { Print(); });
    AddAction(*row, *this, "PDF", QKeySequence("Ctrl+D"), [this] { SavePdf(); });
    AddAction(*row, *this, "CSV", QKeySequence("Ctrl+E"), [this] { SaveCsv(); });
    AddAction(*row, *this, "Excel workbook", QKeySequence("Ctrl+B"), [this] { SaveWorkbook(); });
    column.addLayout(row);
    all_->setToolTip("Print and PDF have all tables and the picture, not only the one shown.");
}

// ---- Reading ----

void DayBookPage::Read() {
    CancelReading();
    fault_->Say({});
    const ArrivalFilter filter = filter_->Filter();
    if (filter.to < filter.from) {
        fault_->Say("The last day is before the first one. Please change one of them.");
        return;
    }
    try {
        book_ = std::make_shared<DayBook>(session_.connection, filter);
    } catch (const Failure& failure) {
        fault_->Say(ToQt(failure.Description()));
        return;
    }
    filter_->Offer(book_->Names());
    arrivals_.Show(book_);
    ShowProgress();
    progress_->show();
    cancel_->show();
    reading_.start();
}

void DayBookPage::CancelReading() {
    if (!IsReading())
        return;
    reading_.stop();
    ShowSums();
    ShowEnd("Reading was cancelled: these are not all arrivals. F5 reads them again.");
}

/// No exception may pass through the timer.
void DayBookPage::ReadOn() {
    if (IsLockScreenShown())
        return;
    try {
        const bool hasMore = book_->ReadOn();
        arrivals_.TakeMore();
        ShowProgress();
        if (hasMore)
            return;
    } catch (const Failure& failure) {
        fault_->Say(ToQt(failure.Description()));
    }
    reading_.stop();
    ShowSums();
    ShowEnd(book_->IsComplete() ? "Read at " + QTime::currentTime().toString("HH:mm") + "."
                                : "These are not all arrivals. F5 reads them again.");
}

void DayBookPage::ShowProgress() {
    constexpr double percent = 100;
    progress_->setValue(static_cast<int>(book_->Progress() * percent));
    const Sum& all = book_->Sums().All();
    arrivalsTable_->ShowBelow(CellsBelowArrivals(all));
    const std::string found = Counted(book_->Count(), "arrival", "arrivals");
    state_->setText(ToQt(
        found +
        (all.inside > 0 ? ", " + std::to_string(all.inside) + " of them still inside and in no sum"
                        : std::string()) +
        "."));
}

void DayBookPage::ShowEnd(const QString& state) {
    progress_->hide();
    cancel_->hide();
    state_->setText(state_->text() + " " + state);
}

void DayBookPage::ShowSums() {
    const Sum& all = book_->Sums().All();
    days_.Show(*book_);
    parties_.Show(*book_);
    commodities_.Show(*book_);
    dayTable_->ShowBelow(CellsBelowSums(all, SumsBy::Day));
    partyTable_->ShowBelow(CellsBelowSums(all, SumsBy::Party));
    commodityTable_->ShowBelow(CellsBelowSums(all, SumsBy::Commodity));
    picture_->Show(*book_);
}

} // namespace Quillane::Office
