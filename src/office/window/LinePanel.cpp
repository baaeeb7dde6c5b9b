#include "office/window/LinePanel.h"

#include "office/window/OfficeBoxes.h"
#include "platform/comm/LineSettings.h"
#include "platform/comm/SerialLine.h"
#include "platform/forms/core/Text.h"
#include "platform/runtime/Numbers.h"
#include "scale/Decoding.h"
#include "scale/Settings.h"

#include <QBoxLayout>
#include <QPushButton>

#include <algorithm>
#include <array>

namespace Quillane::Office {

namespace {

constexpr int lookInterval = 300; ///< ms, the interval of the weighment screen

void AddCaptioned(QBoxLayout& row, const QString& caption, QWidget* field) {
    auto* label = new QLabel(caption);
    label->setBuddy(field);
    field->setMinimumHeight(30);
    field->setAccessibleName(QString(caption).remove('&'));
    auto* column = new QVBoxLayout;
    column->setSpacing(2);
    column->addWidget(label);
    column->addWidget(field);
    row.addLayout(column);
}

std::string CellOf(const Settings& settings, std::string_view key) {
    const auto found = settings.find(key);
    return found == settings.end() ? std::string() : found->second;
}

/// Replaces control bytes by their names: <STX>0012540<CR>.
QString Visible(const std::string& bytes) {
    constexpr std::array names{"NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL",
                               "BS",  "HT",  "LF",  "VT",  "FF",  "CR",  "SO",  "SI",
                               "DLE", "DC1", "DC2", "DC3", "DC4", "NAK", "SYN", "ETB",
                               "CAN", "EM",  "SUB", "ESC", "FS",  "GS",  "RS",  "US"};
    QString text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < names.size())
            text += QString("<%1>").arg(names[code]);
        else
            text += QChar::fromLatin1(byte);
    }
    return text;
}

QString Kilograms(const std::string& weight) {
    return weight.empty() ? QString("-") : ToQt(weight) + " kg";
}

QLabel* Figure(QLabel* label) {
    QFont font = label->font();
    font.setPointSize(20);
    font.setBold(true);
    label->setFont(font);
    return label;
}

} // namespace

LinePanel::LinePanel(OfficeSession& session, QWidget& page) : session_(session), page_(page) {
    LayOut();
    const std::string why =
        session.whyReadOnly(session.connection, std::array<std::string_view, 1>{"PortSettings"});
    mayWrite_ = why.empty();
    readOnly_->Say(ToQt(why));
    look_.setInterval(lookInterval);
    connect(&look_, &QTimer::timeout, this, [this] { Look(); });
}

LinePanel::~LinePanel() = default;

void LinePanel::LayOut() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(Heading("Line of the indicator"));
    column->addWidget(readOnly_);
    auto* both = new QHBoxLayout;
    both->setSpacing(24);
    both->addLayout(LineRow());
    both->addLayout(ReadingRow());
    both->addStretch();
    column->addLayout(both);
    column->addWidget(fault_);
    column->addLayout(Actions());
    column->addLayout(LiveView(), 1);
}

QLayout* LinePanel::LineRow() {
    constexpr int highestPort = 32767;
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    port_->setRange(1, highestPort);
    port_->setMinimumWidth(80);
    for (const char* rate : {"110", "300", "600", "1200", "2400", "4800", "9600", "14400", "19200",
                             "28800", "38400", "56000", "57600", "115200"})
        rate_->addItem(QString(rate) + " bit/s", QString(rate));
    for (const char* bits : {"5", "6", "7", "8"})
        dataBits_->addItem(bits, QString(bits));
    for (const char* parity : {"Even", "Mark", "None", "Odd", "Space"})
        parity_->addItem(parity, QString(QChar(parity[0])).toLower());
    for (const char* bits : {"1", "1.5", "2"})
        stopBits_->addItem(bits, QString(bits));
    AddCaptioned(*row, "&Port", port_);
    AddCaptioned(*row, "&Rate", rate_);
    AddCaptioned(*row, "Data &bits", dataBits_);
    AddCaptioned(*row, "Par&ity", parity_);
    AddCaptioned(*row, "S&top bits", stopBits_);
    return row;
}

QLayout* LinePanel::ReadingRow() {
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    direction_->addItem("Left");
    direction_->addItem("Right");
    length_->setRange(0, 9);
    length_->setSuffix(" digits");
    AddCaptioned(*row, "Data dire&ction", direction_);
    AddCaptioned(*row, "Len&gth", length_);
    ActAtOnce(*reversed_);
    reversed_->setMinimumHeight(30);
    row->addWidget(reversed_, 0, Qt::AlignBottom);
    return row;
}

QLayout* LinePanel::Actions() {
    auto* row = new QHBoxLayout;
    listen_ = AddAction(*row, page_, "Listen", Qt::Key_F9, [this] { ToggleListening(); });
    save_ =
        AddAction(*row, page_, "&Save for all stations", Qt::CTRL | Qt::Key_S, [this] { Save(); });
    row->addWidget(state_);
    row->addStretch();
    return row;
}

QLayout* LinePanel::LiveView() {
    constexpr int longestText = 40;
    auto* row = new QHBoxLayout;
    row->setSpacing(24);
    raw_->setReadOnly(true);
    raw_->setTabChangesFocus(true);
    raw_->setMaximumBlockCount(longestText);
    raw_->setPlaceholderText("What the line sends appears here.");
    raw_->setAccessibleName("What the line sends");
    raw_->setMinimumHeight(70);
    row->addWidget(raw_, 1);
    const auto add = [&](const char* caption, QLabel* figure) {
        auto* column = new QVBoxLayout;
        column->setSpacing(0);
        column->addWidget(Note(caption));
        column->addWidget(Figure(figure), 0, Qt::AlignTop);
        figure->setMinimumWidth(170);
        column->addStretch(1);
        row->addLayout(column);
    };
    add("The bench would read", bench_);
    add("The weighment would read", live_);
    return row;
}

void LinePanel::Reload() {
    shown_ = ReadSettings(session_.connection, LineSettingsTable());
    Show(shown_);
    save_->setEnabled(mayWrite_);
}

void LinePanel::Show(const Settings& settings) {
    std::string faults;
    const std::string port = CellOf(settings, PortNameSetting.name);
    bool isNumber = false;
    const int number = ToQt(port).toInt(&isNumber);
    if (!isNumber || number < 1)
        faults = "The stored port \"" + port + "\" is not a port number. ";
    port_->setValue(isNumber ? number : 1);
    faults += ShowLine(CellOf(settings, LineSetting.name));
    direction_->setCurrentIndex(CellOf(settings, DirectionSetting.name) == "Right" ? 1 : 0);
    length_->setValue(static_cast<int>(Val(CellOf(settings, LengthSetting.name))));
    reversed_->setChecked(CellOf(settings, ReversalSetting.name) == "1");
    fault_->Say(ToQt(faults.empty() ? faults : faults + "Please choose, and save."));
}

/// Returns the error in the stored text; empty if there is none.
std::string LinePanel::ShowLine(const std::string& settings) {
    const QStringList parts = ToQt(settings).split(',');
    const std::array boxes{rate_, parity_, dataBits_, stopBits_};
    constexpr std::array usual{"2400", "n", "8", "1"};
    bool isKnown = ParseLineSettings(settings).has_value();
    for (std::size_t place = 0; place < boxes.size(); ++place) {
        const QString part = parts.value(static_cast<qsizetype>(place)).trimmed().toLower();
        if (isKnown && place == 0 && boxes[place]->findData(part) < 0)
            boxes[place]->addItem(part + " bit/s", part);
        const int found = boxes[place]->findData(isKnown ? part : QString(usual[place]));
        boxes[place]->setCurrentIndex(found);
    }
    return isKnown ? std::string() : "The stored line settings \"" + settings + "\" are none. ";
}

std::string LinePanel::LineSettings() const {
    return ComposeLineSettings(FromQt(rate_->currentData().toString()),
                               FromQt(parity_->currentText()), FromQt(dataBits_->currentText()),
                               FromQt(stopBits_->currentText()));
}

Settings LinePanel::Entered() const {
    return {{std::string(PortNameSetting.name), std::to_string(port_->value())},
            {std::string(LineSetting.name), LineSettings()},
            {std::string(DirectionSetting.name), FromQt(direction_->currentText())},
            {std::string(LengthSetting.name), std::to_string(length_->value())},
            {std::string(ReversalSetting.name), reversed_->isChecked() ? "1" : "0"}};
}

bool LinePanel::IsChanged() const {
    return mayWrite_ && !shown_.empty() && Entered() != shown_;
}

void LinePanel::Save() {
    if (length_->value() == 0 &&
        !Ask(window(),
             "With a length of 0 digits the weighment screen shows no weight any more. Save it?",
             "&Save"))
        return;
    const std::string why =
        SaveSettings(session_.connection, LineSettingsTable(), shown_, Entered());
    if (!why.empty()) {
        Warn(window(), why);
        shown_ = ReadSettings(session_.connection, LineSettingsTable());
        return;
    }
    Reload();
    state_->setText("Saved. A station reads it at its next new weighment.");
}

void LinePanel::ToggleListening() {
    if (line_)
        StopListening();
    else
        Listen();
}

void LinePanel::Listen() {
    fault_->Say({});
    try {
        constexpr int benchBursts = 3;
        line_ = std::make_unique<SerialLine>(static_cast<std::int16_t>(port_->value()),
                                             LineSettings(), benchBursts);
        line_->Open();
    } catch (const std::exception& failure) {
        StopListening();
        fault_->Say(ToQt(failure.what()) +
                    " A station that weighs at this computer holds its port open.");
        return;
    }
    raw_->clear();
    state_->setText(ToQt(line_->Named() + ", " + LineSettings()));
    listen_->setText("Stop  (F9)");
    look_.start();
}

void LinePanel::StopListening() {
    look_.stop();
    line_.reset();
    state_->clear();
    listen_->setText("Listen  (F9)");
}

// The line is closed when the page is hidden, so that a station can open it.
void LinePanel::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous() && line_)
        StopListening();
}

void LinePanel::Look() {
    try {
        const std::string bytes = line_->Input();
        if (bytes.empty())
            return;
        ShowRaw(bytes);
        const std::string direction = FromQt(direction_->currentText());
        bench_->setText(
            Kilograms(DecodeTestWeight(bytes, direction, std::to_string(length_->value()),
                                       reversed_->isChecked())
                          .modified));
        const auto weight =
            DecodeLiveWeight(bytes, {.direction = direction,
                                     .length = static_cast<double>(length_->value()),
                                     .reversed = reversed_->isChecked()});
        if (weight)
            live_->setText(Kilograms(*weight));
    } catch (const std::exception& failure) {
        StopListening();
        fault_->Say(ToQt(failure.what()));
    }
}

void LinePanel::ShowRaw(const std::string& bytes) {
    raw_->appendPlainText(Visible(bytes));
}

} // namespace Quillane::Office
