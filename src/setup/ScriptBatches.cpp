#include "setup/ScriptBatches.h"

#include "platform/ado/Connection.h"
#include "platform/ado/SqlTokens.h"

namespace Quillane {

namespace {

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r") == std::string_view::npos;
}

std::size_t BeginOfLine(std::string_view script, std::size_t at) {
    const std::size_t before = script.substr(0, at).rfind('\n');
    return before == std::string_view::npos ? 0 : before + 1;
}

std::size_t EndOfLine(std::string_view script, std::size_t at) {
    return std::min(script.find('\n', at), script.size());
}

bool StandsAlone(std::string_view script, const SqlToken& token) {
    const std::size_t begin = BeginOfLine(script, token.begin);
    return IsBlank(script.substr(begin, token.begin - begin)) &&
           IsBlank(script.substr(token.end, EndOfLine(script, token.end) - token.end));
}

void AddBatch(std::string_view text, std::vector<std::string>& batches) {
    if (!IsBlankStatement(text))
        batches.emplace_back(text);
}

} // namespace

std::vector<std::string> ScriptBatches(std::string_view script) {
    std::vector<std::string> batches;
    std::size_t begin = 0;
    SqlTokens tokens(script);
    for (SqlToken token = tokens.Next(); token.kind != SqlTokenKind::End; token = tokens.Next()) {
        if (!tokens.IsWord(token, "go") || !StandsAlone(script, token))
            continue;
        AddBatch(script.substr(begin, token.begin - begin), batches);
        begin = EndOfLine(script, token.end);
    }
    AddBatch(script.substr(begin), batches);
    return batches;
}

bool RunScript(Connection& connection, std::string_view script, const ScriptProgress& progress) {
    const std::vector<std::string> batches = ScriptBatches(script);
    int done = 0;
    for (const std::string& batch : batches) {
        if (progress && !progress(done++, static_cast<int>(batches.size())))
            return false;
        connection.Execute(batch);
    }
    return true;
}

} // namespace Quillane
