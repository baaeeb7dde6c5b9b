#pragma once

#include "platform/ado/Engine.h"
#include "platform/ado/ResultSet.h"
#include "platform/ado/Value.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillane {

class Session;

/// Values assigned to fields, by field number, in the order of assignment.
using Assignments = std::vector<std::pair<int, Value>>;

/// The table of a plain source "Select * From X ...", spelled as in the source; empty if the source
/// is not plain.
std::string TableOfSource(std::string_view source);

/// Sends the row writes of a recordset: one parameterised statement each, which must hit exactly
/// one row. The table's key is looked up at the first write.
class RowWriter {
public:
    RowWriter(std::weak_ptr<Session> session, std::string_view source)
        : session_(std::move(session)), source_(source) {}

    void Insert(const ResultSet& rows, const Assignments& assigned);
    void Update(const ResultSet& rows, int row, const Assignments& assigned);
    void Delete(const ResultSet& rows, int row);

private:
    Session& OpenSession() const;
    void FindTable();
    RowMatch MatchOf(const ResultSet& rows, int row);
    RowMatch MatchByKey(const ResultSet& rows, int row) const;
    RowMatch MatchByAllColumns(const ResultSet& rows, int row) const;
    std::string Column(const ResultSet& rows, int field) const;
    void Run(const std::string& statement, const std::vector<Value>& parameters) const;

    std::weak_ptr<Session> session_;
    std::string source_;
    std::string table_; ///< empty before the first write
    std::vector<std::string> keyColumns_;
};

} // namespace Quillane
