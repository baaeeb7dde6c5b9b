#pragma once

#include <vector>

namespace Quillane::Testing {

/// Records the end of the program instead of ending it. Without such an object the end of the
/// process fails the test.
class ProcessEnd {
public:
    ProcessEnd();
    ~ProcessEnd();
    ProcessEnd(const ProcessEnd&) = delete;
    ProcessEnd& operator=(const ProcessEnd&) = delete;

    /// The exit codes, in order.
    const std::vector<int>& Codes() const { return codes_; }

private:
    std::vector<int> codes_;
};

/// Makes every end of the process without a ProcessEnd object fail the test. The test program calls
/// it at its start.
void ForbidProcessEnd();

} // namespace Quillane::Testing
