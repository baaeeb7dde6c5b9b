#include "database/SchemaLines.h"
#include "database/SqlServerSite.h"

#include "platform/runtime/Text.h"

namespace Quillane {

namespace {

// Each row of a table's query is a line of the schema; the rows of the other queries are single
// columns of a key, index or link.
constexpr const char* columns =
    "Select 'column ' + TABLE_NAME + ' ' + CAST(ORDINAL_POSITION As varchar(9)) + ' ' +"
    "       COLUMN_NAME + ' ' +"
    "       Case DATA_TYPE When 'bit' Then 'INTEGER' When 'smallint' Then 'INTEGER'"
    "            When 'int' Then 'INTEGER' When 'nvarchar' Then 'TEXT' When 'float' Then 'REAL'"
    "            When 'decimal' Then 'NUMERIC' When 'numeric' Then 'NUMERIC' Else DATA_TYPE End +"
    "       Case IS_NULLABLE When 'NO' Then ' not null' Else '' End +"
    "       Case When COLUMN_DEFAULT Is Null Then '' Else ' default' End "
    "From INFORMATION_SCHEMA.COLUMNS Where TABLE_NAME In"
    "     (Select TABLE_NAME From INFORMATION_SCHEMA.TABLES Where TABLE_TYPE = 'BASE TABLE')";

constexpr const char* indexes =
    "Select T.name, I.name, Case When I.is_primary_key = 1 Then 'key '"
    "       When I.is_unique_constraint = 1 Then 'unique ' Else 'index ' End, C.name "
    "From sys.indexes I Inner Join sys.tables T On T.object_id = I.object_id "
    "Inner Join sys.index_columns IC On IC.object_id = I.object_id And IC.index_id = I.index_id "
    "Inner Join sys.columns C On C.object_id = IC.object_id And C.column_id = IC.column_id "
    "Where IC.is_included_column = 0 Order By T.name, I.name, IC.key_ordinal";

constexpr const char* links =
    "Select T.name, K.name, 'link ' + R.name + ' ', C.name, RC.name "
    "From sys.foreign_keys K Inner Join sys.tables T On T.object_id = K.parent_object_id "
    "Inner Join sys.tables R On R.object_id = K.referenced_object_id "
    "Inner Join sys.foreign_key_columns KC On KC.constraint_object_id = K.object_id "
    "Inner Join sys.columns C On C.object_id = KC.parent_object_id"
    "      And C.column_id = KC.parent_column_id "
    "Inner Join sys.columns RC On RC.object_id = KC.referenced_object_id"
    "      And RC.column_id = KC.referenced_column_id "
    "Order By T.name, K.name, KC.constraint_column_id";

/// The columns of one key or index, one after the other.
struct Parts {
    std::string kind;
    std::string table;
    std::string columns;
    std::string otherColumns;
};

void Append(std::string& list, const std::string& name) {
    list += (list.empty() ? "" : ", ") + name;
}

std::vector<Parts> PartsOf(Connection& connection, const char* query) {
    std::vector<Parts> all;
    std::string last;
    Recordset rows = connection.Execute(query);
    for (; !rows.Eof(); rows.MoveNext()) {
        const std::string name = rows.Fields(0).Text() + "." + rows.Fields(1).Text();
        if (name != last)
            all.push_back({rows.Fields(2).Text(), rows.Fields(0).Text(), "", ""});
        last = name;
        Append(all.back().columns, rows.Fields(3).Text());
        if (rows.FieldCount() > 4)
            Append(all.back().otherColumns, rows.Fields(4).Text());
    }
    return all;
}

} // namespace

SchemaLines InCapitals(const SchemaLines& lines) {
    SchemaLines capitals;
    for (const std::string& line : lines)
        capitals.insert(UpperCase(line));
    return capitals;
}

SchemaLines LinesOfServer(Connection& connection) {
    SchemaLines lines;
    for (const std::string& line : RowsOf(connection, columns))
        lines.insert(line);
    for (const Parts& each : PartsOf(connection, indexes))
        lines.insert(each.kind + each.table + " (" + each.columns + ")");
    for (const Parts& each : PartsOf(connection, links))
        lines.insert("link " + each.table + " (" + each.columns + ") to " + each.kind.substr(5) +
                     "(" + each.otherColumns + ")");
    return InCapitals(lines);
}

} // namespace Quillane
