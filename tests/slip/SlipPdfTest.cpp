// The contents of the PDF as read by other programs.

#include "slip/CrpCottonWeighment.h"
#include "slip/RptReportViewer.h"
#include "slip/SlipDatabase.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

namespace Quillane {
namespace {

class SlipPdf : public testing::Test {
protected:
    void SetUp() override {
        for (const char* tool : {"pdftotext", "pdftoppm", "pdfinfo"}) {
            if (QStandardPaths::findExecutable(tool).isEmpty())
                GTEST_SKIP() << tool << " is not installed (Debian package poppler-utils).";
        }
    }

    void Save(int arrival) {
        viewer_.Report = std::make_unique<CrpCottonWeighment>();
        FillSlip(*viewer_.Report, SampleContent(database_.RowsOf(arrival)));
        viewer_.Load();
        ASSERT_TRUE(viewer_.CRViewer91.SavePdf(path_.toStdString()));
    }
    QString Output(const QString& tool, const QStringList& arguments) {
        QProcess process;
        process.start(tool, arguments);
        EXPECT_TRUE(process.waitForFinished()) << tool.toStdString();
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return QString::fromUtf8(process.readAllStandardOutput());
    }
    QString Text() { return Output("pdftotext", {"-layout", path_, "-"}); }

    SlipDatabase database_;
    RptReportViewer viewer_;
    QString path_ = QString::fromStdString(database_.Folder() + "/slip.pdf");
};

TEST_F(SlipPdf, IsOneA4PortraitPage) {
    Save(1042);
    const QString facts = Output("pdfinfo", {path_});
    EXPECT_TRUE(facts.contains("(A4)")) << facts.toStdString();
    EXPECT_TRUE(facts.contains(QRegularExpression("Pages: +1\n"))) << facts.toStdString();
    EXPECT_TRUE(facts.contains(QRegularExpression("Title: +Quillane Slip\n")));
}

TEST_F(SlipPdf, HasTheProgramAndItsVersionInItsProperties) {
    QCoreApplication::setApplicationVersion("9.8.7");
    Save(1042);
    QCoreApplication::setApplicationVersion("");
    EXPECT_TRUE(
        Output("pdfinfo", {path_}).contains(QRegularExpression("Creator: +Quillane 9.8.7\n")));
}

TEST_F(SlipPdf, ContainsItsTextAsText) {
    Save(1042);
    const QString text = Text().simplified();
    for (const char* part :
         {"QUILLANE FLOUR MILLS", "PhoneNo: 041-555 0182", "Email: gate@quillane.example",
          "Party Chaudhry Grain Traders-Faisalabad Arrival No. 1042", "Date 20/11/2026",
          "1 A class Jute 100 kg 60 81.17 4870.20 10.20 4860.00",
          "2 Torn Polypropylene 50 kg 40 81.17 3246.80 6.80 3240.00",
          "Total 100 8117.00 17.00 8100.00", "Initial Gross Weight 12437 kg", "Tare Weight 4320 kg",
          "Net Weight 8100 kg", "Mounds - Kgs 202-20", "Weighbridge operator", "Page 1 of 1"})
        EXPECT_TRUE(text.contains(part)) << part << "\n" << text.toStdString();
}

TEST_F(SlipPdf, ShowsTheTimeOfPrintingAndTheUser) {
    Save(1042);
    const QString text = Text().simplified();
    EXPECT_TRUE(text.contains(QRegularExpression(
        "Arrival No. 1042 Printed \\d\\d/\\d\\d/\\d{4} \\d\\d:\\d\\d by ali Page 1 of 1")))
        << text.toStdString();
}

TEST_F(SlipPdf, NumbersThePagesOfALongLoad) {
    database_.AddArrival(1, "6001");
    database_.AddLines(1, 60);
    Save(1);
    const QStringList pages = Text().split(u'\f', Qt::SkipEmptyParts);
    ASSERT_EQ(pages.size(), 2);
    EXPECT_TRUE(pages[0].contains("Page 1 of 2"));
    EXPECT_TRUE(pages[1].contains("Page 2 of 2"));
    EXPECT_TRUE(pages[1].contains("Bag class"));
}

TEST_F(SlipPdf, ShowsAccentedNames) {
    database_.AddArrival(1, "6001");
    database_.AddLine(1, {.driver = "Zoë Łukasz Ñandú"});
    Save(1);
    EXPECT_TRUE(Text().contains("Zoë Łukasz Ñandú"));
}

/// The PDF contains the shapes of this script and not its characters, so the test checks the
/// painted page: there must be ink at the position of the party.
TEST_F(SlipPdf, DrawsNamesOfOtherScripts) {
    database_.AddParty("6003", "غلام رسول", "", "2");
    database_.AddArrival(1, "6003");
    database_.AddLine(1, {});
    Save(1);
    const QString picture = QString::fromStdString(database_.Folder() + "/page");
    Output("pdftoppm", {"-r", "72", "-png", "-singlefile", path_, picture});
    const QImage page(picture + ".png");
    ASSERT_FALSE(page.isNull());
    int dark = 0;
    for (int y = 132; y < 150; ++y) {
        for (int x = 98; x < 330; ++x)
            dark += qGray(page.pixel(x, y)) < 128;
    }
    EXPECT_GT(dark, 20);
}

TEST_F(SlipPdf, HasNoFillsOnPaper) {
    Save(1042);
    const QString picture = QString::fromStdString(database_.Folder() + "/page");
    Output("pdftoppm", {"-r", "72", "-png", "-singlefile", path_, picture});
    const QImage page(picture + ".png");
    ASSERT_FALSE(page.isNull());
    int white = 0;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x)
            white += page.pixelColor(x, y) == QColor(Qt::white);
    }
    EXPECT_GT(white, page.width() * page.height() * 9 / 10);
}

} // namespace
} // namespace Quillane
