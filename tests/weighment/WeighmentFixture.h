#pragma once

#include "platform/comm/PseudoTerminal.h"
#include "platform/forms/core/Boxes.h"
#include "station/StationDatabase.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"
#include "weighment/FrmWeighment.h"

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillane::Testing {

/// The actions of a screen, in one list, in order:
///
///     Select * from PortSettings       a statement, or BeginTrans and its like
///     Box "Alert" [exclamation, OK] Please select a valid Party and try again
///     Validate TxtArrivalId            an event of the focus
///     TxtTareWeight = '4320'           a text box is given a text, also the same as before
///     Line opens, timer 300 ms
///
/// During its lifetime it answers the boxes: OK, or No unless `Answer` names the text of the box.
class Trace {
public:
    /// The screen may be shown already or later. Requires: the screen outlives the trace.
    Trace(FrmWeighment& screen, const PseudoTerminal& line);
    ~Trace();
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    void Answer(const std::string& text, BoxAnswer answer) { answers_[text] = answer; }
    /// Runs while the action of this line, written as in the list, takes place for the `time`th
    /// time: while a box is shown, before a statement is sent.
    void When(const std::string& text, std::function<void()> act, int time = 1);

    /// The actions since the last call, or since the trace began.
    std::vector<std::string> Take();
    void Note(std::string_view text);

private:
    struct Moment {
        std::string text;
        std::function<void()> act;
        int timesToCome = 1;
    };
    void WatchBoxes();
    void WatchTexts();
    void WatchLine();

    FrmWeighment& screen_;
    std::string device_;
    std::vector<std::pair<TextBox*, std::function<void()>>> changes_; ///< as they were
    std::vector<std::string> lines_;
    std::map<std::string, BoxAnswer> answers_;
    std::vector<Moment> moments_;
};

using Lines = std::vector<std::string>;

/// Joins several lists.
Lines Joined(std::initializer_list<Lines> lists);
/// The lines of a trace that are statements of the database.
Lines StatementsOf(const Lines& trace);
/// The lines of a trace that are not writes of texts.
Lines WithoutTexts(const Lines& trace);

/// The line of a box about a failure of the database; the embedded one reports this text.
std::string DatabaseBox(std::string_view embeddedWords);

/// A bag line as the operator sees it.
struct BagLine {
    std::string bagClass;
    std::string bagType;
    std::string quantity;
};

/// A station with the sample rows (arrivals 1031 to 1042; a purchase for 1035, a laboratory report
/// for 1037, both header weights in 1036), an indicator on port 1, a signed-in user of level 1 and
/// the date of 20 November 2026. No screen is shown yet.
class WeighmentTest : public testing::Test {
protected:
    WeighmentTest();
    ~WeighmentTest() override;

    /// The user of the sample rows with level 2.
    void SignInAsGate();
    void ShowScreen();

    /// Gives the bag grid these lines, as if the operator had entered them.
    void SetBagLines(const std::vector<BagLine>& lines);
    /// A weighment of two bag lines that can be saved: Wheat from Chaudhry Grain Traders, 12540 and
    /// 4320 kg, a deduction of 17 kg, 60 and 40 bags; `BtnSave` is enabled and has the focus.
    void FillIn();
    /// The same for an arrival that is stored already, as if it had been opened.
    void FillInOpened(int arrivalId);

    /// Runs statements in another session.
    void RunBeside(const std::string& statements);
    /// The rows of a query in another session. Each cell is a number, a 'text' or Null; numbers
    /// have as many digits as make them unique.
    std::vector<std::vector<std::string>> Stored(const std::string& query);
    /// The only cell of a query, in this form.
    std::string StoredCell(const std::string& query);
    /// Every row of a table in this form, to show that nothing in it has changed.
    std::vector<std::vector<std::string>> StoredTable(const std::string& table);

    StationDatabase database;
    PseudoTerminal line;
    std::unique_ptr<FrmWeighment> screen;
};

/// The same with the screen shown.
class WeighmentScreenTest : public WeighmentTest {
protected:
    void SetUp() override { ShowScreen(); }
};

} // namespace Quillane::Testing
