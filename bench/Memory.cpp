#include "Memory.h"

#include <malloc.h>

#include <fstream>
#include <string>

namespace Quillane {

namespace {

/// Reads an entry of /proc/self/status, in bytes.
double StatusLine(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == name) {
            double kilobytes = 0;
            status >> kilobytes;
            return kilobytes * 1024;
        }
    return 0;
}

double HeapBytes() {
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

void ResetPeak() {
    std::ofstream("/proc/self/clear_refs") << "5";
}

} // namespace

MemoryGrowth::MemoryGrowth(const std::function<void()>& act) {
    malloc_trim(0);
    const double residentBefore = StatusLine("VmRSS:");
    const double heapBefore = HeapBytes();
    ResetPeak();
    act();
    peak = StatusLine("VmHWM:") - residentBefore;
    resident = StatusLine("VmRSS:") - residentBefore;
    heap = HeapBytes() - heapBefore;
}

} // namespace Quillane
