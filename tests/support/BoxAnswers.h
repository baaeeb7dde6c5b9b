#pragma once

#include "platform/forms/core/Boxes.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane::Testing {

/// Gives the answers to the boxes of a test in advance, in the order in which the boxes come:
///
///     BoxAnswers answers;
///     answers.Expect(Question("Are you sure to clear the entries?"), BoxAnswer::No);
///
/// Each box's text, title, icon and buttons (and the default button of a Yes/No box) are compared
/// whole. A box that nobody expects fails the test (and is answered No, OK or the empty text); an
/// answer that was never asked for fails it too, when this object goes. Without any such object
/// every box fails the test. These objects nest: the innermost one answers.
class BoxAnswers {
public:
    BoxAnswers();
    ~BoxAnswers();
    BoxAnswers(const BoxAnswers&) = delete;
    BoxAnswers& operator=(const BoxAnswers&) = delete;

    /// `meanwhile` runs while the box is up.
    BoxAnswers& Expect(Box box, BoxAnswer answer = BoxAnswer::Ok,
                       std::function<void()> meanwhile = {});
    BoxAnswers& ExpectInput(InputPrompt prompt, std::string answer);
    /// This box may come any number of times, also never, whatever is expected next.
    BoxAnswers& Allow(Box box, BoxAnswer answer = BoxAnswer::Ok);

    /// How many expected boxes are still to come.
    std::size_t Remaining() const { return expected_.size(); }
    /// The texts of all boxes that came, in order.
    const std::vector<std::string>& Shown() const { return shown_; }

    BoxAnswer Answer(const Box& box);
    std::string Answer(const InputPrompt& prompt);

private:
    struct Expected {
        bool isInput = false;
        Box box;
        BoxAnswer answer = BoxAnswer::Ok;
        std::function<void()> meanwhile;
        InputPrompt prompt;
        std::string text;
    };

    std::deque<Expected> expected_;
    std::vector<Expected> allowed_;
    std::vector<std::string> shown_;
    BoxAnswers* outer_;
};

/// A Yes/No box titled "Alert" with a question mark, Yes being the default.
Box Question(std::string_view text);
/// A refusal: a box titled "Alert" with OK.
Box Alert(std::string_view text, BoxIcon icon = BoxIcon::None);
/// A reported failure: a critical box with OK, titled with the failure's source.
Box Critical(std::string_view text, std::string_view title);

/// Lets every box outside of a BoxAnswers fail the test. The test program calls it at its start.
void ForbidUnexpectedBoxes();

} // namespace Quillane::Testing
