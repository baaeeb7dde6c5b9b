#include "office/records/Csv.h"

#include "office/records/Texts.h"
#include "platform/host/Utf8.h"
#include "platform/runtime/Text.h"

#include <algorithm>
#include <array>

namespace Quillane::Office {

namespace {

constexpr char quote = '"';

std::string_view FirstLine(std::string_view text) {
    return text.substr(0, text.find('\n'));
}

char SeparatorOf(std::string_view line) {
    constexpr std::array separators{',', ';', '\t'};
    std::array<long, separators.size()> counts{};
    bool inQuotes = false;
    for (const char c : line) {
        inQuotes = inQuotes != (c == quote);
        const auto found = std::ranges::find(separators, c);
        if (!inQuotes && found != separators.end())
            ++counts[static_cast<std::size_t>(found - separators.begin())];
    }
    return separators[static_cast<std::size_t>(std::ranges::max_element(counts) - counts.begin())];
}

/// Reads records and counts lines.
class Reader {
public:
    Reader(std::string_view text, char separator) : text_(text), separator_(separator) {}

    bool AtEnd() const { return at_ >= text_.size(); }

    CsvRecord ReadRecord() {
        CsvRecord record{.line = line_};
        do {
            record.cells.push_back(ReadCell(record));
        } while (Take(separator_));
        TakeLineEnd();
        return record;
    }
    bool IsUnclosed() const { return isUnclosed_; }

private:
    bool Take(char c) {
        if (AtEnd() || text_[at_] != c)
            return false;
        ++at_;
        return true;
    }

    void TakeLineEnd() {
        Take('\r');
        if (Take('\n'))
            ++line_;
    }

    std::string ReadCell(CsvRecord& record) {
        if (!Take(quote))
            return ReadPlain();
        std::string cell = ReadQuoted();
        const std::string rest = ReadPlain();
        if (!rest.empty())
            record.fault = "There is text after the closing quote of a cell.";
        return cell;
    }

    /// Reads up to the separator or the end of the line.
    std::string ReadPlain() {
        const std::size_t begin = at_;
        while (!AtEnd() && text_[at_] != separator_ && text_[at_] != '\n')
            ++at_;
        std::size_t end = at_;
        if (end > begin && text_[end - 1] == '\r' && (AtEnd() || text_[at_] == '\n'))
            --end;
        return std::string(text_.substr(begin, end - begin));
    }

    std::string ReadQuoted() {
        std::string cell;
        while (true) {
            const std::size_t end = text_.find(quote, at_);
            const std::string_view piece = text_.substr(at_, end - at_);
            line_ += static_cast<int>(std::ranges::count(piece, '\n'));
            cell += piece;
            isUnclosed_ = end == std::string_view::npos;
            at_ = isUnclosed_ ? text_.size() : end + 1;
            if (isUnclosed_ || !Take(quote))
                return cell;
            cell += quote;
        }
    }

    std::string_view text_;
    char separator_;
    std::size_t at_ = 0;
    int line_ = 1;
    bool isUnclosed_ = false;
};

std::string InLine(int line, const std::string& reason) {
    return "Line " + std::to_string(line) + ": " + reason;
}

int FirstLineOfAnotherEncoding(std::string_view text) {
    int line = 1;
    for (; !text.empty(); ++line) {
        const std::string_view first = FirstLine(text);
        if (!IsUtf8(first))
            break;
        text.remove_prefix(std::min(first.size() + 1, text.size()));
    }
    return line;
}

std::string FaultOfEncoding(std::string_view text) {
    const std::string advice = "Save it as \"CSV UTF-8\".";
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF") ||
        FirstLine(text).find('\0') != std::string_view::npos)
        return "The file is UTF-16 or not a text file. " + advice;
    if (!IsUtf8(text))
        return InLine(FirstLineOfAnotherEncoding(text), "The file is not UTF-8. " + advice);
    return {};
}

bool IsBlank(const CsvRecord& record) {
    return record.fault.empty() && record.cells.size() == 1 && record.cells[0].empty();
}

} // namespace

CsvFile ReadCsv(std::string_view text) {
    CsvFile file;
    file.fault = FaultOfEncoding(text);
    if (!file.fault.empty())
        return file;
    if (text.starts_with(Utf8Mark))
        text.remove_prefix(Utf8Mark.size());
    file.separator = SeparatorOf(FirstLine(text));
    Reader reader(text, file.separator);
    while (!reader.AtEnd()) {
        CsvRecord record = reader.ReadRecord();
        if (reader.IsUnclosed()) {
            file.fault = InLine(record.line, "The closing quote of a cell is missing. Add it.");
            file.records.clear();
            return file;
        }
        if (!IsBlank(record))
            file.records.push_back(std::move(record));
    }
    return file;
}

std::string CsvLine(const std::vector<std::string>& cells) {
    std::string line;
    for (const std::string& cell : cells) {
        line += &cell == cells.data() ? "" : ",";
        const bool isPlain = cell.find_first_of(",;\t\"\r\n") == std::string::npos &&
                             !cell.starts_with(' ') && !cell.ends_with(' ');
        if (isPlain) {
            line += cell;
            continue;
        }
        line += quote + Doubled(cell, quote) + quote;
    }
    return line + "\r\n";
}

} // namespace Quillane::Office
