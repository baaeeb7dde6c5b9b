#include "platform/ado/AdoFailure.h"

#include <utility>

namespace Quillane {

namespace {

std::string_view StandardDescription(int number) {
    switch (number) {
    case FailureNumber::InvalidArgument:
        return "Arguments are of the wrong type, are out of acceptable range, or are in conflict "
               "with one another.";
    case FailureNumber::NoCurrentRecord:
        return "Either BOF or EOF is True, or the current record has been deleted. Requested "
               "operation requires a current record.";
    case FailureNumber::ItemNotFound:
        return "Item cannot be found in the collection corresponding to the requested name or "
               "ordinal.";
    case FailureNumber::NotUpdatable:
        return "Current Recordset does not support updating. This may be a limitation of the "
               "provider, or of the selected locktype.";
    case FailureNumber::ObjectClosed:
        return "Operation is not allowed when the object is closed.";
    case FailureNumber::ObjectOpen:
        return "Operation is not allowed when the object is open.";
    default:
        return "Operation is not allowed in this context.";
    }
}

} // namespace

DatabaseFailure::DatabaseFailure(std::string_view description, EngineCodes codes)
    : Failure(FailureNumber::Database, description, FailureSource::Database),
      codes_(std::move(codes)) {}

EngineCodes CodesOf(const Failure& failure) {
    const auto* database = dynamic_cast<const DatabaseFailure*>(&failure);
    return database ? database->Codes() : EngineCodes{};
}

void FailAccess(int number) {
    FailAccess(number, StandardDescription(number));
}

void FailAccess(int number, std::string_view description) {
    throw Failure(number, description, FailureSource::Database);
}

void FailDatabase(std::string_view description, EngineCodes codes) {
    throw DatabaseFailure(description, std::move(codes));
}

} // namespace Quillane
