#pragma once

#include <vector>

namespace Quillane::Testing {

/// Records that the program would end, in place of ending it. Without such an object an end of the
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

/// Lets every end of the process outside of a ProcessEnd fail the test. The test program calls it
/// at its start.
void ForbidProcessEnd();

} // namespace Quillane::Testing
