#include "support/ProcessEnd.h"

#include "platform/forms/core/EventBoundary.h"

#include <gtest/gtest.h>

namespace Quillane::Testing {

ProcessEnd::ProcessEnd() {
    SetEndProcess([this](int code) { codes_.push_back(code); });
}

ProcessEnd::~ProcessEnd() {
    ForbidProcessEnd();
}

void ForbidProcessEnd() {
    SetEndProcess([](int code) { ADD_FAILURE() << "The process would end with code " << code; });
}

} // namespace Quillane::Testing
