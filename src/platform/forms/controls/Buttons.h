#pragma once

#include "platform/forms/core/Control.h"

#include <memory>

namespace Quillane {

/// A button. While it is enabled it is pressed by Space, by a click, and by Enter if the screen
/// does not consume Enter. Alt with the letter after an ampersand in its caption, and its function
/// key, move the focus to the button and press it, unless the screen has consumed the key.
class CommandButton : public VisualControl {
public:
    CommandButton(Screen& screen, std::string name, std::string_view caption,
                  std::string typeName = "CommandButton");
    ~CommandButton() override;

    /// Key::F1 to Key::F12, pressed without a modifier.
    void SetFunctionKey(int key);

    std::function<void()> Click;
    QWidget& Widget() override;
    bool HandleKey(int key, int shift) override;

private:
    class Button;
    std::unique_ptr<Button> button_;
};

/// A picture button with an enabled state; here a button with its caption.
class JeweledButton : public CommandButton {
public:
    JeweledButton(Screen& screen, std::string name, std::string_view caption)
        : CommandButton(screen, std::move(name), caption, "JeweledButton") {}
};

/// A check box. `Click` runs only when the value changes, from the operator or from code.
class CheckBox : public VisualControl {
public:
    CheckBox(Screen& screen, std::string name, std::string_view caption);
    ~CheckBox() override;

    int Value() const; ///< 0 or 1
    void SetValue(int value);
    std::function<void()> Click;
    QWidget& Widget() override;

private:
    class Box;
    std::unique_ptr<Box> box_;
};

/// An option button; those with the same parent widget exclude each other. `Click` runs only when
/// it becomes selected, from the operator or from code.
class OptionButton : public VisualControl {
public:
    OptionButton(Screen& screen, std::string name, std::string_view caption);
    ~OptionButton() override;

    bool Value() const;
    void SetValue(bool selected);
    std::function<void()> Click;
    QWidget& Widget() override;
    /// Arrows select the next or the previous option of the group.
    bool HandleKey(int key, int shift) override;

private:
    OptionButton* Neighbour(int step) const;

    class Button;
    std::unique_ptr<Button> button_;
};

/// A group with an optional caption. What is placed in its widget is hidden and disabled with it.
class Frame : public VisualControl {
public:
    Frame(Screen& screen, std::string name, std::string_view caption);
    ~Frame() override;
    QWidget& Widget() override;

private:
    class Group;
    std::unique_ptr<Group> group_;
};

/// A picture that can be clicked. A click does not give it the focus.
class Image : public VisualControl {
public:
    Image(Screen& screen, std::string name);
    ~Image() override;

    void SetPicture(std::string_view resourcePath, int width, int height);
    std::function<void()> Click;
    QWidget& Widget() override;

private:
    class Picture;
    std::unique_ptr<Picture> picture_;
};

} // namespace Quillane
