#pragma once

#ifdef _WIN32
#define NOMINMAX
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>

#include <utility>

namespace Quillane {

/// A handle of the driver manager. The destructor frees it; freeing a statement closes its result
/// and discards unread rows.
class OdbcHandle {
public:
    OdbcHandle() = default;
    /// Errors: OdbcFailure with the diagnostics of `parent`. An environment has no parent.
    OdbcHandle(SQLSMALLINT kind, const OdbcHandle& parent);
    ~OdbcHandle();
    OdbcHandle(OdbcHandle&& other) noexcept
        : kind_(other.kind_), handle_(std::exchange(other.handle_, nullptr)) {}
    OdbcHandle& operator=(OdbcHandle&& other) noexcept {
        std::swap(kind_, other.kind_);
        std::swap(handle_, other.handle_);
        return *this;
    }

    SQLSMALLINT Kind() const { return kind_; }
    SQLHANDLE Get() const { return handle_; }

    /// Throws OdbcFailure unless the outcome of a call on this handle is success, success with a
    /// warning, or "no data".
    void Check(SQLRETURN outcome) const;

    /// Closes the statement's result, discards unread rows, and unbinds columns and parameters. The
    /// statement can run again with its attributes. False if the driver refuses; the handle can
    /// then only be freed.
    bool Clear() const;

private:
    SQLSMALLINT kind_ = 0;
    SQLHANDLE handle_ = nullptr;
};

/// An environment for version 3 of ODBC.
OdbcHandle OdbcEnvironment();

} // namespace Quillane
