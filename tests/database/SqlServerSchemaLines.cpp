#include "database/SchemaLines.h"

#include "platform/ado/SqlTokens.h"
#include "platform/runtime/Text.h"

#include <map>
#include <vector>

namespace Quillane {

namespace {

const std::map<std::string, std::string> typeNames{
    {"BIT", "INTEGER"}, {"SMALLINT", "INTEGER"}, {"INT", "INTEGER"},      {"NVARCHAR", "TEXT"},
    {"FLOAT", "REAL"},  {"DECIMAL", "NUMERIC"},  {"DATETIME", "DATETIME"}};

class Reader {
public:
    explicit Reader(std::string_view script) {
        SqlTokens tokens(script);
        for (SqlToken token = tokens.Next(); token.kind != SqlTokenKind::End; token = tokens.Next())
            words_.emplace_back(tokens.TextOf(token));
    }

    SchemaLines Lines() {
        for (; at_ < words_.size(); ++at_) {
            if (TakesAll({"CREATE", "TABLE"}))
                ReadTable();
            else if (TakesAll({"CREATE", "INDEX"}) || TakesAll({"CREATE", "CLUSTERED", "INDEX"}))
                ReadIndex();
            else if (TakesAll({"ALTER", "TABLE"}))
                ReadLink();
        }
        return lines_;
    }

private:
    std::string WordAt(std::size_t at) const {
        return at < words_.size() ? UpperCase(words_[at]) : std::string();
    }

    bool TakesAll(std::initializer_list<const char*> wanted) {
        std::size_t at = at_;
        for (const char* word : wanted)
            if (WordAt(at++) != word)
                return false;
        at_ = at;
        return true;
    }

    /// The name of a table, without the schema before it.
    std::string TakeTable() {
        std::string name = words_.at(at_++);
        while (TakesAll({"."}))
            name = words_.at(at_++);
        return name;
    }

    /// "(a, b)", spaced like this.
    std::string TakeColumns() {
        std::string text;
        do
            text += words_.at(at_) + (words_.at(at_) == "," ? " " : "");
        while (words_.at(at_++) != ")");
        return text;
    }

    void ReadIndex() {
        ++at_; // the index's own name
        ++at_; // ON
        const std::string table = TakeTable();
        lines_.insert("index " + table + " " + TakeColumns());
    }

    void ReadLink() {
        const std::string table = TakeTable();
        while (!TakesAll({"FOREIGN", "KEY"}))
            ++at_;
        const std::string columns = TakeColumns();
        ++at_; // REFERENCES
        const std::string other = TakeTable();
        lines_.insert("link " + table + " " + columns + " to " + other + " " + TakeColumns());
    }

    void ReadTable() {
        const std::string table = TakeTable();
        int depth = 0;
        int number = 0;
        std::vector<std::string> column;
        do {
            const std::string& word = words_.at(at_++);
            depth += word == "(" ? 1 : word == ")" ? -1 : 0;
            if (depth == 0 || (depth == 1 && word == ",")) {
                AddColumn(table, ++number, column);
                column.clear();
            } else if (depth > 1 || word != "(") {
                column.push_back(word);
            }
        } while (depth > 0);
    }

    void AddColumn(const std::string& table, int number, const std::vector<std::string>& words) {
        const std::string& name = words.at(0);
        const auto type = typeNames.find(UpperCase(words.at(1)));
        std::string rest;
        for (std::size_t at = 2; at < words.size(); ++at)
            rest += " " + UpperCase(words[at]);
        const auto says = [&rest](const char* text) { return rest.find(text) != rest.npos; };
        lines_.insert("column " + table + " " + std::to_string(number) + " " + name + " " +
                      (type == typeNames.end() ? words[1] : type->second) +
                      (says(" NOT NULL") ? " not null" : "") +
                      (says(" DEFAULT") ? " default" : ""));
        if (says(" PRIMARY KEY"))
            lines_.insert("key " + table + " (" + name + ")");
        if (says(" UNIQUE"))
            lines_.insert("unique " + table + " (" + name + ")");
    }

    std::vector<std::string> words_;
    std::size_t at_ = 0;
    SchemaLines lines_;
};

} // namespace

SchemaLines LinesOfSqlServerSchema(std::string_view script) {
    return Reader(script).Lines();
}

} // namespace Quillane
