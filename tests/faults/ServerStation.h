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

/// A station at work on SQL Server: signed in, with an indicator on its line and the weighment
/// screen shown. It answers every box: Yes, but No to printing.
class ServerStation {
public:
    /// A start of the program. Fails where the server cannot be reached.
    explicit ServerStation(const std::string& connectionString, int commandTimeout = 30);
    ~ServerStation();
    ServerStation(const ServerStation&) = delete;
    ServerStation& operator=(const ServerStation&) = delete;

    /// Shows the weighment screen anew.
    void ShowScreen();
    /// A weighment that may be saved, with so many bag lines, each of it told by the driver's name:
    /// 12540 and 4320 kg, a deduction of 17 kg.
    void FillIn(const std::string& driver, int bagLines = 2);
    /// All that the operator sees of the weighment.
    std::vector<std::string> Entries() const;

    /// Runs once, before this statement is sent.
    void At(std::string statement, std::function<void()> act);
    /// Sees every statement before it is sent, "CommitTrans" and its like included.
    std::function<void(std::string_view)> OnStatement;
    std::vector<std::string> TakeStatements();
    /// Every box since the last call, as its text.
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
