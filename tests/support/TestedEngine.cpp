#include "support/TestedEngine.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <sstream>

namespace Quillane {

namespace {

constexpr const char* wordsOfServer = "(what the server says)";

/// The tables with foreign keys, in the schema and in the tests.
constexpr std::string_view declaredNames[] = {
    "LaboratoryReports", "PurchaseBody", "SaleRecoveryBody", "Bills", "Checks", "Tolls",
    "Gate Passes"};

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char character) {
        return static_cast<char>(std::tolower(character));
    });
    return text;
}

/// Replaces table names from the catalogue by their declared spelling.
std::string WithDeclaredNames(std::string text) {
    for (const std::string before : {"Select TOP 1 * From ", "used in ("})
        for (const std::string_view name : declaredNames) {
            const std::string asInCatalogue = before + Lower(std::string(name));
            if (const std::size_t at = text.find(asInCatalogue); at != std::string::npos)
                text.replace(at + before.size(), name.size(), name);
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

// The message of a driver begins with its origin: "[FreeTDS][SQL Server]Invalid object name".
std::string DeclaredName(const std::string& table) {
    for (const std::string_view name : declaredNames)
        if (OnSqlServer() && Lower(table) == Lower(std::string(name)))
            return std::string(name);
    return table;
}

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
