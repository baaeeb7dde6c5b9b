#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// The tests of the station run on the embedded database and, with the environment variable
/// QUILLANE_TEST_ENGINE=SqlServer, on SQL Server.
bool OnSqlServer();

/// The message of the embedded engine. On SQL Server it is a text that represents any message of
/// the server.
std::string EngineWords(std::string_view embeddedWords);

/// The text of a box or a statement for comparison. On SQL Server messages of the driver are
/// replaced by the text of `EngineWords`, so that no test depends on the version or language of the
/// server, and table names from the catalogue get their declared spelling.
std::string ComparedWords(const std::string& text);

/// The same for the name of a table.
std::string DeclaredName(const std::string& table);

} // namespace Quillane

/// For tests that need a database file.
#define SKIP_ON_SQL_SERVER(why)                                                                    \
    if (Quillane::OnSqlServer())                                                                   \
    GTEST_SKIP() << "not on SQL Server: " << (why)
