#pragma once

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace Quillane::Testing {

/// The settings that the guide to indicators gives for one layout of the simulated indicator.
struct Advice {
    std::string example; ///< 12540 kg at rest, in the guide's notation
    std::string direction, length, reversed;
    int right = 0; ///< of 100 reads of the weighment screen
    int rightAtMost = 0;
    int leastWeight = 0; ///< the lowest weight that is shown
    bool usable = true;
    std::string benchNotModified, benchModified; ///< of 12540 kg
    int benchRight = 0;                          ///< of 100 reads of the bench
};

/// Bytes as the guide writes them: invisible ones by their names, <STX> or <80>.
std::string Notation(const std::string& bytes);

/// By the layout's name, from the tables of docs/indicators.md.
std::map<std::string, Advice> AdviceOfTheGuide();

/// The wrong readings of 100 if an indicator pauses this long between its frames and the port is
/// not read in whole bursts, by the rate of the line.
std::map<std::chrono::milliseconds, std::map<int, int>> WrongOfPauses();

/// One frame as the tool writes it.
struct Frame {
    int weight = 0;
    bool moving = false;
    std::string bytes;
};

/// Every layout of the tool, with frames of these weights, at rest and in motion.
std::map<std::string, std::vector<Frame>> FramesOfTheTool(const std::vector<int>& weights);

} // namespace Quillane::Testing
