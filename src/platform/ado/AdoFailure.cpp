#include "platform/ado/AdoFailure.h"

#include "platform/runtime/Failure.h"

namespace Quillane {

namespace {

std::string_view DescriptionOf(int number) {
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

void FailAccess(int number) {
    FailAccess(number, DescriptionOf(number));
}

void FailAccess(int number, std::string_view description) {
    throw Failure(number, description, FailureSource::Database);
}

void FailDatabase(std::string_view description) {
    FailAccess(FailureNumber::Database, description);
}

} // namespace Quillane
