#pragma once

#include "platform/ado/odbc/OdbcHandle.h"

#include "platform/runtime/Failure.h"

#include <string>
#include <vector>

namespace Quillane {

/// One diagnostic record of a driver.
struct OdbcDiagnostic {
    std::string state; ///< five characters; "01..." is a warning
    long native = 0;   ///< the server's own number, 0 where the driver itself speaks
    std::string words;

    bool operator==(const OdbcDiagnostic&) const = default;
};

/// All records that the last call on the handle left behind, in the driver's order.
std::vector<OdbcDiagnostic> OdbcDiagnosticsOf(const OdbcHandle& handle);

/// Whether one of them is more than a warning.
bool HasFailed(const std::vector<OdbcDiagnostic>& diagnostics);

/// What a box shows of them: every one on a line of its own, the most useful first. The server's
/// words come before the driver's, which often say only that something failed, and warnings last;
/// the same words stand once.
std::string DescriptionOf(std::vector<OdbcDiagnostic> diagnostics);

/// What the driver refuses, with all of its records.
class OdbcFailure : public Failure {
public:
    explicit OdbcFailure(const std::vector<OdbcDiagnostic>& diagnostics);

    /// Whether a record says that the way to the server is broken.
    bool TellsOfBrokenWay() const { return tellsOfBrokenWay_; }
    /// Whether a record says that the answer took too long.
    bool TellsOfTimeout() const { return tellsOfTimeout_; }

private:
    bool tellsOfBrokenWay_;
    bool tellsOfTimeout_;
};

/// Fails (`OdbcFailure`) with all records of the handle.
[[noreturn]] void FailInWordsOfDriver(const OdbcHandle& handle);

} // namespace Quillane
