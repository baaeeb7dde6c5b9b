#include "platform/forms/TextBox.h"

#include "platform/forms/ControlColours.h"
#include "platform/forms/EventBoundary.h"
#include "platform/forms/Screen.h"
#include "platform/forms/Text.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

namespace Quillane {

/// A text from code is laid out when the line is next needed, not at each of the many assignments
/// that fill a screen: whatever reaches the line, its painting too, comes as an event.
class TextBox::Edit : public QLineEdit {
public:
    explicit Edit(QWidget* parent) : QLineEdit(parent) { ApplyLimit(); }

    void SetLimit(int characters) {
        Settle();
        limit_ = characters;
        ApplyLimit();
    }
    int Limit() const { return limit_; }

    void SetWhole(const QString& text) {
        if (!awaited_)
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        awaited_ = text;
    }
    QString Whole() const { return awaited_ ? *awaited_ : text(); }

    void Settle() {
        if (const auto text = std::exchange(awaited_, std::nullopt)) {
            setMaxLength(NoLimit);
            setText(*text);
            ApplyLimit();
        }
    }

    // A text from code that is longer than the limit stands whole; the operator cannot lengthen it.
    void ApplyLimit() {
        const auto length = static_cast<int>(text().size());
        const int bound = limit_ > 0 ? std::max(limit_, length) : NoLimit;
        if (bound != maxLength()) {
            const int caret = cursorPosition();
            setMaxLength(bound);
            setCursorPosition(caret);
        }
    }

protected:
    bool event(QEvent* event) override {
        Settle();
        return QLineEdit::event(event);
    }

private:
    static constexpr int NoLimit = std::numeric_limits<int>::max();
    int limit_ = 0;
    std::optional<QString> awaited_;
};

TextBox::TextBox(Screen& screen, std::string name)
    : VisualControl(screen, std::move(name), "TextBox"), edit_(std::make_unique<Edit>(&screen)) {
    QObject::connect(edit_.get(), &QLineEdit::textEdited, edit_.get(), [this] {
        edit_->ApplyLimit();
        RunEvent([this] {
            if (Change) {
                Change();
            }
        });
    });
    ApplyColours();
}

TextBox::~TextBox() = default;

std::string TextBox::Text() const {
    return FromQt(edit_->Whole());
}

void TextBox::SetText(std::string_view text) {
    edit_->SetWhole(ToQt(text));
    if (Change) {
        Change();
    }
}

bool TextBox::Locked() const {
    return edit_->isReadOnly();
}

void TextBox::SetLocked(bool locked) {
    edit_->setReadOnly(locked);
}

int TextBox::MaxLength() const {
    return edit_->Limit();
}

void TextBox::SetMaxLength(int characters) {
    edit_->SetLimit(characters);
}

void TextBox::SetAlignment(Alignment alignment) {
    const Qt::Alignment side = alignment == Alignment::Left    ? Qt::AlignLeft
                               : alignment == Alignment::Right ? Qt::AlignRight
                                                               : Qt::AlignHCenter;
    edit_->setAlignment(side | Qt::AlignVCenter);
}

void TextBox::SetFont(std::string_view family, double points, bool bold) {
    QFont font(ToQt(family));
    font.setPointSizeF(points);
    font.setBold(bold);
    edit_->setFont(font);
}

void TextBox::SetPassword(bool password) {
    edit_->setEchoMode(password ? QLineEdit::Password : QLineEdit::Normal);
}

void TextBox::SelectAll() {
    edit_->Settle();
    edit_->selectAll();
}

std::string TextBox::SelectedText() const {
    edit_->Settle();
    return FromQt(edit_->selectedText());
}

QWidget& TextBox::Widget() {
    return *edit_;
}

// A closed box looks closed also where nobody painted it, and its text stays legible.
void TextBox::ApplyColours() {
    QPalette palette = edit_->palette();
    palette.setColor(QPalette::Base, ToQt(BackColor()));
    palette.setColor(QPalette::Text, ToQt(ForeColor()));
    const Colour closed = BackColor() == White ? ClosedGrey : BackColor();
    const QColor text = ForeColor() == 0 ? QColor(0x40, 0x40, 0x40) : ToQt(ForeColor());
    palette.setColor(QPalette::Disabled, QPalette::Base, ToQt(closed));
    palette.setColor(QPalette::Disabled, QPalette::Text, text);
    edit_->setPalette(palette);
}

} // namespace Quillane
