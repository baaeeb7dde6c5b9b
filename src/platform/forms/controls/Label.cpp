#include "platform/forms/controls/Label.h"

#include "platform/forms/core/Text.h"

namespace Quillane {

Label::Label(std::string_view caption, QWidget* buddy) : QLabel(ToQt(caption)) {
    setTextFormat(Qt::PlainText);
    if (buddy)
        setBuddy(buddy);
}

} // namespace Quillane
