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

/// What formulas and conditions read while a report is laid out.
struct ReportContext {
    const Report& report;
    const Recordset* rows; ///< at the current row; null without one
    int page;              ///< from 1, in page headers and page footers; 0 elsewhere
    QDateTime time;        ///< at which the layout began
    std::any& kept;        ///< what formulas keep until the layout ends; empty at first
};

/// Kinds of report objects. Places and sizes are in twips (1/1440 inch) from the section's corner.
enum class ReportObjectKind { Field, Text, Box, Line };

enum class ReportAlignment { Left, Centre, Right };

/// How a column's value is written. A number is in the general form and a date value is always
/// dd/MM/yyyy; `DateOnly` reads text that begins YYYY-MM-DD as a date, too.
enum class ReportFormat { General, DateOnly };

/// What a field object shows.
struct ReportField {
    enum class Source {
        Column,
        Parameter,
        Formula,
        ReportTitle,
        PageNofM ///< "Page 1 of 2"
    };
    Source source = Source::Column;
    std::string name;  ///< of the column, or of the formula
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
/// The text of a field or text object is on one line, made smaller where it is too long for the
/// object. One that can grow is broken into lines instead: the objects next to it become as high,
/// and those below it in the section move down. Where all texts of a row are suppressed, the
/// objects below them move up.
struct ReportObject {
    ReportObjectKind kind = ReportObjectKind::Text;
    int Left = 0, Top = 0, Width = 0, Height = 0;
    int BackColor = -1;   ///< field and text objects; -1: none
    int BorderColor = -1; ///< field and text objects, of the border where there is one; -1: none
    int FillColor = -1;   ///< box objects; -1: none
    std::string text;     ///< of a text object
    ReportField field;

    ReportFont Font;
    ReportAlignment Alignment = ReportAlignment::Left;
    int TextColor = 0;
    bool CanGrow = false;
    bool ShowAtOpening = false; ///< the preview opens with this text in view
    bool HasBorder = false;     ///< field and text objects: a frame of BorderColor
    int Inset = 0;              ///< field and text objects: twips between the sides and the text
    int LineColor = 0;          ///< box and line objects; -1: none
    int LineWidth = 10;         ///< twips
    std::function<bool(const ReportContext&)> Suppress; ///< true: not shown; empty: always shown
};

/// When a section appears. Page headers and footers come on every page; details once for each row
/// of the data. Details flow over the pages; a report footer is kept whole.
enum class ReportSectionKind { ReportHeader, PageHeader, Detail, ReportFooter, PageFooter };

struct ReportSection {
    std::string Name;
    int Height = 0; ///< twips
    std::vector<ReportObject> Objects;
    ReportSectionKind Kind = ReportSectionKind::Detail;
};

/// The sheet, in twips, upright. A4 with margins of half an inch.
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
    /// The text as shown; a number is in the general form, and no value the empty text.
    std::string Shown() const;
    const std::variant<std::monostate, std::string, double>& Value() const { return value_; }

private:
    std::variant<std::monostate, std::string, double> value_;
};

/// The data of a report: one table. The report shares ownership of its recordset.
class ReportDatabase {
public:
    /// The tag is kept with the data: 3 marks a recordset. A report has one table, number 1;
    /// another number fails (9).
    void SetDataSource(std::shared_ptr<Recordset> data, int dataTag, int tableNumber);
    const std::shared_ptr<Recordset>& Data() const { return data_; }
    int DataTag() const { return dataTag_; }

private:
    std::shared_ptr<Recordset> data_;
    int dataTag_ = 0;
};

/// The texts of a printer as they were handed over.
struct ReportPrinter {
    std::string Driver, Printer, Port;
};

/// A report design with its data: it paints itself page by page on any painter (ReportPainter).
class Report {
public:
    explicit Report(int parameterCount);
    virtual ~Report() = default;
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    std::vector<ReportSection> Sections;
    std::string Title;
    ReportPaper Paper;
    int PaperOrientation = 0; ///< 0 or 1: upright; 2: on its side
    std::string UserName;     ///< who has the report made, for its formulas
    std::function<QDateTime()> Now = QDateTime::currentDateTime;

    /// 1-based; another position fails (9).
    ParameterField& ParameterFields(int position);
    const ParameterField& ParameterFields(int position) const;
    int ParameterCount() const { return static_cast<int>(parameters_.size()); }
    ReportDatabase Database;
    /// Kept with the report; opens nothing.
    void SelectPrinter(std::string driver, std::string printer, std::string port);
    const ReportPrinter& SelectedPrinter() const { return printer_; }

    /// What a file of this report would be called, without folder and ending.
    virtual std::string FileName() const { return Title; }

private:
    std::vector<ParameterField> parameters_;
    ReportPrinter printer_;
};

} // namespace Quillane
