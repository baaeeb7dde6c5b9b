#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// The tests of the station run on the embedded database, and a second time on SQL Server: with the
/// environment variable QUILLANE_TEST_ENGINE set to SqlServer.
bool OnSqlServer();

/// What the embedded engine says of a failure; on SQL Server a text that stands for whatever the
/// server says of it.
std::string EngineWords(std::string_view embeddedWords);

/// The text of a box or of a statement as tests compare it. On SQL Server the words of its driver
/// become the text that `EngineWords` gives, so that no test depends on a version or a language of
/// the server; and the names of tables that come out of its catalogue are spelled as they were
/// declared, which a catalogue need not do.
std::string ComparedWords(const std::string& text);

/// The same for the name of a table.
std::string DeclaredName(const std::string& table);

} // namespace Quillane

/// For tests of what only a file has.
#define SKIP_ON_SQL_SERVER(why)                                                                    \
    if (Quillane::OnSqlServer())                                                                   \
    GTEST_SKIP() << "not on SQL Server: " << (why)
