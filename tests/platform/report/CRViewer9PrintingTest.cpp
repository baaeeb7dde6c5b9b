#include "platform/report/CRViewer9.h"

#include "platform/report/ReportSamples.h"
#include "platform/report/ViewerScreen.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QPrinter>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::ScreenDriver;

std::string ContentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Counts the page objects of the file.
long PagesOf(const std::string& path) {
    const std::string content = ContentOf(path);
    const std::regex page("/Type /Page\\b(?!s)");
    return std::distance(std::sregex_iterator(content.begin(), content.end(), page), {});
}

Box OfferOfPdf() {
    return {.text = "No printer is installed on this computer.\n\n"
                    "Do you want to save the pages as PDF?",
            .title = "Quillane",
            .icon = BoxIcon::Question,
            .buttons = BoxButtons::YesNo};
}

/// A viewer with simulated desktop functions: a printer is installed, and files are in a temporary
/// folder. The log contains the calls in order; "pages" means that the first row was read.
class CRViewer9Printing : public testing::Test {
protected:
    CRViewer9Printing() {
        ReportObject& row = report_.Section(ReportSectionKind::Detail).Objects[0];
        row.field.formula = [this, formula = row.field.formula](const ReportContext& at) {
            if (at.rows->Position() == 0)
                log_.push_back("pages");
            return formula(at);
        };
        viewer_.SetReportSource(report_);
        viewer_.PrintButtonClicked = [this] { log_.push_back("event"); };
        viewer_.PrinterInstalled = [] { return true; };
        viewer_.ChoosePrinter = [this](QPrinter& printer) {
            log_.push_back("printer dialog");
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(QString::fromStdString(paper_));
            return choose_;
        };
        viewer_.ChoosePdfFile = [this](const std::string& proposed) {
            log_.push_back("file dialog");
            proposed_ = proposed;
            return choose_ ? std::optional(pdf_) : std::nullopt;
        };
    }

    RowSource source_;
    ListReport report_{source_.Numbers(25)};
    ViewerScreen screen_;
    CRViewer9& viewer_ = screen_.Viewer;
    std::vector<std::string> log_;
    std::string paper_ = source_.Folder() + "/paper.pdf";
    std::string pdf_ = source_.Folder() + "/saved.pdf";
    std::string proposed_;
    bool choose_ = true;
};

using Log = std::vector<std::string>;

TEST_F(CRViewer9Printing, RaisesItsEventBeforeItAsksForThePagesAgain) {
    viewer_.PrintReport();
    EXPECT_EQ(log_, (Log{"event", "printer dialog", "pages"}));
    EXPECT_EQ(PagesOf(paper_), 3);
}

TEST_F(CRViewer9Printing, PrintsTheRangeThatWasChosen) {
    viewer_.ChoosePrinter = [this, choose = viewer_.ChoosePrinter](QPrinter& printer) {
        printer.setPrintRange(QPrinter::PageRange);
        printer.setFromTo(2, 99);
        return choose(printer);
    };
    viewer_.PrintReport();
    EXPECT_EQ(PagesOf(paper_), 2);
}

TEST_F(CRViewer9Printing, PrintsNothingWhenTheDialogIsCancelled) {
    choose_ = false;
    viewer_.PrintReport();
    EXPECT_EQ(log_, (Log{"event", "printer dialog"}));
    EXPECT_FALSE(std::filesystem::exists(paper_));
}

TEST_F(CRViewer9Printing, ReportsAPrinterThatCannotBeOpened) {
    paper_ = source_.Folder() + "/missing/paper.pdf";
    BoxAnswers answers;
    answers.Expect({.text = "The pages could not be printed on \"\".\n\n"
                            "The device cannot be opened.",
                    .title = "Quillane",
                    .icon = BoxIcon::Critical});
    viewer_.PrintReport();
    viewer_.SavePdf(pdf_);
    EXPECT_EQ(PagesOf(pdf_), 3);
}

TEST_F(CRViewer9Printing, OffersThePdfIfNoPrinterIsInstalled) {
    viewer_.PrinterInstalled = [] { return false; };
    BoxAnswers answers;
    answers.Expect(OfferOfPdf(), BoxAnswer::Yes);
    viewer_.PrintReport();
    EXPECT_EQ(log_, (Log{"file dialog", "event", "pages"}));
    EXPECT_EQ(PagesOf(pdf_), 3);
}

TEST_F(CRViewer9Printing, DoesNothingIfTheOfferIsDeclined) {
    viewer_.PrinterInstalled = [] { return false; };
    BoxAnswers answers;
    answers.Expect(OfferOfPdf(), BoxAnswer::No);
    viewer_.PrintReport();
    EXPECT_EQ(log_, Log{});
}

TEST_F(CRViewer9Printing, ProposesTheReportsNameInTheFolderOfTheLastFile) {
    viewer_.SaveReport();
    EXPECT_EQ(std::filesystem::path(proposed_).filename(), "List.pdf");
    EXPECT_EQ(log_, (Log{"file dialog", "event", "pages"}));
    viewer_.SaveReport();
    EXPECT_EQ(proposed_, source_.Folder() + "/List.pdf");
}

/// The folders of an operator with this home folder.
class Home {
public:
    explicit Home(const std::string& folder) {
        std::filesystem::create_directories(folder);
        qputenv("HOME", folder.c_str());
        qputenv("XDG_CONFIG_HOME", (folder + "/.config").c_str());
    }
    ~Home() {
        qputenv("HOME", home_);
        if (hasConfig_)
            qputenv("XDG_CONFIG_HOME", config_);
        else
            qunsetenv("XDG_CONFIG_HOME");
    }
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;

private:
    QByteArray home_ = qgetenv("HOME");
    bool hasConfig_ = qEnvironmentVariableIsSet("XDG_CONFIG_HOME");
    QByteArray config_ = qgetenv("XDG_CONFIG_HOME");
};

TEST_F(CRViewer9Printing, ProposesAFolderThatExists) {
    const std::string home = source_.Folder() + "/home";
    const Home account(home);
    choose_ = false;
    viewer_.SaveReport();
    EXPECT_EQ(proposed_, home + "/List.pdf");
    std::filesystem::create_directory(home + "/Documents");
    viewer_.SaveReport();
    EXPECT_EQ(proposed_, home + "/Documents/List.pdf");
    std::filesystem::remove_all(home);
    viewer_.SaveReport();
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(proposed_).parent_path()))
        << proposed_;
}

TEST_F(CRViewer9Printing, ProposesAnotherFolderIfThatOfTheLastFileIsMissing) {
    const std::string stick = source_.Folder() + "/stick";
    std::filesystem::create_directory(stick);
    pdf_ = stick + "/saved.pdf";
    viewer_.SaveReport();
    std::filesystem::remove_all(stick);
    choose_ = false;
    viewer_.SaveReport();
    EXPECT_NE(proposed_, stick + "/List.pdf");
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(proposed_).parent_path()))
        << proposed_;
}

TEST_F(CRViewer9Printing, SavesNothingWhenTheFileDialogIsCancelled) {
    choose_ = false;
    viewer_.SaveReport();
    EXPECT_EQ(log_, Log{"file dialog"});
    EXPECT_FALSE(std::filesystem::exists(pdf_));
}

TEST_F(CRViewer9Printing, OverwritesAnExistingFile) {
    std::ofstream(pdf_) << "old";
    EXPECT_TRUE(viewer_.SavePdf(pdf_));
    EXPECT_EQ(PagesOf(pdf_), 3);
}

TEST_F(CRViewer9Printing, ReportsAFileThatCannotBeWritten) {
    const std::string path = source_.Folder() + "/missing/saved.pdf";
    BoxAnswers answers;
    answers.Expect(
        {.text = "The file could not be saved:\n" + path + "\n\nNo such file or directory",
         .title = "Quillane",
         .icon = BoxIcon::Critical});
    EXPECT_FALSE(viewer_.SavePdf(path));
    EXPECT_TRUE(viewer_.SavePdf(pdf_));
}

TEST_F(CRViewer9Printing, KeepsTheExistingFileIfTheReportFails) {
    std::ofstream(pdf_) << "old";
    report_.Section(ReportSectionKind::ReportFooter).Objects[0] =
        FieldObject(ReportField::Source::Column, "missing");
    BoxAnswers answers;
    answers.Expect(
        {.text = "The file could not be saved:\n" + pdf_ + "\n\nThere is no field named missing.",
         .title = "Quillane",
         .icon = BoxIcon::Critical});
    EXPECT_FALSE(viewer_.SavePdf(pdf_));
    EXPECT_EQ(ContentOf(pdf_), "old");
}

TEST_F(CRViewer9Printing, HandlesTheKeysOfThePrintRequests) {
    viewer_.ViewReport();
    screen_.Show();
    log_.clear();
    ScreenDriver driver(screen_);
    viewer_.SetFocus();
    driver.Press(Qt::CTRL | Qt::Key_P);
    EXPECT_EQ(log_, (Log{"event", "printer dialog", "pages"}));
    log_.clear();
    driver.Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(log_, (Log{"file dialog", "event", "pages"}));
}

TEST_F(CRViewer9Printing, DoesNothingWithoutAReport) {
    viewer_.ClearReportSource();
    viewer_.PrintReport();
    viewer_.SaveReport();
    EXPECT_FALSE(viewer_.SavePdf(pdf_));
    EXPECT_EQ(log_, Log{});
}

} // namespace
} // namespace Quillane
