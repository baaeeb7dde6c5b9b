#include "support/BoxAnswers.h"

#include "support/TestedEngine.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Quillane::Testing {

namespace {

BoxAnswers* innermost = nullptr;

std::string_view NameOf(BoxIcon icon) {
    constexpr std::string_view Names[] = {"no icon", "critical", "question", "exclamation",
                                          "information"};
    return Names[static_cast<std::size_t>(icon)];
}

std::string Described(const Box& box) {
    const bool question = box.buttons == BoxButtons::YesNo;
    std::string buttons = "OK";
    if (question)
        buttons = box.defaultButton == BoxAnswer::No ? "Yes, No (default)" : "Yes (default), No";
    return "box \"" + ComparedWords(box.text) + "\", title \"" + box.title + "\", " +
           std::string(NameOf(box.icon)) + ", " + buttons;
}

std::string Described(const InputPrompt& prompt) {
    return "input box \"" + prompt.prompt + "\", title \"" + prompt.title + "\", default \"" +
           prompt.defaultText + "\"";
}

BoxAnswer Refusal(const Box& box) {
    return box.buttons == BoxButtons::YesNo ? BoxAnswer::No : BoxAnswer::Ok;
}

BoxAnswer AnswerMessage(const Box& box) {
    if (innermost)
        return innermost->Answer(box);
    ADD_FAILURE() << "Unexpected " << Described(box);
    return Refusal(box);
}

std::string AnswerInput(const InputPrompt& prompt) {
    if (innermost)
        return innermost->Answer(prompt);
    ADD_FAILURE() << "Unexpected " << Described(prompt);
    return {};
}

} // namespace

BoxAnswers::BoxAnswers() : outer_(innermost) {
    innermost = this;
}

BoxAnswers::~BoxAnswers() {
    innermost = outer_;
    for (const Expected& missing : expected_) {
        ADD_FAILURE() << "Never asked: "
                      << (missing.isInput ? Described(missing.prompt) : Described(missing.box));
    }
}

BoxAnswers& BoxAnswers::Expect(Box box, BoxAnswer answer, std::function<void()> meanwhile) {
    expected_.push_back({.box = std::move(box),
                         .answer = answer,
                         .meanwhile = std::move(meanwhile),
                         .prompt = {},
                         .text = {}});
    return *this;
}

BoxAnswers& BoxAnswers::ExpectInput(InputPrompt prompt, std::string answer) {
    expected_.push_back({.isInput = true,
                         .box = {},
                         .meanwhile = {},
                         .prompt = std::move(prompt),
                         .text = std::move(answer)});
    return *this;
}

BoxAnswers& BoxAnswers::Allow(Box box, BoxAnswer answer) {
    allowed_.push_back(
        {.box = std::move(box), .answer = answer, .meanwhile = {}, .prompt = {}, .text = {}});
    return *this;
}

BoxAnswer BoxAnswers::Answer(const Box& box) {
    shown_.push_back(box.text);
    const std::string seen = Described(box);
    const auto allowed = std::ranges::find_if(
        allowed_, [&](const Expected& each) { return Described(each.box) == seen; });
    const bool isNext = !expected_.empty() && !expected_.front().isInput &&
                        Described(expected_.front().box) == seen;
    if (!isNext && allowed != allowed_.end())
        return allowed->answer;
    if (expected_.empty()) {
        ADD_FAILURE() << "Unexpected " << seen;
        return Refusal(box);
    }
    const Expected next = std::move(expected_.front());
    expected_.pop_front();
    EXPECT_EQ(next.isInput ? Described(next.prompt) : Described(next.box), seen);
    if (next.meanwhile)
        next.meanwhile();
    return isNext ? next.answer : Refusal(box);
}

std::string BoxAnswers::Answer(const InputPrompt& prompt) {
    shown_.push_back(prompt.prompt);
    if (expected_.empty()) {
        ADD_FAILURE() << "Unexpected " << Described(prompt);
        return {};
    }
    const Expected next = std::move(expected_.front());
    expected_.pop_front();
    EXPECT_EQ(next.isInput ? Described(next.prompt) : Described(next.box), Described(prompt));
    return next.text;
}

Box Question(std::string_view text) {
    return {.text = std::string(text),
            .title = "Alert",
            .icon = BoxIcon::Question,
            .buttons = BoxButtons::YesNo};
}

Box Alert(std::string_view text, BoxIcon icon) {
    return {.text = std::string(text), .title = "Alert", .icon = icon};
}

Box Critical(std::string_view text, std::string_view title) {
    return {.text = std::string(text), .title = std::string(title), .icon = BoxIcon::Critical};
}

void ForbidUnexpectedBoxes() {
    SetBoxPresenter({.message = AnswerMessage, .input = AnswerInput});
}

} // namespace Quillane::Testing
