#pragma once

#include "platform/ado/Recordset.h"
#include "platform/forms/Control.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

class QPainter;

namespace Quillane {

/// Kinds of report objects. Places and sizes are in twips (1/1440 inch) from the section's corner.
enum class ReportObjectKind { Field, Text, Box, Line };

/// What a field object shows.
struct ReportField {
    enum class Source { Column, Parameter, Formula };
    Source source = Source::Column;
    std::string name;                                     ///< of the column, or of the formula
    int parameter = 0;                                    ///< 1-based position
    std::function<std::string(const Recordset&)> formula; ///< over the data, at its current row
};

struct ReportObject {
    ReportObjectKind kind = ReportObjectKind::Text;
    int Left = 0, Top = 0, Width = 0, Height = 0;
    int BackColor = -1;   ///< field and text objects; -1: none
    int BorderColor = -1; ///< field and text objects; -1: no border
    int FillColor = -1;   ///< box objects; -1: none
    std::string text;     ///< of a text object
    ReportField field;
    // further members (font, alignment) are the painter's
};

struct ReportSection {
    std::string Name;
    int Height = 0; ///< twips
    std::vector<ReportObject> Objects;
};

/// A parameter field: filled by position.
class ParameterField {
public:
    void AddCurrentValue(std::string text) { value_ = std::move(text); }
    void AddCurrentValue(double number) { value_ = number; }
    /// The text as shown; a number is in the general form.
    std::string Shown() const;
    const std::variant<std::monostate, std::string, double>& Value() const { return value_; }

private:
    std::variant<std::monostate, std::string, double> value_;
};

/// The data behind a report: one table. The report shares ownership of its recordset.
class ReportDatabase {
public:
    void SetDataSource(std::shared_ptr<Recordset> data, int dataTag, int tableNumber);
    const std::shared_ptr<Recordset>& Data() const { return data_; }

private:
    std::shared_ptr<Recordset> data_;
};

/// A report design with its data: it paints itself page by page on any painter.
class Report {
public:
    explicit Report(int parameterCount);
    virtual ~Report() = default;

    std::vector<ReportSection> Sections;
    std::string Title;
    int PaperOrientation = 0; ///< 1: upright

    /// 1-based; another position fails (9).
    ParameterField& ParameterFields(int position);
    ReportDatabase Database;
    /// Kept with the report; opens nothing.
    void SelectPrinter(std::string driver, std::string printer, std::string port);

private:
    std::vector<ParameterField> parameters_;
};

} // namespace Quillane
