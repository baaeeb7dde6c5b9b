#pragma once

#include "office/daybook/Cells.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

namespace Quillane::Office {

/// An XLSX file that is written row by row, with one row in memory. It is written to a temporary
/// file in the same folder, which is removed unless `Finish` is called. Errors: 75 if the disk
/// cannot be written.
class Workbook {
public:
    explicit Workbook(std::string path);
    ~Workbook();
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    /// Starts the next sheet with its headings.
    void BeginSheet(std::string_view title, const std::vector<ColumnHeading>& headings);
    /// Errors: 6 if the sheet is full.
    void AddRow(const std::vector<Cell>& cells, bool isBold = false);
    /// Flushes the file to the disk and gives it its name.
    void Finish();

private:
    enum Look { Id, Whole, Decimals, Mounds, Day, Text, LookCount };

    void MakeFormats();
    void AddCell(const Cell& cell, std::uint16_t column, bool isBold);
    lxw_format* FormatOf(const Cell& cell, bool isBold) const;
    void CheckDisk() const;

    std::string path_;
    std::string folder_;
    std::string temporary_;
    lxw_workbook* book_ = nullptr;
    lxw_worksheet* sheet_ = nullptr;
    lxw_format* headingFormat_ = nullptr;
    std::array<std::array<lxw_format*, LookCount>, 2> formats_{}; ///< regular and bold
    std::uint32_t row_ = 0;
};

} // namespace Quillane::Office
