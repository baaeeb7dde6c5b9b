#include "support/TestedEngine.h"

#include <cstdlib>
#include <sstream>

namespace Quillane {

namespace {

constexpr const char* wordsOfServer = "(what the server says)";

} // namespace

bool OnSqlServer() {
    const char* engine = std::getenv("QUILLANE_TEST_ENGINE");
    return engine && std::string_view(engine) == "SqlServer";
}

std::string EngineWords(std::string_view embeddedWords) {
    return OnSqlServer() ? wordsOfServer : std::string(embeddedWords);
}

// A driver's words begin with who says them: "[FreeTDS][SQL Server]Invalid object name".
std::string ComparedWords(const std::string& boxText) {
    if (!OnSqlServer())
        return boxText;
    std::istringstream lines(boxText);
    std::string compared;
    std::string previous;
    for (std::string line; std::getline(lines, line); previous = line) {
        if (line.starts_with('['))
            line = wordsOfServer;
        if (line != wordsOfServer || previous != wordsOfServer)
            compared += (compared.empty() ? "" : "\n") + line;
    }
    return compared;
}

} // namespace Quillane
