#pragma once

#include "platform/runtime/Failure.h"

#include <string>
#include <string_view>

namespace Quillane {

namespace FailureNumber {
/// A write through a recordset that is read-only, or whose rows are not those of one table.
inline constexpr int NotUpdatable = 3251;
/// The deletion of a new row that has not been sent.
inline constexpr int NotInThisContext = 3219;
} // namespace FailureNumber

/// The codes that a database engine gives for a failure. They do not depend on the language of the
/// server, as its texts do.
struct EngineCodes {
    std::string state{}; ///< SQLSTATE, five characters; empty if the engine has none
    long native = 0;     ///< the engine's number, such as SQL Server's 18456; 0 if it has none
};

/// A failure of a database engine, with the text and the codes of the engine. Its number is
/// `FailureNumber::Database`.
class DatabaseFailure : public Failure {
public:
    DatabaseFailure(std::string_view description, EngineCodes codes);

    const EngineCodes& Codes() const { return codes_; }

private:
    EngineCodes codes_;
};

/// The codes of a failure; empty if it is not one of a database engine.
EngineCodes CodesOf(const Failure& failure);

/// Throws a failure of the data access objects with the standard description of its number and the
/// source "Database".
[[noreturn]] void FailAccess(int number);

/// The same with another description.
[[noreturn]] void FailAccess(int number, std::string_view description);

/// Throws a `DatabaseFailure`.
[[noreturn]] void FailDatabase(std::string_view description, EngineCodes codes = {});

} // namespace Quillane
