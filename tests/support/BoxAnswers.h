#pragma once

#include "platform/forms/core/Boxes.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane::Testing {

/// Prepares the answers to the message boxes of a test, in order:
///
///     BoxAnswers answers;
///     answers.Expect(Question("Are you sure to clear the entries?"), BoxAnswer::No);
///
/// Text, title, icon and buttons of each box (and the default button of a Yes/No box) must be
/// equal. An unexpected box fails the test (and is answered with No, OK or the empty text); an
/// unused answer fails it in the destructor. Without such an object every box fails the test. If
/// objects are nested, the innermost one answers.
class BoxAnswers {
public:
    BoxAnswers();
    ~BoxAnswers();
    BoxAnswers(const BoxAnswers&) = delete;
    BoxAnswers& operator=(const BoxAnswers&) = delete;

    /// `meanwhile` runs while the box is shown.
    BoxAnswers& Expect(Box box, BoxAnswer answer = BoxAnswer::Ok,
                       std::function<void()> meanwhile = {});
    BoxAnswers& ExpectInput(InputPrompt prompt, std::string answer);
    /// Accepts this box any number of times, independently of the expected order.
    BoxAnswers& Allow(Box box, BoxAnswer answer = BoxAnswer::Ok);

    /// The number of expected boxes that have not been shown yet.
    std::size_t Remaining() const { return expected_.size(); }
    /// The texts of all shown boxes, in order.
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
/// A refusal: a box titled "Alert" with an OK button.
Box Alert(std::string_view text, BoxIcon icon = BoxIcon::None);
/// A reported failure: a critical box with OK; its title is the source of the failure.
Box Critical(std::string_view text, std::string_view title);

/// Makes every box without a BoxAnswers object fail the test. The test program calls it at its
/// start.
void ForbidUnexpectedBoxes();

} // namespace Quillane::Testing
