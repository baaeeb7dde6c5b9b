#include "database/SchemaLines.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <iterator>

namespace Quillane {

namespace {

/// Each query returns lines in one column. SQLite's own tables are not part of the schema.
constexpr const char* questions[] = {
    "SELECT 'column ' || t.name || ' ' || (c.cid + 1) || ' ' || c.name || ' ' || c.type ||"
    "       iif(c.\"notnull\", ' not null', '') || iif(c.dflt_value IS NULL, '', ' default')"
    "  FROM sqlite_schema t, pragma_table_info(t.name) c WHERE t.type = 'table' AND t.name NOT "
    "LIKE 'sqlite_%'",

    "SELECT 'key ' || name || ' (' || group_concat(part, ', ') || ')' FROM"
    "  (SELECT t.name, c.name AS part FROM sqlite_schema t, pragma_table_info(t.name) c"
    "     WHERE t.type = 'table' AND c.pk > 0 ORDER BY t.name, c.pk)"
    "  GROUP BY name",

    "SELECT iif(origin = 'u', 'unique ', 'index ') || name || ' (' || group_concat(part, ', ') ||"
    "       ')' FROM"
    "  (SELECT t.name, i.origin, i.name AS place, c.name AS part"
    "     FROM sqlite_schema t, pragma_index_list(t.name) i, pragma_index_info(i.name) c"
    "     WHERE t.type = 'table' AND i.origin <> 'pk' ORDER BY t.name, i.name, c.seqno)"
    "  GROUP BY name, place",

    "SELECT 'link ' || name || ' (' || group_concat(\"from\", ', ') || ') to ' || \"table\" ||"
    "       ' (' || group_concat(\"to\", ', ') || ')' FROM"
    "  (SELECT t.name, k.* FROM sqlite_schema t, pragma_foreign_key_list(t.name) k"
    "     WHERE t.type = 'table' ORDER BY t.name, k.id, k.seq)"
    "  GROUP BY name, id",
};

int AddLine(void* lines, int, char** values, char**) {
    static_cast<SchemaLines*>(lines)->insert(values[0]);
    return 0;
}

void Run(sqlite3* session, const char* text, SchemaLines* lines) {
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(session, text, lines ? AddLine : nullptr, lines, &message), SQLITE_OK)
        << (message ? message : "");
    sqlite3_free(message);
}

} // namespace

SchemaLines OnlyIn(const SchemaLines& lines, const SchemaLines& others) {
    SchemaLines only;
    std::set_difference(lines.begin(), lines.end(), others.begin(), others.end(),
                        std::inserter(only, only.end()));
    return only;
}

SchemaLines LinesOfEmbeddedSchema(const char* script) {
    sqlite3* session = nullptr;
    EXPECT_EQ(sqlite3_open(":memory:", &session), SQLITE_OK);
    Run(session, script, nullptr);
    SchemaLines lines;
    for (const char* question : questions)
        Run(session, question, &lines);
    sqlite3_close(session);
    return lines;
}

} // namespace Quillane
