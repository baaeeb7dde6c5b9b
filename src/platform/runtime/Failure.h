#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace Quillane {

/// Error numbers of the failures that the runtime and the platform report.
namespace FailureNumber {
inline constexpr int InvalidCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int DivisionByZero = 11;
inline constexpr int TypeMismatch = 13;
inline constexpr int FileNotFound = 53;
inline constexpr int InputPastEnd = 62;
inline constexpr int PathAccess = 75;
inline constexpr int InvalidUseOfNull = 94;
inline constexpr int NoCurrentRecord = 3021;
inline constexpr int ItemNotFound = 3265;
inline constexpr int ObjectClosed = 3704;
inline constexpr int ObjectOpen = 3705;
inline constexpr int InvalidArgument = 3001;
inline constexpr int Database = -2147467259; ///< any error of the database engine
inline constexpr int PortAlreadyOpen = 8005;
inline constexpr int PortNotOpen = 8018;
inline constexpr int PortUnusable = 8002;
} // namespace FailureNumber

/// The component that reports a failure. It is the title of the box that shows the failure.
namespace FailureSource {
inline constexpr std::string_view Runtime = "Quillane";
inline constexpr std::string_view Database = "Database";
inline constexpr std::string_view SerialLine = "Serial line";
} // namespace FailureSource

/// The only exception type of the program. A procedure with an error trap catches it and calls
/// `ShowError`. A procedure without one lets it propagate to the event boundary, which ends the
/// process.
class Failure : public std::runtime_error {
public:
    Failure(int number, std::string_view description,
            std::string_view source = FailureSource::Runtime);

    int Number() const { return number_; }
    std::string Description() const { return what(); }
    const std::string& Source() const { return source_; }

private:
    int number_;
    std::string source_;
};

/// Throws a failure of the runtime with the standard description of its number.
[[noreturn]] void Fail(int number);

} // namespace Quillane
