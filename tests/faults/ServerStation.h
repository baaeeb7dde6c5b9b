#pragma once

#include "platform/comm/PseudoTerminal.h"
#include "platform/forms/core/Boxes.h"
#include "weighment/FrmWeighment.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane::Testing {

/// A station on SQL Server with a user signed in, an indicator on its line and the weighment screen
/// shown. It answers each question with Yes, and the question of printing with No.
class ServerStation {
public:
    /// Starts the station. Errors: a Failure if the server cannot be reached.
    explicit ServerStation(const std::string& connectionString, int commandTimeout = 30);
    ~ServerStation();
    ServerStation(const ServerStation&) = delete;
    ServerStation& operator=(const ServerStation&) = delete;

    /// Shows a new weighment screen.
    void ShowScreen();
    /// Enters a complete weighment with this number of bag lines, identified by the driver's name:
    /// 12540 and 4320 kg, a deduction of 17 kg.
    void FillIn(const std::string& driver, int bagLines = 2);
    /// All entries of the weighment that the operator sees.
    std::vector<std::string> Entries() const;

    /// Runs once, before this statement is sent.
    void At(std::string statement, std::function<void()> act);
    /// Called with each statement before it is sent, including "CommitTrans" and "BeginTrans".
    std::function<void(std::string_view)> OnStatement;
    std::vector<std::string> TakeStatements();
    /// The boxes since the last call.
    std::vector<Box> TakeBoxes();

    std::unique_ptr<FrmWeighment> screen;
    std::function<void(const Box&)> whileBoxIsUp;

private:
    BoxAnswer Answer(const Box& box);

    PseudoTerminal indicator_;
    std::string moment_;
    std::function<void()> act_;
    std::vector<std::string> statements_;
    std::vector<Box> boxes_;
};

} // namespace Quillane::Testing
