#pragma once

#include "platform/ado/Connection.h"
#include "platform/report/FieldText.h"
#include "platform/report/ReportLayout.h"

#include <QStringList>

#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace Quillane {

/// An embedded database without tables, for queries that contain their rows.
class RowSource {
public:
    RowSource() {
        std::string pattern = (std::filesystem::temp_directory_path() / "report-XXXXXX").string();
        folder_ = ::mkdtemp(pattern.data());
        MakeDatabase(folder_ + "/Empty.db");
        connection_.SetEmbeddedSupport({.folder = folder_, .registerFunctions = {}});
        connection_.Open("Driver=SQL Server;Server=(embedded);Database=Empty");
    }
    ~RowSource() {
        connection_.Close();
        std::filesystem::remove_all(folder_);
    }
    RowSource(const RowSource&) = delete;
    RowSource& operator=(const RowSource&) = delete;

    std::shared_ptr<Recordset> Query(std::string_view statement) {
        auto rows = std::make_shared<Recordset>();
        rows->Open(statement, connection_);
        return rows;
    }
    /// Rows numbered from 1 in the column n.
    std::shared_ptr<Recordset> Numbers(int count) {
        return Query("With Recursive c(n) As (Select 1 Union All Select n + 1 From c Where n < " +
                     std::to_string(count) +
                     ") Select n From c Where n <= " + std::to_string(count));
    }

    const std::string& Folder() const { return folder_; }

private:
    static void MakeDatabase(const std::string& file) {
        sqlite3* database = nullptr;
        sqlite3_open(file.c_str(), &database);
        sqlite3_exec(database, "Pragma user_version = 1", nullptr, nullptr, nullptr);
        sqlite3_close(database);
    }

    std::string folder_;
    Connection connection_;
};

inline ReportObject TextObject(std::string text, int height = 300) {
    ReportObject object;
    object.Width = 3000;
    object.Height = height;
    object.text = std::move(text);
    return object;
}

inline ReportObject FieldObject(ReportField::Source source, std::string name = {}) {
    ReportObject object = TextObject({});
    object.kind = ReportObjectKind::Field;
    object.field.source = source;
    object.field.name = std::move(name);
    return object;
}

inline ReportObject BoxObject(int width, int height, int fill) {
    ReportObject object;
    object.kind = ReportObjectKind::Box;
    object.Width = width;
    object.Height = height;
    object.FillColor = fill;
    object.LineColor = -1;
    return object;
}

/// The context for objects and sections outside pages.
inline std::string TextAt(const ReportObject& object, const Report& report, const Recordset* rows) {
    std::any kept;
    return ObjectText(object, {report, rows, 0, {}, kept});
}
inline PlacedSection LaidOut(const ReportSection& section, const Report& report,
                             const Recordset* rows) {
    std::any kept;
    return LayOutSection(section, {report, rows, 0, {}, kept});
}

/// A report of five sections that show their names; a row shows "row n". Ten rows of 1000 twips fit
/// on the first page below the report header, and eleven on each following page.
class ListReport : public Report {
public:
    explicit ListReport(std::shared_ptr<Recordset> rows) : Report(0) {
        Title = "List";
        Paper.Height = 720 + 1000 + 500 + 10 * 1000 + 500 + 720;
        ReportObject row = FieldObject(ReportField::Source::Formula);
        row.field.formula = [](const ReportContext& at) {
            return "row " + at.rows->Fields("n").Text();
        };
        const auto add = [&](ReportSectionKind kind, int height, ReportObject object) {
            Sections.push_back({object.text, height, {object}, kind});
        };
        add(ReportSectionKind::ReportHeader, 1000, TextObject("report header"));
        add(ReportSectionKind::PageHeader, 500, TextObject("page header"));
        add(ReportSectionKind::Detail, 1000, row);
        add(ReportSectionKind::ReportFooter, 1000, TextObject("report footer"));
        add(ReportSectionKind::PageFooter, 500, FieldObject(ReportField::Source::PageNofM));
        if (rows)
            Database.SetDataSource(std::move(rows), 3, 1);
    }
    ReportSection& Section(ReportSectionKind kind) {
        return Sections[static_cast<std::size_t>(kind)];
    }
};

/// The texts of a page in order.
inline QStringList TextsOf(const ReportPage& page) {
    QStringList texts;
    for (const PlacedObject& placed : page.objects) {
        if (placed.text)
            texts.append(placed.text->Text());
    }
    return texts;
}

} // namespace Quillane
