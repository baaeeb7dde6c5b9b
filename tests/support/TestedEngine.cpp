#include "support/TestedEngine.h"

#include <cctype>
#include <cstdlib>
#include <sstream>

namespace Quillane {

namespace {

constexpr const char* wordsOfServer = "(what the server says)";

/// The names behind which a text goes on as the catalogue has it.
std::string WithDeclaredNames(std::string text) {
    for (const std::string before : {"Select TOP 1 * From ", "used in ("})
        for (const std::string name : {"LaboratoryReports", "PurchaseBody", "SaleRecoveryBody"}) {
            std::string other = before + name;
            for (std::size_t i = before.size(); i < other.size(); ++i)
                other[i] = static_cast<char>(std::tolower(other[i]));
            if (const std::size_t at = text.find(other); at != std::string::npos)
                text.replace(at, other.size(), before + name);
        }
    return text;
}

} // namespace

bool OnSqlServer() {
    const char* engine = std::getenv("QUILLANE_TEST_ENGINE");
    return engine && std::string_view(engine) == "SqlServer";
}

std::string EngineWords(std::string_view embeddedWords) {
    return OnSqlServer() ? wordsOfServer : std::string(embeddedWords);
}

// A driver's words begin with who says them: "[FreeTDS][SQL Server]Invalid object name".
std::string ComparedWords(const std::string& text) {
    if (!OnSqlServer())
        return text;
    std::istringstream lines(WithDeclaredNames(text));
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
