#include "office/records/ImportCells.h"

#include "office/records/Texts.h"

#include <algorithm>
#include <array>

namespace Quillane::Office {

namespace {

bool NamesColumn(const std::string& header, const Column& column) {
    const std::string folded = Folded(Trimmed(header));
    return folded == Folded(column.header) || folded == Folded(column.name) ||
           folded == Folded(column.caption);
}

} // namespace

std::optional<std::size_t> ColumnOf(const Table& table, const std::string& header) {
    for (std::size_t column = 0; column < table.columns.size(); ++column)
        if (NamesColumn(header, table.columns[column]))
            return column;
    return std::nullopt;
}

std::string HeadersOf(const Table& table) {
    std::string text;
    for (const Column& column : table.columns)
        text += (text.empty() ? "" : ", ") + std::string(column.header);
    return text;
}

std::string FlagCell(const Column& column, const std::string& cell) {
    constexpr std::array yes{"1", "yes", "y", "true", "x"};
    constexpr std::array no{"", "0", "no", "n", "false"};
    const std::string folded = Folded(cell);
    if (std::ranges::find(yes, folded) != yes.end())
        return "1";
    if (std::ranges::find(no, folded) != no.end())
        return "0";
    throw Faulty{std::string(column.caption) + " must be 1 or 0, yes or no. Correct it."};
}

std::string KeyNamed(const KnownRows& target, const std::string& name) {
    const Table& table = target.Described();
    const std::vector<const Row*> named = target.WithName(name);
    if (named.size() == 1)
        return (*named.front())[KeyCell];
    if (const Row* row = target.WithKey(name); row && named.empty())
        return (*row)[KeyCell];
    if (!named.empty())
        throw Faulty{"There are several rows named \"" + Shortened(name) + "\" in the list of " +
                     std::string(table.name) + ". Enter the number instead of the name."};
    throw Faulty{"There is no " + std::string(table.one) + " \"" + Shortened(name) +
                 "\". Add it to the list of " + std::string(table.name) +
                 " first, or correct the name."};
}

std::string ShownName(const Row& cells) {
    return Shortened(cells[NameCell].empty() ? cells[KeyCell] : cells[NameCell]);
}

} // namespace Quillane::Office
