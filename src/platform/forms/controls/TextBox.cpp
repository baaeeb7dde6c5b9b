#include "platform/forms/controls/TextBox.h"

#include "platform/forms/controls/ControlSymbols.h"
#include "platform/forms/controls/FilteredLine.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/FontFamilies.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"

#include <algorithm>
#include <limits>

namespace Quillane {

class TextBox::Edit : public FilteredLine {
public:
    explicit Edit(QWidget* parent) : FilteredLine(parent) { ApplyLimit(); }

    void SetLimit(int characters) {
        Settle();
        limit_ = characters;
        ApplyLimit();
    }
    int Limit() const { return limit_; }

    // A text from code that exceeds the limit is kept. The operator cannot lengthen it.
    void ApplyLimit() {
        const auto length = static_cast<int>(text().size());
        const int bound = limit_ > 0 ? std::max(limit_, length) : NoLimit;
        if (bound != maxLength()) {
            const int caret = cursorPosition();
            setMaxLength(bound);
            setCursorPosition(caret);
        }
    }

    void ShowControlSymbols(bool shown) {
        controlSymbols_ = shown;
        update();
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        FilteredLine::paintEvent(event);
        if (controlSymbols_)
            PaintControlSymbols(*this);
    }

    // Qt lays the text out again for each change of the limit.
    void Show(const QString& text) override {
        if (text.size() > maxLength())
            setMaxLength(NoLimit);
        setText(text);
        ApplyLimit();
    }

private:
    static constexpr int NoLimit = std::numeric_limits<int>::max();
    int limit_ = 0;
    bool controlSymbols_ = false;
};

TextBox::TextBox(Screen& screen, std::string name)
    : VisualControl(screen, std::move(name), "TextBox"), edit_(std::make_unique<Edit>(&screen)) {
    QObject::connect(edit_.get(), &QLineEdit::textEdited, edit_.get(), [this] {
        edit_->ApplyLimit();
        RunEvent([this] {
            if (Change)
                Change();
        });
    });
    edit_->Admits = [this](const QString& text, const QString& /*rest*/) {
        return !Admits || Admits(FromQt(text));
    };
    ApplyColours();
}

TextBox::~TextBox() = default;

std::string TextBox::Text() const {
    return FromQt(edit_->Text());
}

void TextBox::SetText(std::string_view text) {
    edit_->Write(ToQt(text));
    if (Change)
        Change();
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
    QFont font(FontFamilies(ToQt(family)));
    font.setPointSizeF(points);
    font.setBold(bold);
    edit_->setFont(font);
}

void TextBox::SetPassword(bool password) {
    edit_->setEchoMode(password ? QLineEdit::Password : QLineEdit::Normal);
}

void TextBox::SetControlSymbols(bool shown) {
    edit_->ShowControlSymbols(shown);
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

// A disabled box looks disabled even if no code has set its colour, and its text stays legible.
void TextBox::ApplyColours() {
    QPalette palette = edit_->palette();
    palette.setColor(QPalette::Base, ToQt(BackColor()));
    palette.setColor(QPalette::Text, ToQt(ForeColor()));
    const Colour closed = BackColor() == White ? ClosedGrey : BackColor();
    const QColor text = ToQt(ForeColor() == Black ? ClosedText : ForeColor());
    palette.setColor(QPalette::Disabled, QPalette::Base, ToQt(closed));
    palette.setColor(QPalette::Disabled, QPalette::Text, text);
    edit_->setPalette(palette);
}

} // namespace Quillane
