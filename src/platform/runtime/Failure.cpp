#include "platform/runtime/Failure.h"

namespace Quillane {

namespace {

std::string_view StandardDescription(int number) {
    switch (number) {
    case FailureNumber::InvalidCall:
        return "Invalid procedure call or argument";
    case FailureNumber::Overflow:
        return "Overflow";
    case FailureNumber::SubscriptOutOfRange:
        return "Subscript out of range";
    case FailureNumber::DivisionByZero:
        return "Division by zero";
    case FailureNumber::TypeMismatch:
        return "Type mismatch";
    case FailureNumber::FileNotFound:
        return "File not found";
    case FailureNumber::InputPastEnd:
        return "Input past end of file";
    case FailureNumber::PathAccess:
        return "Path/File access error";
    case FailureNumber::InvalidUseOfNull:
        return "Invalid use of Null";
    default:
        return "Application-defined or object-defined error";
    }
}

} // namespace

Failure::Failure(int number, std::string_view description, std::string_view source)
    : std::runtime_error(std::string(description)), number_(number), source_(source) {}

void Fail(int number) {
    throw Failure(number, StandardDescription(number));
}

} // namespace Quillane
