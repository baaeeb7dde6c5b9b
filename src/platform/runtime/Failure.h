#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace Quillane {

/// Numbers of the failures that the runtime and the platform raise.
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
inline constexpr int Database = -2147467259; ///< what an engine itself refuses
inline constexpr int PortAlreadyOpen = 8005;
inline constexpr int PortNotOpen = 8018;
inline constexpr int PortUnusable = 8002;
} // namespace FailureNumber

/// Who speaks in a failure: the title of the box that reports it.
namespace FailureSource {
inline constexpr std::string_view Runtime = "Quillane";
inline constexpr std::string_view Database = "Database";
inline constexpr std::string_view SerialLine = "Serial line";
} // namespace FailureSource

/// The one exception type. A procedure that is to trap catches it and calls `ShowError`; a
/// procedure that does not lets it reach the event boundary, which ends the process.
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

/// A failure of the runtime itself, with the description that belongs to its number.
[[noreturn]] void Fail(int number);

} // namespace Quillane
