#include "platform/ado/sqlite/ForeignKeyList.h"

#include "platform/ado/SqlTokens.h"

namespace Quillane {

namespace {

/// The string literal with the table's name, without a leading N; empty for any other form.
std::string_view TableLiteral(std::string_view statement) {
    SqlTokens tokens(statement);
    tokens.Next();
    if (!tokens.IsWord(tokens.Next(), "sp_fkeys") ||
        !tokens.IsWord(tokens.Next(), "@pktable_name") || !tokens.IsSymbol(tokens.Next(), '='))
        return {};
    SqlToken literal = tokens.Next();
    if (tokens.IsWord(literal, "n") && tokens.CharacterAt(literal.end) == '\'')
        literal = tokens.Next();
    if (literal.kind != SqlTokenKind::String || !IsBlankStatement(statement.substr(literal.end)))
        return {};
    return tokens.TextOf(literal);
}

std::string RuleNumber(std::string_view action) {
    return "CASE k." + std::string(action) +
           " WHEN 'CASCADE' THEN 0 WHEN 'SET NULL' THEN 2 WHEN 'SET DEFAULT' THEN 3 ELSE 1 END";
}

} // namespace

std::string ForeignKeyList(std::string_view statement) {
    const std::string_view table = TableLiteral(statement);
    if (table.empty())
        return {};
    // A reference that names no column means the primary key. A named column is returned as the
    // table spells it, because the caller compares exactly.
    return "SELECT NULL AS PKTABLE_QUALIFIER, NULL AS PKTABLE_OWNER, p.name AS PKTABLE_NAME, "
           "c.name AS PKCOLUMN_NAME, NULL AS FKTABLE_QUALIFIER, NULL AS FKTABLE_OWNER, "
           "f.name AS FKTABLE_NAME, k.\"from\" AS FKCOLUMN_NAME, k.seq + 1 AS KEY_SEQ, " +
           RuleNumber("on_update") + " AS UPDATE_RULE, " + RuleNumber("on_delete") +
           " AS DELETE_RULE, NULL AS FK_NAME, NULL AS PK_NAME, 7 AS DEFERRABILITY "
           "FROM sqlite_schema p, sqlite_schema f, pragma_foreign_key_list(f.name) k, "
           "pragma_table_info(p.name) c "
           "WHERE p.type = 'table' AND p.name = " +
           std::string(table) +
           " COLLATE NOCASE AND f.type = 'table' AND k.\"table\" = p.name COLLATE NOCASE "
           "AND ((k.\"to\" IS NULL AND c.pk = k.seq + 1) OR c.name = k.\"to\" COLLATE NOCASE) "
           "ORDER BY f.name COLLATE NOCASE, k.seq, k.id";
}

} // namespace Quillane
