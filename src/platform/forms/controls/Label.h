#pragma once

#include <QLabel>

#include <string_view>

namespace Quillane {

/// A caption beside a control. It is no control of the screen: nothing walks or names it.
/// `buddy` is the widget that it names to assistive technology.
class Label : public QLabel {
public:
    explicit Label(std::string_view caption, QWidget* buddy = nullptr);
};

} // namespace Quillane
