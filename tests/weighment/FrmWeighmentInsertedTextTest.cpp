// Text that is inserted into a box as a whole: pasted, dropped or committed by an input method.

#include "weighment/WeighmentKeys.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>

namespace Quillane {
namespace {

using Testing::Lines;
using Testing::ScreenDriver;
using Testing::Trace;

struct Way {
    const char* name;
    std::function<void(FrmWeighment&, TextBox&, const char*)> bring;

    friend void PrintTo(const Way& way, std::ostream* out) { *out << way.name; }
};

void ChoosePaste(QWidget& box) {
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(5, 5),
                            box.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&box, &asked);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (QAction* action : menu->actions())
        if (action->text().startsWith("&Paste"))
            action->trigger();
    menu->close();
}

const Way Ways[] = {
    {"CtrlV",
     [](FrmWeighment& screen, TextBox&, const char* text) {
         QApplication::clipboard()->setText(text);
         ScreenDriver(screen).Press(Qt::CTRL | Qt::Key_V);
     }},
    {"ShiftInsert",
     [](FrmWeighment& screen, TextBox&, const char* text) {
         QApplication::clipboard()->setText(text);
         ScreenDriver(screen).Press(Qt::SHIFT | Qt::Key_Insert);
     }},
    {"TheMenu",
     [](FrmWeighment&, TextBox& box, const char* text) {
         QApplication::clipboard()->setText(text);
         ChoosePaste(box.Widget());
     }},
    {"ADrop",
     [](FrmWeighment&, TextBox& box, const char* text) {
         QMimeData data;
         data.setText(text);
         QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
         QCoreApplication::sendEvent(&box.Widget(), &enter);
         QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
         QCoreApplication::sendEvent(&box.Widget(), &drop);
     }},
    {"AnInputMethod",
     [](FrmWeighment& screen, TextBox&, const char* text) { ScreenDriver(screen).Commit(text); }},
};

class FrmWeighmentInsertedText : public Testing::WeighmentKeys,
                                 public testing::WithParamInterface<Way> {
protected:
    /// The box is visible and enabled and has the focus; the screen can be saved already.
    void Prepare(TextBox& box, std::string_view text = "") {
        Begin(screen->TxtVehicleNo, 2);
        box.SetVisible(true);
        box.SetEnabled(true);
        box.SetLocked(false);
        box.SetFocus();
        box.SetText(text);
    }
    Lines Bringing(TextBox& box, const char* text) {
        Trace trace(*screen, line);
        GetParam().bring(*screen, box, text);
        return trace.Take();
    }
    std::vector<TextBox*> NumberBoxes() {
        return {&screen->TxtInitialGrossWeight, &screen->TxtTareWeight, &screen->TxtGrossWeight,
                &screen->TxtShortage,           &screen->TxtDeduction,  &screen->TxtHeapNo};
    }
};

TEST_P(FrmWeighmentInsertedText, NumberBoxRefusesTextWithOneCharacterThatIsNotADigit) {
    const char* const refused[] = {
        "-99", "-1e9", "1.5", "1 2", " 17", "17\n", "x4.", "12kg", "+5", "1,0", "\xDB\xB1\xDB\xB2",
        "1\b2"};
    for (TextBox* box : NumberBoxes()) {
        for (const char* text : refused) {
            Prepare(*box, "5");
            EXPECT_EQ(Bringing(*box, text), Lines{}) << box->Name() << ": " << text;
            EXPECT_EQ(box->Text(), "5") << box->Name() << ": " << text;
        }
    }
}

TEST_P(FrmWeighmentInsertedText, NumberBoxAcceptsDigits) {
    for (TextBox* box : NumberBoxes()) {
        Prepare(*box);
        GetParam().bring(*screen, *box, "0420");
        EXPECT_EQ(box->Text(), "0420") << box->Name();
    }
}

TEST_P(FrmWeighmentInsertedText, InsertedDigitsAreComputed) {
    Prepare(screen->TxtDeduction);
    screen->TxtGrossWeight.SetText("8220");
    EXPECT_EQ(Bringing(screen->TxtDeduction, "17"),
              (Lines{"TxtDeduction = '17'", "TxtNetWeight = '8203'", "TxtMoundKgs = '205-3'"}));
}

TEST_P(FrmWeighmentInsertedText, OtherBoxesAcceptAnyText) {
    for (TextBox* box : {&screen->TxtArrivalId, &screen->TxtVehicleNo, &screen->TxtBuiltyNo,
                         &screen->TxtDriverName, &screen->TxtKandaDeduction, &screen->TxtHeapName,
                         &screen->TxtWeight}) {
        Prepare(*box);
        GetParam().bring(*screen, *box, "-1 .x");
        EXPECT_EQ(box->Text(), "-1 .x") << box->Name();
    }
}

TEST_P(FrmWeighmentInsertedText, LockedBoxAcceptsNoText) {
    Prepare(screen->TxtTareWeight, "4320");
    screen->TxtTareWeight.SetLocked(true);
    GetParam().bring(*screen, screen->TxtTareWeight, "5");
    EXPECT_EQ(screen->TxtTareWeight.Text(), "4320");
}

INSTANTIATE_TEST_SUITE_P(By, FrmWeighmentInsertedText, testing::ValuesIn(Ways),
                         [](const auto& way) { return std::string(way.param.name); });

using FrmWeighmentWrittenText = Testing::WeighmentKeys;

TEST_F(FrmWeighmentWrittenText, NumberBoxAcceptsAnyTextFromCode) {
    for (const char* text : {"-40", "4320.5", "none"}) {
        screen->TxtDeduction.SetText(text);
        EXPECT_EQ(screen->TxtDeduction.Text(), text);
    }
}

// A refused text still counts as a key.
TEST_F(FrmWeighmentWrittenText, RefusedCharacterStartsAChange) {
    Begin(screen->TxtDeduction, 3);
    QApplication::clipboard()->setText("-999");
    Driver().Press(Qt::CTRL | Qt::Key_V);
    EXPECT_EQ(screen->TxtDeduction.Text(), "");
    EXPECT_EQ(State(), "ChangeMode, can be saved");
    Begin(screen->TxtDeduction, 3);
    Driver().Commit("-999");
    EXPECT_EQ(screen->TxtDeduction.Text(), "");
    EXPECT_EQ(State(), "ChangeMode, can be saved");
}

} // namespace
} // namespace Quillane
