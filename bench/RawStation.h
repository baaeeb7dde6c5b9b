#pragma once

#include "platform/ado/odbc/OdbcHandle.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

/// Sends the statements of saves and new weighments directly to the ODBC driver, on one handle. Of
/// the results only the values needed by the next statement are stored.
class RawStation {
public:
    explicit RawStation(const std::string& connectionString);

    /// Starts a new weighment with the next free id.
    void Begin();
    /// Runs the statements for an id that is typed and left.
    void TypeId(std::int32_t id);
    /// Saves three bag lines. Returns false if another save has used the id or caused a conflict.
    bool TrySave(const std::string& driver);
    std::int32_t SavedId() const { return savedId_; }

private:
    bool Send(std::string_view text) const;
    long Read(std::string_view text) const;
    double ReadNumber(std::string_view text) const;
    std::int32_t NextId() const;
    bool IsStored(const std::string& count) const;
    bool IdIsFree();
    bool Store(const std::string& driver);
    bool StoreHeader() const;
    bool StoreBody(const std::string& driver) const;
    std::vector<double> OldLines() const;
    bool Delete(double line) const;
    bool AddLine(bool isFirst, const std::string& driver) const;

    OdbcHandle environment_;
    OdbcHandle connection_;
    OdbcHandle statement_;
    std::int32_t id_ = 0;
    std::int32_t savedId_ = 0;
    bool wasRefused_ = false; ///< the id was refused since the last new weighment
};

} // namespace Quillane
