#pragma once

#include "platform/ado/Recordset.h"
#include "platform/forms/core/Control.h"

#include <QDateTime>

#include <any>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace Quillane {

class Report;

/// The input of formulas and conditions during the layout of a report.
struct ReportContext {
    const Report& report;
    const Recordset* rows; ///< positioned at the current row; null if there is none
    int page;              ///< from 1, in page headers and page footers; 0 elsewhere
    QDateTime time;        ///< start of the layout
    std::any& kept;        ///< cache of the formulas for this layout; initially empty
};

/// Kinds of report objects. Positions and sizes are in twips (1/1440 inch) from the corner of the
/// section.
enum class ReportObjectKind { Field, Text, Box, Line };

enum class ReportAlignment { Left, Centre, Right };

/// The format of a column. Numbers have the general form and dates the form dd/MM/yyyy; `DateOnly`
/// also converts text that begins with YYYY-MM-DD.
enum class ReportFormat { General, DateOnly };

/// The contents of a field object.
struct ReportField {
    enum class Source {
        Column,
        Parameter,
        Formula,
        ReportTitle,
        PageNofM ///< "Page 1 of 2"
    };
    Source source = Source::Column;
    std::string name;  ///< name of the column or the formula
    int parameter = 0; ///< 1-based position
    std::function<std::string(const ReportContext&)> formula;
    ReportFormat format = ReportFormat::General;
};

struct ReportFont {
    std::string name = "Arial";
    int points = 9;
    bool bold = false;
    bool italic = false;
};

/// One object of a section. Colours are 0xBBGGRR.
///
/// The text of a field or text object is on one line, in a smaller font if it is too long for the
/// object. An object that can grow wraps its text instead: the objects next to it get the same
/// height, and those below it in the section move down. If all texts of a row are suppressed, the
/// objects below them move up.
struct ReportObject {
    ReportObjectKind kind = ReportObjectKind::Text;
    int Left = 0, Top = 0, Width = 0, Height = 0;
    int BackColor = -1;   ///< field and text objects; -1: none
    int BorderColor = -1; ///< field and text objects with a border; -1: none
    int FillColor = -1;   ///< box objects; -1: none
    std::string text;     ///< text objects
    ReportField field;

    ReportFont Font;
    ReportAlignment Alignment = ReportAlignment::Left;
    int TextColor = 0;
    bool CanGrow = false;
    bool ShowAtOpening = false; ///< the preview shows this text when it opens
    bool HasBorder = false;     ///< field and text objects: a frame of BorderColor
    int Inset = 0;              ///< field and text objects: margin of the text in twips
    int LineColor = 0;          ///< box and line objects; -1: none
    int LineWidth = 10;         ///< twips
    std::function<bool(const ReportContext&)> Suppress; ///< true: not shown; empty: always shown
};

/// The kind of a section. Page headers and footers are on every page; details are repeated for each
/// row of the data. Details flow over the pages; a report footer is never split.
enum class ReportSectionKind { ReportHeader, PageHeader, Detail, ReportFooter, PageFooter };

struct ReportSection {
    std::string Name;
    int Height = 0; ///< twips
    std::vector<ReportObject> Objects;
    ReportSectionKind Kind = ReportSectionKind::Detail;
};

/// The paper in twips, portrait: A4 with margins of half an inch.
struct ReportPaper {
    int Width = 11906;
    int Height = 16838;
    int LeftMargin = 720, RightMargin = 720;
    int TopMargin = 720, BottomMargin = 720;
};

/// A parameter field: filled by position.
class ParameterField {
public:
    void AddCurrentValue(std::string text) { value_ = std::move(text); }
    void AddCurrentValue(double number) { value_ = number; }
    /// The text to show: numbers in the general form; empty if there is no value.
    std::string Shown() const;
    const std::variant<std::monostate, std::string, double>& Value() const { return value_; }

private:
    std::variant<std::monostate, std::string, double> value_;
};

/// The data of a report, one table. The report shares the ownership of its recordset.
class ReportDatabase {
public:
    /// Sets the data. A tag of 3 means a recordset; it is only stored. Errors: 9 for a table number
    /// other than 1.
    void SetDataSource(std::shared_ptr<Recordset> data, int dataTag, int tableNumber);
    const std::shared_ptr<Recordset>& Data() const { return data_; }
    int DataTag() const { return dataTag_; }

private:
    std::shared_ptr<Recordset> data_;
    int dataTag_ = 0;
};

/// The three texts of `SelectPrinter`.
struct ReportPrinter {
    std::string Driver, Printer, Port;
};

/// A report design with its data. ReportPainter paints it page by page on any painter.
class Report {
public:
    explicit Report(int parameterCount);
    virtual ~Report() = default;
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    std::vector<ReportSection> Sections;
    std::string Title;
    ReportPaper Paper;
    int PaperOrientation = 0; ///< 0 or 1: portrait; 2: landscape
    std::string UserName;     ///< the user who creates the report, for its formulas
    std::function<QDateTime()> Now = QDateTime::currentDateTime;

    /// Positions start at 1. Errors: 9 for any other position.
    ParameterField& ParameterFields(int position);
    const ParameterField& ParameterFields(int position) const;
    int ParameterCount() const { return static_cast<int>(parameters_.size()); }
    ReportDatabase Database;
    /// Stores the texts only; opens no printer.
    void SelectPrinter(std::string driver, std::string printer, std::string port);
    const ReportPrinter& SelectedPrinter() const { return printer_; }

    /// The proposed name of a file, without folder and extension.
    virtual std::string FileName() const { return Title; }

private:
    std::vector<ParameterField> parameters_;
    ReportPrinter printer_;
};

} // namespace Quillane
