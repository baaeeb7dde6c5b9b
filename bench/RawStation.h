#pragma once

#include "platform/ado/odbc/OdbcHandle.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

/// The statements of a station's saves and of its new weighments, sent through the driver's bare
/// functions on one handle, with nothing kept of what they give but what the next one needs.
class RawStation {
public:
    explicit RawStation(const std::string& connectionString);

    /// A new weighment: its id is the next free one.
    void Begin();
    /// The id is typed, and its box is left.
    void TypeId(std::int32_t id);
    /// Saves three bag lines. False where the id was taken meanwhile, or another save got in the
    /// way.
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
    bool wasRefused_ = false; ///< for its id, since the last new weighment
};

} // namespace Quillane
