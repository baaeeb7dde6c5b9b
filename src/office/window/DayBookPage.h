#pragma once

#include "office/daybook/DayBookReport.h"
#include "office/daybook/Export.h"
#include "office/window/DayBookFilterBar.h"
#include "office/window/DayBookTable.h"
#include "office/window/OfficeSession.h"
#include "office/window/PageLook.h"
#include "office/window/PictureView.h"

#include <QTimer>

class QCheckBox;
class QProgressBar;
class QTabWidget;

namespace Quillane::Office {

/// The arrivals of some days, their sums and their picture, to view, print and export. The arrivals
/// are read page by page between the window's events. A change of the filter, or Cancel, ends the
/// current reading.
class DayBookPage : public QWidget {
public:
    explicit DayBookPage(OfficeSession& session);

    /// Reads the arrivals of the filter from the beginning.
    void Read();
    bool IsReading() const { return reading_.isActive(); }
    void CancelReading();

    /// Asks for the path of a file; empty if the user cancels. Replaced by tests.
    std::function<QString(const QString& proposed, const QString& kind)> ChooseFile;

private:
    enum Tab { ArrivalsTab, DayTab, PartyTab, CommodityTab, PictureTab };

    void LayOut();
    void AddTabs();
    void AddStatus(QBoxLayout& column);
    void AddActions(QBoxLayout& column);
    void ReadOn();
    void ShowProgress();
    void ShowEnd(const QString& state);
    void ShowSums();
    bool HasWhole();
    std::unique_ptr<DayBookReport> PrintedReport() const;
    QString AskFor(const std::string& name, const QString& ending, const QString& kind);
    /// Shows the progress of writing, then the path of the file.
    void WriteFile(const QString& path, const std::function<bool(DayBook&, const GoOn&)>& write);

    void Print();
    void SavePdf();
    void SaveCsv();
    void SaveWorkbook();

    OfficeSession& session_;
    std::shared_ptr<DayBook> book_;
    QTimer reading_;
    ArrivalsModel arrivals_;
    SumsModel days_{SumsBy::Day};
    SumsModel parties_{SumsBy::Party};
    SumsModel commodities_{SumsBy::Commodity};
    DayBookFilterBar* filter_;
    QTabWidget* tabs_;
    DayBookTable* arrivalsTable_;
    DayBookTable* dayTable_;
    DayBookTable* partyTable_;
    DayBookTable* commodityTable_;
    PictureView* picture_;
    QLabel* state_;
    QProgressBar* progress_;
    QPushButton* cancel_;
    QCheckBox* all_;
    Notice* fault_;
};

} // namespace Quillane::Office
