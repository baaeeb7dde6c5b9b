#pragma once

#include "platform/ado/odbc/OdbcHandle.h"

#include "platform/ado/AdoFailure.h"

#include <string>
#include <vector>

namespace Quillane {

/// One diagnostic record of a driver.
struct OdbcDiagnostic {
    std::string state; ///< five characters; "01..." is a warning
    long native = 0;   ///< the server's number; 0 if the record is the driver's
    std::string text;

    bool operator==(const OdbcDiagnostic&) const = default;
};

/// All records of the last call on the handle, in the driver's order.
std::vector<OdbcDiagnostic> OdbcDiagnosticsOf(const OdbcHandle& handle);

/// True if one of them is not a warning.
bool HasFailed(const std::vector<OdbcDiagnostic>& diagnostics);

/// Sorts the records, the most useful first: those of the server, those of the driver, which often
/// say only that something failed, and warnings. Records of one kind keep their order.
std::vector<OdbcDiagnostic> MostUsefulFirst(std::vector<OdbcDiagnostic> diagnostics);

/// The text of the records, one line each and the most useful first. Equal texts are shown once.
std::string MessageOf(const std::vector<OdbcDiagnostic>& diagnostics);

/// The codes of the most useful record.
EngineCodes CodesOf(const std::vector<OdbcDiagnostic>& diagnostics);

/// A failure of the driver, with all of its records.
class OdbcFailure : public DatabaseFailure {
public:
    explicit OdbcFailure(const std::vector<OdbcDiagnostic>& diagnostics);

    /// True if a record reports a lost connection.
    bool IsLostConnection() const { return isLostConnection_; }
    /// True if a record reports that the answer took too long.
    bool IsTimeout() const { return isTimeout_; }

private:
    bool isLostConnection_;
    bool isTimeout_;
};

/// Throws `OdbcFailure` with all records of the handle.
[[noreturn]] void FailWithDiagnostics(const OdbcHandle& handle);

} // namespace Quillane
