#pragma once

#include <map>
#include <string>
#include <vector>

namespace Quillane::Testing {

/// What the guide to indicators advises for one layout of the try-out indicator.
struct Advice {
    std::string example; ///< 12540 kg at rest, as the bench's raw text shows it
    std::string direction, length, reversed;
    int right = 0; ///< of 100 looks of the weighment screen
    int rightAtMost = 0;
    int leastWeight = 0; ///< from which on; nothing is shown below
    bool usable = true;
    std::string benchNotModified, benchModified; ///< of 12540 kg
    int benchRight = 0;                          ///< of 100 looks of the bench
};

/// By the layout's name, from the tables of docs/indicators.md.
std::map<std::string, Advice> AdviceOfTheGuide();

/// One frame as the tool writes it.
struct Frame {
    int weight = 0;
    bool moving = false;
    std::string bytes;
};

/// Every layout that the tool knows, with frames of these weights, at rest and moving.
std::map<std::string, std::vector<Frame>> FramesOfTheTool(const std::vector<int>& weights);

} // namespace Quillane::Testing
