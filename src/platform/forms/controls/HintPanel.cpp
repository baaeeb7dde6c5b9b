#include "platform/forms/controls/HintPanel.h"

#include "platform/forms/core/Text.h"

#include <QAbstractEventDispatcher>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>

#include <mutex>

namespace Quillane {

namespace {

constexpr int margin = 8;
constexpr int betweenLines = 4;
constexpr QRgb background = 0xFFFAFAF2;
constexpr QRgb edge = 0xFFC8CCC4;
constexpr QRgb plainText = 0xFF202020;
constexpr QRgb answerText = 0xFF7A1F00;
constexpr QRgb noteText = 0xFF1F4A7A;
constexpr QRgb keysText = 0xFF404840;

QRgb ColourOf(HintPanel::Kind kind) {
    switch (kind) {
    case HintPanel::Kind::Answer:
        return answerText;
    case HintPanel::Kind::Note:
        return noteText;
    case HintPanel::Kind::Keys:
        return keysText;
    case HintPanel::Kind::Plain:
        break;
    }
    return plainText;
}

/// A screen reader reads a notification aloud when it is shown, and the whole panel on request.
class Notification : public QAccessibleWidget {
public:
    explicit Notification(HintPanel& panel)
        : QAccessibleWidget(&panel, QAccessible::Notification), panel_(panel) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name)
            return ToQt(panel_.Answer());
        if (kind != QAccessible::Description)
            return {};
        QStringList all;
        for (const HintPanel::Line& line : panel_.Lines())
            all.append(ToQt(line.text));
        return all.join(QLatin1Char('\n'));
    }

private:
    HintPanel& panel_;
};

QAccessibleInterface* NotificationOf(const QString& /*className*/, QObject* object) {
    auto* panel = dynamic_cast<HintPanel*>(object);
    return panel ? new Notification(*panel) : nullptr;
}

} // namespace

HintPanel::HintPanel() {
    static std::once_flag installed;
    std::call_once(installed, [] { QAccessible::installFactory(NotificationOf); });
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] {
                if (isVisible())
                    Refresh();
            });
}

std::string HintPanel::Answer() const {
    for (const Line& line : lines_)
        if (line.kind == Kind::Answer)
            return line.text;
    return {};
}

void HintPanel::Refresh() {
    std::vector<Line> lines = Source ? Source() : std::vector<Line>();
    if (lines == lines_)
        return;
    const std::string before = Answer();
    lines_ = std::move(lines);
    update();
    if (Answer().empty() || Answer() == before)
        return;
    if (QAccessible::isActive()) {
        QAccessibleEvent shown(this, QAccessible::ObjectShow);
        QAccessible::updateAccessibility(&shown);
    }
    if (Answered)
        Answered();
}

void HintPanel::paintEvent(QPaintEvent* /*event*/) {
    const QRect inside = rect().adjusted(margin, margin, -margin, -margin);
    if (lines_.empty() || inside.height() < fontMetrics().height())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(edge));
    painter.setBrush(QColor(background));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    int top = inside.top();
    for (const Line& line : lines_) {
        QFont letters = font();
        letters.setBold(line.kind == Kind::Answer || line.kind == Kind::Note);
        painter.setFont(letters);
        const QString text = ToQt(line.text);
        const QRect space(inside.left(), top, inside.width(), inside.bottom() + 1 - top);
        const int height = painter.boundingRect(space, Qt::TextWordWrap, text).height();
        if (height > space.height())
            return;
        painter.setPen(QColor(ColourOf(line.kind)));
        painter.drawText(space, Qt::TextWordWrap, text);
        top += height + betweenLines;
    }
}

} // namespace Quillane
