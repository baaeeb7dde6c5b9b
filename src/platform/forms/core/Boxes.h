#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace Quillane {

enum class BoxIcon { None, Critical, Question, Exclamation, Information };
enum class BoxButtons { Ok, YesNo };
enum class BoxAnswer { Ok, Yes, No };

/// A message box. While one is shown, no timer ticks (see Timer).
struct Box {
    std::string text{};
    std::string title{}; ///< used as it is, also when empty
    BoxIcon icon = BoxIcon::None;
    BoxButtons buttons = BoxButtons::Ok;
    BoxAnswer defaultButton = BoxAnswer::Yes; ///< of a Yes/No box
};

/// A box that asks for one line of text.
struct InputPrompt {
    std::string prompt{};
    std::string title{};
    std::string defaultText{};
};

/// The title of boxes that have none of their own: the application's name.
std::string ProgramTitle();

BoxAnswer MsgBox(const Box& box);
/// Cancel gives the empty text.
std::string InputBox(const InputPrompt& prompt);

/// Replaces the boxes, so that tests can answer them. Empty functions restore the real boxes.
struct BoxPresenter {
    std::function<BoxAnswer(const Box&)> message;
    std::function<std::string(const InputPrompt&)> input;
};
void SetBoxPresenter(BoxPresenter presenter);

/// True while a box is shown.
bool BoxIsUp();

} // namespace Quillane
