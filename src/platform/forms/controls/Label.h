#pragma once

#include <QLabel>

#include <string_view>

namespace Quillane {

/// The caption of a control. It is not a control of the screen. `buddy` is the widget whose name it
/// is for assistive technology.
class Label : public QLabel {
public:
    explicit Label(std::string_view caption, QWidget* buddy = nullptr);
};

} // namespace Quillane
