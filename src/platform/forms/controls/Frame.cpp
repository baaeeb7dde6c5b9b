#include "platform/forms/controls/Buttons.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"

#include <QGroupBox>

namespace Quillane {

class Frame::Group : public QGroupBox {
public:
    using QGroupBox::QGroupBox;
};

Frame::Frame(Screen& screen, std::string name, std::string_view caption)
    : VisualControl(screen, std::move(name), "Frame"),
      group_(std::make_unique<Group>(ToQt(caption), &screen)) {}

// The widgets in the group belong to their controls, which may be destroyed after the frame.
Frame::~Frame() {
    for (QWidget* child : group_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        child->setParent(&Owner());
}

QWidget& Frame::Widget() {
    return *group_;
}

} // namespace Quillane
