#include "PostgresTarget.h"

#include "platform/host/WholeFile.h"
#include "setup/EmbeddedFile.h"

namespace Quillane::Office {

namespace {

std::string TableStatement(EmbeddedFile& file, const std::string& table) {
    const auto ask = [&](const std::string& select) { return file.FirstText(select.c_str()); };
    const std::string of = "('" + table + "')";
    const std::string columns =
        ask("SELECT group_concat(name || CASE upper(type) WHEN 'INTEGER' THEN ' bigint' WHEN "
            "'NUMERIC' THEN ' numeric(18,4)' WHEN 'REAL' THEN ' float8' WHEN 'DATETIME' THEN "
            "' timestamp' ELSE ' varchar(200)' END || CASE \"notnull\" WHEN 1 THEN ' NOT NULL' "
            "ELSE '' END, ', ') FROM pragma_table_info" +
            of);
    const std::string key =
        ask("SELECT ', PRIMARY KEY (' || group_concat(name) || ')' FROM (SELECT name FROM "
            "pragma_table_info" +
            of + " WHERE pk > 0 ORDER BY pk)");
    const std::string links =
        ask("SELECT ', ' || group_concat('FOREIGN KEY (' || \"from\" || ') REFERENCES ' || "
            "\"table\" || ' (' || \"to\" || ')', ', ') FROM pragma_foreign_key_list" +
            of);
    return "CREATE TABLE IF NOT EXISTS " + table + " (" + columns + key + links + ")";
}

} // namespace

PostgresTarget::PostgresTarget(const std::string& file, std::string connectionString,
                               std::string folder)
    : connectionString_(std::move(connectionString)), folder_(std::move(folder)) {
    EmbeddedFile session(file, SQLITE_OPEN_READONLY);
    const SourceDatabase source(session);
    for (const SourceTable& table : source.Tables())
        statements_.push_back(TableStatement(session, table.name));
    statements_.emplace_back("INSERT INTO StationSchema SELECT 2 WHERE NOT EXISTS (SELECT 1 FROM "
                             "StationSchema)");
    statements_.emplace_back("INSERT INTO PortSettings SELECT 'PortName', '9' WHERE NOT EXISTS "
                             "(SELECT 1 FROM PortSettings)");
}

void PostgresTarget::MakeSchema(Connection& connection) const {
    for (const std::string& statement : statements_)
        connection.Execute(statement);
}

MoveServer PostgresTarget::Connect() const {
    auto connection = std::make_unique<Connection>();
    connection->Open(connectionString_);
    Connection& opened = *connection;
    return {.connection = std::move(connection),
            .dialect = Dialect(),
            .filledBySchema = {"StationSchema", "PortSettings"},
            .makeSchema = [this, &opened](LongWork&) { MakeSchema(opened); },
            .makeReady = [](LongWork&) {},
            .pointStation =
                [this] {
                    WriteWholeFile(folder_ + "/Config.ini", Config, FileReaders::OwnerAndGroup);
                }};
}

} // namespace Quillane::Office
