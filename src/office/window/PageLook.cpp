#include "office/window/PageLook.h"

#include "office/window/OfficeBoxes.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QDialog>
#include <QFormLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QShortcutEvent>
#include <QTableView>

namespace Quillane::Office {

namespace {

const QColor headingColour(0x24, 0x4C, 0x44);
const QColor noteColour(0x55, 0x5F, 0x63);

QLabel* ColouredLabel(const QString& text, int points, bool bold, const QColor& colour) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    QFont font = label->font();
    font.setPointSize(points);
    font.setBold(bold);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
    return label;
}

class ActingAtOnce : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous())
            return false;
        auto& button = static_cast<QAbstractButton&>(*watched);
        if (button.isCheckable())
            button.setFocus(Qt::ShortcutFocusReason);
        button.click();
        return true;
    }
};

} // namespace

void ActAtOnce(QAbstractButton& button) {
    static ActingAtOnce filter;
    button.installEventFilter(&filter);
}

QVBoxLayout* PageColumn(QWidget& page, const QString& title, const QString& purpose) {
    constexpr int margin = 20;
    constexpr int titlePoints = 17;
    auto* column = new QVBoxLayout(&page);
    column->setContentsMargins(margin, margin / 2, margin, margin / 2);
    column->setSpacing(10);
    auto* head = new QVBoxLayout;
    head->setSpacing(0);
    head->addWidget(ColouredLabel(title, titlePoints, true, headingColour));
    QLabel* line = Note(purpose);
    line->setWordWrap(true);
    head->addWidget(line);
    column->addLayout(head);
    return column;
}

QPushButton* AddAction(QBoxLayout& row, QWidget& page, const QString& caption,
                       const QKeySequence& shortcut, std::function<void()> act) {
    const QString keys = shortcut.toString(QKeySequence::NativeText);
    auto* button = new QPushButton(keys.isEmpty() ? caption : caption + "  (" + keys + ")");
    button->setAutoDefault(false);
    ActAtOnce(*button);
    button->setMinimumHeight(32);
    FitToText(*button);
    QObject::connect(button, &QPushButton::clicked, &page,
                     [&page, act = std::move(act)] { Guarded(page.window(), act); });
    if (!keys.isEmpty()) {
        auto* pressed = new QShortcut(shortcut, &page);
        pressed->setContext(Qt::WidgetWithChildrenShortcut);
        QObject::connect(pressed, &QShortcut::activated, button, [button] { button->click(); });
    }
    row.addWidget(button);
    return button;
}

void FitToText(QPushButton& button) {
    constexpr int margin = 16;
    button.setMinimumWidth(button.sizeHint().width() + margin);
}

Notice::Notice(Kind kind, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setContentsMargins(10, 6, 10, 6);
    setAutoFillBackground(true);
    const bool isFault = kind == Kind::Fault;
    QPalette colours = palette();
    colours.setColor(QPalette::Window,
                     isFault ? QColor(0xF8, 0xE4, 0xE1) : QColor(0xFB, 0xF3, 0xD5));
    colours.setColor(QPalette::WindowText,
                     isFault ? QColor(0x8A, 0x16, 0x16) : QColor(0x5C, 0x45, 0x00));
    setPalette(colours);
    hide();
}

void Notice::Say(const QString& text) {
    setText(text);
    setVisible(!text.isEmpty());
}

QString WithLetter(const QString& caption, QString& used) {
    for (qsizetype place = 0; place < caption.size(); ++place) {
        const QChar letter = caption[place].toLower();
        if (!letter.isLetter() || used.contains(letter))
            continue;
        used += letter;
        return QString(caption).insert(place, '&');
    }
    return caption;
}

void SpaceFields(QFormLayout& form) {
    form.setHorizontalSpacing(16);
    form.setVerticalSpacing(8);
}

void AddCaptioned(QFormLayout& form, const QString& caption, QWidget* field, QWidget* widget) {
    constexpr int height = 32;
    field->setMinimumHeight(height);
    field->setAccessibleName(QString(caption).remove('&'));
    if (auto* line = qobject_cast<QLineEdit*>(field))
        line->setTextMargins(4, 0, 4, 0);
    auto* label = new QLabel(caption);
    label->setMinimumHeight(height);
    label->setBuddy(field);
    form.addRow(label, widget ? widget : field);
}

void GrowToFit(QDialog& dialog) {
    QLayout& layout = *dialog.layout();
    layout.activate();
    const int needed = layout.hasHeightForWidth() ? layout.totalHeightForWidth(dialog.width())
                                                  : layout.totalSizeHint().height();
    if (dialog.height() < needed)
        dialog.resize(dialog.width(), needed);
}

void LookLikeTable(QTableView& view) {
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setTabKeyNavigation(false);
    view.setShowGrid(false);
    view.setAlternatingRowColors(true);
    view.setWordWrap(false);
    view.verticalHeader()->hide();
    view.verticalHeader()->setDefaultSectionSize(view.fontMetrics().height() + 10);
    view.horizontalHeader()->setHighlightSections(false);
    view.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

QLabel* Heading(const QString& text) {
    constexpr int points = 12;
    return ColouredLabel(text, points, true, headingColour);
}

QLabel* Note(const QString& text) {
    constexpr int points = 10;
    return ColouredLabel(text, points, false, noteColour);
}

} // namespace Quillane::Office
