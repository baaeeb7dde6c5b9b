#include "office/daybook/Workbook.h"

#include "platform/runtime/Failure.h"

#include <QCoreApplication>
#include <QStorageInfo>

#include <xlsxwriter.h>

#include <filesystem>
#include <system_error>

namespace Quillane::Office {

namespace {

[[noreturn]] void FailWriting(const std::string& path, const std::string& reason) {
    throw Failure(FailureNumber::PathAccess,
                  "The file " + path + " could not be written: " + reason +
                      ". Please choose another folder, or free some of the disk.");
}

void CheckCell(lxw_error error) {
    if (error != LXW_NO_ERROR)
        throw Failure(FailureNumber::InvalidCall,
                      std::string("A cell of the workbook was refused: ") + lxw_strerror(error));
}

lxw_datetime DateTimeOf(const std::string& text) {
    const Date day = ParseDate(text);
    lxw_datetime moment{};
    moment.year = static_cast<int>(day.year());
    moment.month = static_cast<int>(static_cast<unsigned>(day.month()));
    moment.day = static_cast<int>(static_cast<unsigned>(day.day()));
    return moment;
}

/// The process number makes the name unique if two processes write into one folder.
std::string TemporaryName(const std::string& path) {
    return path + ".part-" + std::to_string(QCoreApplication::applicationPid());
}

} // namespace

Workbook::Workbook(std::string path)
    : path_(std::move(path)), folder_(std::filesystem::absolute(path_).parent_path().string()),
      temporary_(TemporaryName(path_)) {
    CheckDisk();
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder_.data();
    book_ = workbook_new_opt(temporary_.c_str(), &options);
    if (!book_)
        FailWriting(path_, "the folder is not writable");
    MakeFormats();
}

Workbook::~Workbook() {
    if (book_)
        workbook_close(book_); // no other call frees it
    std::error_code ignored;
    std::filesystem::remove(temporary_, ignored);
}

void Workbook::MakeFormats() {
    constexpr std::array<const char*, LookCount> numbers{"0",           "#,##0",      "#,##0.00##",
                                                         "#,##0.000##", "dd/mm/yyyy", "@"};
    for (std::size_t bold = 0; bold < formats_.size(); ++bold)
        for (std::size_t look = 0; look < LookCount; ++look) {
            lxw_format* format = workbook_add_format(book_);
            format_set_num_format(format, numbers[look]);
            if (bold == 1) {
                format_set_bold(format);
                format_set_top(format, LXW_BORDER_THIN);
            }
            formats_[bold][look] = format;
        }
    constexpr lxw_color_t headingGreen = 0xC8DDBF;
    headingFormat_ = workbook_add_format(book_);
    format_set_bold(headingFormat_);
    format_set_bg_color(headingFormat_, headingGreen);
    format_set_bottom(headingFormat_, LXW_BORDER_THIN);
    format_set_text_wrap(headingFormat_);
}

/// The library does not report errors of its temporary files.
void Workbook::CheckDisk() const {
    constexpr qint64 least = 32 << 20;
    const QStorageInfo disk(QString::fromStdString(folder_));
    if (!disk.isValid())
        FailWriting(path_, "the folder " + folder_ + " does not exist");
    if (disk.bytesAvailable() < least)
        FailWriting(path_, "the disk is nearly full");
}

void Workbook::BeginSheet(std::string_view title, const std::vector<ColumnHeading>& headings) {
    sheet_ = workbook_add_worksheet(book_, std::string(title).c_str());
    worksheet_freeze_panes(sheet_, 1, 0);
    worksheet_set_landscape(sheet_);
    worksheet_fit_to_pages(sheet_, 1, 0);
    worksheet_repeat_rows(sheet_, 0, 0);
    for (std::size_t index = 0; index < headings.size(); ++index) {
        const auto column = static_cast<lxw_col_t>(index);
        worksheet_set_column(sheet_, column, column, headings[index].width + 2, nullptr);
        CheckCell(worksheet_write_string(sheet_, 0, column, headings[index].WithUnit().c_str(),
                                         headingFormat_));
    }
    row_ = 1;
}

lxw_format* Workbook::FormatOf(const Cell& cell, bool isBold) const {
    const auto& formats = formats_[isBold ? 1 : 0];
    if (cell.kind == Cell::Kind::Mounds)
        return formats[Mounds];
    if (cell.kind == Cell::Kind::Id)
        return formats[Id];
    if (cell.kind == Cell::Kind::Day)
        return formats[Day];
    if (cell.kind == Cell::Kind::Number)
        return formats[cell.IsWhole() ? Whole : Decimals];
    return formats[Text];
}

void Workbook::AddCell(const Cell& cell, std::uint16_t column, bool isBold) {
    lxw_format* format = FormatOf(cell, isBold);
    switch (cell.kind) {
    case Cell::Kind::Number:
    case Cell::Kind::Id:
    case Cell::Kind::Mounds:
        return CheckCell(worksheet_write_number(sheet_, row_, column, cell.AsDouble(), format));
    case Cell::Kind::Day: {
        lxw_datetime moment = DateTimeOf(cell.text);
        return CheckCell(worksheet_write_datetime(sheet_, row_, column, &moment, format));
    }
    case Cell::Kind::Empty:
        return CheckCell(worksheet_write_blank(sheet_, row_, column, format));
    default:
        return CheckCell(worksheet_write_string(sheet_, row_, column, cell.text.c_str(), format));
    }
}

void Workbook::AddRow(const std::vector<Cell>& cells, bool isBold) {
    if (row_ >= LXW_ROW_MAX)
        throw Failure(FailureNumber::Overflow,
                      "A sheet has 1,048,575 rows, which is too few for the arrivals. Choose a "
                      "shorter period, or export a CSV file.");
    constexpr std::uint32_t rowsBetweenLooks = 5'000;
    if (row_ % rowsBetweenLooks == 0)
        CheckDisk();
    for (std::size_t column = 0; column < cells.size(); ++column)
        AddCell(cells[column], static_cast<std::uint16_t>(column), isBold);
    ++row_;
}

void Workbook::Finish() {
    CheckDisk();
    const lxw_error error = workbook_close(std::exchange(book_, nullptr));
    if (error != LXW_NO_ERROR)
        FailWriting(path_, lxw_strerror(error));
    std::error_code failed;
    std::filesystem::rename(temporary_, path_, failed);
    if (failed)
        FailWriting(path_, failed.message());
}

} // namespace Quillane::Office
