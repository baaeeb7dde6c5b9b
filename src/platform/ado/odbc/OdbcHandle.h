#pragma once

#ifdef _WIN32
#define NOMINMAX
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>

#include <utility>

namespace Quillane {

/// A handle of the driver manager, freed with this object. Freeing a statement closes its result
/// and drops whatever of it was left unread.
class OdbcHandle {
public:
    OdbcHandle() = default;
    /// Fails in the words of `parent`. An environment has none.
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

    /// Fails in the driver's words unless the outcome of a call on this handle is a success, with
    /// or without a warning, or "no data".
    void Check(SQLRETURN outcome) const;

    /// Closes the statement's result, drops whatever of it was left unread, and unbinds columns and
    /// parameters: it can run anew, with the attributes that it has. False where the driver
    /// refuses; the handle is then only good for being freed.
    bool Clear() const;

private:
    SQLSMALLINT kind_ = 0;
    SQLHANDLE handle_ = nullptr;
};

/// An environment in which the third version of the interface is spoken.
OdbcHandle OdbcEnvironment();

} // namespace Quillane
