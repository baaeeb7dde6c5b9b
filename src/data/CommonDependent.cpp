#include "data/Common.h"
#include "data/Con.h"
#include "data/modCommon.h"
#include "platform/runtime/Text.h"

#include <string>
#include <vector>

namespace Quillane {

namespace {

std::vector<std::string> SplitAtCommas(std::string_view text) {
    std::vector<std::string> pieces;
    for (std::size_t comma; (comma = text.find(',')) != std::string_view::npos;
         text.remove_prefix(comma + 1))
        pieces.emplace_back(text.substr(0, comma));
    pieces.emplace_back(text);
    return pieces;
}

std::string ReplaceAll(std::string text, std::string_view what, std::string_view by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
        text.replace(at, what.size(), by);
    return text;
}

// Blanks next to a comma are part of the name, so "A, B" excludes only A.
std::string ExclusionFilter(std::string_view exclusions) {
    std::string filter;
    if (Trim(exclusions).empty())
        return filter;
    for (const std::string& piece : SplitAtCommas(exclusions)) {
        if (!filter.empty())
            filter += " AND ";
        filter += "FKTABLE_NAME <> '" + piece + "'";
    }
    return filter;
}

/// Replaces the column name in the condition by that of one foreign table. `keys` holds the rows of
/// its foreign key. Each replacement starts from the original condition, so with several key
/// columns the last one is used.
std::string ProbeCriteria(const std::string& criteria, Recordset& keys, std::string_view table) {
    std::string probe = criteria;
    for (; !keys.Eof(); keys.MoveNext()) {
        const std::string primary = keys.Fields("PKColumn_Name").Text() + "=";
        if (criteria.find(primary) != std::string::npos)
            probe = ReplaceAll(criteria, primary, keys.Fields("FKColumn_Name").Text() + "=");
    }
    // The foreign keys do not cover this table; its column has another name.
    if (table == "SaleRecoveryBody")
        probe = ReplaceAll(probe, "Salesid", "SaleId");
    return probe;
}

std::string FindDependentTable(std::string_view table, const std::string& criteria,
                               std::string_view exclusions) {
    Recordset outer = Con->Execute("EXEC sp_fkeys @pktable_name = N'" + std::string(table) + "'");
    Recordset inner = outer.Clone();
    std::string filter = ExclusionFilter(exclusions);
    outer.SetFilter(filter);
    inner.SetFilter(filter);
    // A condition that is always true, so that more conditions can be appended below.
    if (filter.empty())
        filter = "FKTABLE_NAME <> '' ";
    for (; !outer.Eof(); outer.MoveNext()) {
        const std::string foreign = outer.Fields("FKTABLE_NAME").Text();
        inner.SetFilter(filter + " AND (FKTABLE_NAME = '" + foreign + "')");
        const std::string probe = ProbeCriteria(criteria, inner, foreign);
        if (Con->Execute("Select TOP 1 * From " + foreign + " Where " + probe).RecordCount() > 0)
            return foreign;
    }
    return "";
}

} // namespace

std::string GetDependentTable(std::string_view table, std::string& criteria,
                              std::string_view exclusions) {
    try {
        std::erase(criteria, ' ');
        return FindDependentTable(table, criteria, exclusions);
    } catch (const std::exception&) {
        ShowError();
        return "";
    }
}

} // namespace Quillane
