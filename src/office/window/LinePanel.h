#pragma once

#include "office/records/Settings.h"
#include "office/window/OfficeSession.h"
#include "office/window/PageLook.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace Quillane {
class SerialLine;
}

namespace Quillane::Office {

/// The indicator's line: its settings, which all stations read from the database, and a live view
/// of the received text with the weights that the bench and the weighment screen would read.
class LinePanel : public QWidget {
public:
    /// The shortcuts work on the whole page.
    LinePanel(OfficeSession& session, QWidget& page);
    ~LinePanel() override;

    bool IsChanged() const;
    void Reload();
    bool IsListening() const { return line_ != nullptr; }

    QSpinBox* Port() { return port_; }
    QSpinBox* Length() { return length_; }
    QComboBox* Direction() { return direction_; }
    QCheckBox* Reversed() { return reversed_; }
    QString RawText() const { return raw_->toPlainText(); }
    QString Readings() const { return bench_->text() + " / " + live_->text(); }
    QString Fault() const { return fault_->text(); }

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void LayOut();
    QLayout* LineRow();
    QLayout* ReadingRow();
    QLayout* Actions();
    QLayout* LiveView();

    Settings Entered() const;
    std::string LineSettings() const;
    void Show(const Settings& settings);
    std::string ShowLine(const std::string& settings);
    void Save();

    void ToggleListening();
    void Listen();
    void StopListening();
    void Look();
    void ShowRaw(const std::string& bytes);

    OfficeSession& session_;
    QWidget& page_;
    Settings shown_;
    bool mayWrite_ = true;
    std::unique_ptr<SerialLine> line_;
    QTimer look_;

    QSpinBox* port_ = new QSpinBox;
    QComboBox* rate_ = new QComboBox;
    QComboBox* dataBits_ = new QComboBox;
    QComboBox* parity_ = new QComboBox;
    QComboBox* stopBits_ = new QComboBox;
    QComboBox* direction_ = new QComboBox;
    QSpinBox* length_ = new QSpinBox;
    QCheckBox* reversed_ = new QCheckBox("Re&versed");
    QPlainTextEdit* raw_ = new QPlainTextEdit;
    QLabel* bench_ = new QLabel("-");
    QLabel* live_ = new QLabel("-");
    QLabel* state_ = Note({});
    Notice* readOnly_ = new Notice(Notice::Kind::Information);
    Notice* fault_ = new Notice(Notice::Kind::Fault);
    QPushButton* listen_ = nullptr;
    QPushButton* save_ = nullptr;
};

} // namespace Quillane::Office
