#include "office/records/References.h"

#include "office/records/RowWrites.h"
#include "office/records/Rows.h"
#include "office/records/Texts.h"
#include "platform/ado/Transaction.h"
#include "platform/runtime/Text.h"

#include <algorithm>

namespace Quillane::Office {

namespace {

std::string InBrackets(const std::string& name) {
    return "[" + Doubled(name, ']') + "]";
}

/// A column of another table that refers to a column of a part.
struct Link {
    KeyColumn from;
    std::string table; ///< with its owner, quoted for a statement
    std::string to;    ///< the column of the part
};

bool IsPartOf(const Table& table, const std::string& name) {
    return std::ranges::any_of(
        table.parts, [&](const Part& part) { return EqualIgnoringCase(part.table, name); });
}

bool IsAmong(const std::vector<Link>& links, const std::string& table, const std::string& column) {
    return std::ranges::any_of(links, [&](const Link& link) {
        return EqualIgnoringCase(link.from.table, table) &&
               EqualIgnoringCase(link.from.column, column);
    });
}

/// A key of several columns gives one link for each column: a row counts if one of them matches.
std::vector<Link> ForeignKeysOn(Connection& connection, const Table& table, const Part& part) {
    std::vector<Link> links;
    Recordset keys = connection.Execute("EXEC sp_fkeys @pktable_name = " + SqlText(part.table));
    for (; !keys.Eof(); keys.MoveNext()) {
        const std::string name = keys.Fields("FKTABLE_NAME").Text();
        const std::string owner = keys.Fields("FKTABLE_OWNER").TextOrEmpty();
        if (!IsPartOf(table, name))
            links.push_back({{name, keys.Fields("FKCOLUMN_NAME").Text()},
                             (owner.empty() ? "" : InBrackets(owner) + ".") + InBrackets(name),
                             keys.Fields("PKCOLUMN_NAME").Text()});
    }
    return links;
}

std::string CountStatement(const Table& table, const Part& part, const Link& link,
                           const std::string& key) {
    const std::string from =
        "Select Count(*) From " + link.table + " Where " + InBrackets(link.from.column);
    const std::string own = KeyCondition(table, part, key);
    if (EqualIgnoringCase(link.to, part.key))
        return from + " = " + (table.numbersItself ? key : SqlText(key));
    return from + " In (Select " + InBrackets(link.to) + " From " + std::string(part.table) +
           " Where " + own + ")";
}

} // namespace

std::vector<Reference> ReferencesTo(Connection& connection, const Table& table, const Row& row) {
    std::vector<Reference> references;
    std::vector<Link> seen;
    const auto count = [&](const Part& part, const Link& link) {
        if (IsAmong(seen, link.from.table, link.from.column))
            return;
        seen.push_back(link);
        const double rows =
            connection.Execute(CountStatement(table, part, link, row[KeyCell])).Fields(0).Number();
        if (rows > 0)
            references.push_back({link.from, static_cast<long>(rows)});
    };
    for (const Part& part : table.parts)
        for (const Link& link : ForeignKeysOn(connection, table, part))
            count(part, link);
    for (const KeyColumn& join : table.joinedBy)
        count(table.parts.back(), {join, join.table, std::string(table.parts.back().key)});
    return references;
}

DeleteResult DeleteRow(Connection& connection, const Table& table, const Row& row) {
    Transaction transaction(connection);
    LockRow(connection, table, row[KeyCell]);
    const std::optional<Row> stored = ReadRow(connection, table, row[KeyCell]);
    if (stored != row)
        return {.end = DeleteResult::End::Conflicts, .stored = stored};
    std::vector<Reference> references = ReferencesTo(connection, table, row);
    if (!references.empty())
        return {.end = DeleteResult::End::IsReferredTo, .references = std::move(references)};
    for (std::size_t part = table.parts.size(); part-- > 0;)
        connection.Execute("Delete From " + std::string(table.parts[part].table) + " Where " +
                           KeyCondition(table, table.parts[part], row[KeyCell]));
    transaction.Commit();
    return {};
}

std::string DescribeReferences(const Table& table, const Row& row,
                               const std::vector<Reference>& references) {
    std::string text =
        "The " + Called(table, row) + " cannot be deleted, because other rows refer to it:";
    for (const Reference& reference : references)
        text += "\n" + reference.from.table + ", column " + reference.from.column + ": " +
                Counted(reference.rows, "row", "rows");
    return text + "\n" +
           (table.inUse >= 0 ? "Take it out of use instead: the station then does not show it in "
                               "its lists of suppliers, buyers and brokers."
                             : "Delete these rows first, or rename it.");
}

} // namespace Quillane::Office
