#include "scale/FrmPortSettings.h"

#include "scale/SettingBench.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace Quillane {
namespace {

using Testing::ScreenDriver;
using Testing::SettingBench;

struct FrmPortSettingsTest : SettingBench {
    static std::string CaptionOf(VisualControl& control, const char* property) {
        return control.Widget().property(property).toString().toStdString();
    }
    static std::vector<std::string> EntriesOf(ComboBox& list) {
        std::vector<std::string> entries;
        auto& box = dynamic_cast<QComboBox&>(list.Widget());
        for (int i = 0; i < box.count(); ++i)
            entries.push_back(box.itemText(i).toStdString());
        return entries;
    }
    static Qt::Alignment AlignmentOf(TextBox& box) {
        return dynamic_cast<QLineEdit&>(box.Widget()).alignment();
    }
    /// The captions of the labels in a group, sorted.
    static std::vector<std::string> LabelsIn(Frame& frame) {
        std::vector<std::string> texts;
        for (const QLabel* label : frame.Widget().findChildren<QLabel*>())
            texts.push_back(label->text().toStdString());
        std::sort(texts.begin(), texts.end());
        return texts;
    }
};

using Texts = std::vector<std::string>;

TEST_F(FrmPortSettingsTest, HasItsControlsInTheirOrder) {
    EXPECT_EQ(screen.Name(), "FrmPortSettings");
    EXPECT_EQ(screen.windowTitle(), "Port Testing");
    Texts names;
    for (const Control* control : screen.Controls())
        names.push_back(control->TypeName() + " " + control->Name());
    EXPECT_EQ(names, (Texts{"Frame Frame1",
                            "ComboBox CboPortName",
                            "ComboBox CboBitsPerSecond",
                            "ComboBox CboDataBits",
                            "ComboBox CboParity",
                            "ComboBox CboStopBits",
                            "CommandButton CmdOpenPort",
                            "CommandButton CmdGetWeight",
                            "TextBox TxtRawWeight",
                            "Frame Frame2",
                            "TextBox TxtDataFrom",
                            "ComboBox CboDirection",
                            "CheckBox ChkIsReversed",
                            "CommandButton CmdModifiedWeight",
                            "TextBox TxtNotModified",
                            "TextBox TxtModifiedWeight",
                            "Timer Timer",
                            "MSComm CM",
                            "CommandButton CmdSave",
                            "CommandButton CmdClose"}));
}

TEST_F(FrmPortSettingsTest, HasItsCaptions) {
    EXPECT_EQ(CaptionOf(screen.Frame1, "title"), "Port Settings");
    EXPECT_EQ(CaptionOf(screen.Frame2, "title"), "");
    EXPECT_EQ(CaptionOf(screen.CmdOpenPort, "text"), "Open Port");
    EXPECT_EQ(CaptionOf(screen.CmdGetWeight, "text"), "Get Weight");
    EXPECT_EQ(CaptionOf(screen.ChkIsReversed, "text"), "Is Reversed?");
    EXPECT_EQ(CaptionOf(screen.CmdModifiedWeight, "text"), "Get Weight");
    EXPECT_EQ(CaptionOf(screen.CmdSave, "text"), "Save");
    EXPECT_EQ(CaptionOf(screen.CmdClose, "text"), "Close");
    EXPECT_EQ(LabelsIn(screen.Frame1), (Texts{"Bits Per Second:", "Data Bits:", "Parity:",
                                              "Port Name:", "Raw Text:", "Stop Bits:"}));
    EXPECT_EQ(LabelsIn(screen.Frame2),
              (Texts{"Data Direction:", "Length:", "Modified Weight:", "Not Modified:"}));
}

TEST_F(FrmPortSettingsTest, ListsItsEntriesWithTheirTrailingBlanks) {
    EXPECT_EQ(EntriesOf(screen.CboPortName), (Texts{"COM1", "COM2"}));
    EXPECT_EQ(EntriesOf(screen.CboBitsPerSecond),
              (Texts{"110 ", "300 ", "600 ", "1200 ", "2400 ", "4800 ", "9600", "14400 ", "19200 ",
                     "28800 ", "38400 ", "56000"}));
    EXPECT_EQ(EntriesOf(screen.CboDataBits), (Texts{"5", "6", "7", "8"}));
    EXPECT_EQ(EntriesOf(screen.CboParity), (Texts{"Even ", "Mark ", "None ", "Odd ", "Space"}));
    EXPECT_EQ(EntriesOf(screen.CboStopBits), (Texts{"1", "1.5", "2"}));
    EXPECT_EQ(EntriesOf(screen.CboDirection), (Texts{"Left", "Right"}));
}

TEST_F(FrmPortSettingsTest, StartsWithAClosedLineAndWithoutATest) {
    screen.Show();
    EXPECT_FALSE(screen.CM.PortOpen());
    EXPECT_EQ(screen.CM.CommPort(), 1);
    EXPECT_EQ(screen.CM.Settings(), "2400,n,8,1");
    EXPECT_EQ(screen.Timer.Interval(), 200);
    EXPECT_FALSE(screen.Timer.Enabled());
    EXPECT_EQ(screen.ChkIsReversed.Value(), 0);
    EXPECT_EQ(screen.LineSettings, "");
    for (const TextBox* box : {&screen.TxtRawWeight, &screen.TxtDataFrom, &screen.TxtNotModified,
                               &screen.TxtModifiedWeight})
        EXPECT_EQ(box->Text(), "") << box->Name();
    EXPECT_EQ(screen.TxtDataFrom.MaxLength(), 1);
    EXPECT_TRUE(AlignmentOf(screen.TxtDataFrom).testFlag(Qt::AlignRight));
}

TEST_F(FrmPortSettingsTest, SelectsItsDefaultsInTheirOrderAndIgnoresTheStoredSettings) {
    database.Run("Update PortSettings set RegistryValue = '9'");
    Texts selected;
    for (ComboBox* list : {&screen.CboPortName, &screen.CboBitsPerSecond, &screen.CboDataBits,
                           &screen.CboParity, &screen.CboStopBits, &screen.CboDirection})
        list->Click = [&selected, list] {
            selected.push_back(list->Name() + " '" + list->Text() + "'");
        };
    screen.Show();
    EXPECT_EQ(selected, (Texts{"CboBitsPerSecond '2400 '", "CboDataBits '8'", "CboParity 'None '",
                               "CboPortName 'COM1'", "CboStopBits '1'", "CboDirection 'Left'"}));
    EXPECT_EQ(database.statements, Texts{}) << "the stored settings are not read";
}

TEST_F(FrmPortSettingsTest, HasEachGroupInItsFrame) {
    const auto expectIn = [](QWidget& frame, std::initializer_list<VisualControl*> controls) {
        for (VisualControl* control : controls)
            EXPECT_TRUE(frame.isAncestorOf(&control->Widget())) << control->Name();
    };
    expectIn(screen.Frame1.Widget(),
             {&screen.CboPortName, &screen.CboBitsPerSecond, &screen.CboDataBits, &screen.CboParity,
              &screen.CboStopBits, &screen.CmdOpenPort, &screen.CmdGetWeight,
              &screen.TxtRawWeight});
    expectIn(screen.Frame2.Widget(),
             {&screen.TxtDataFrom, &screen.CboDirection, &screen.ChkIsReversed,
              &screen.CmdModifiedWeight, &screen.TxtNotModified, &screen.TxtModifiedWeight});
    for (VisualControl* button : {&screen.CmdSave, &screen.CmdClose})
        EXPECT_EQ(button->Widget().parentWidget(), &screen) << button->Name();
}

TEST_F(FrmPortSettingsTest, TabMovesThroughItGroupByGroup) {
    screen.Show();
    Texts walked;
    for (int step = 0; step < 17; ++step) {
        walked.push_back(screen.ActiveControlName());
        ScreenDriver(screen).Press(Qt::Key_Tab);
    }
    EXPECT_EQ(walked,
              (Texts{"CboPortName", "CboBitsPerSecond", "CboDataBits", "CboParity", "CboStopBits",
                     "CmdOpenPort", "CmdGetWeight", "TxtRawWeight", "TxtDataFrom", "CboDirection",
                     "ChkIsReversed", "CmdModifiedWeight", "TxtNotModified", "TxtModifiedWeight",
                     "CmdSave", "CmdClose", "CboPortName"}));
}

TEST_F(FrmPortSettingsTest, TakesOneCharacterAsLengthFromTheKeyboard) {
    screen.Show();
    ScreenDriver(screen).Click(screen.TxtDataFrom).Type("64");
    EXPECT_EQ(screen.TxtDataFrom.Text(), "6");
}

// Like any box: nothing is selected when it gets the focus, and it is full.
TEST_F(FrmPortSettingsTest, KeepsItsLengthUntilTheOperatorDeletesIt) {
    screen.Show();
    screen.TxtDataFrom.SetText("6");
    screen.TxtRawWeight.SetFocus();
    ScreenDriver(screen).Press(Qt::Key_Tab).Type("4");
    EXPECT_EQ(screen.TxtDataFrom.Text(), "6");
    ScreenDriver(screen).Press(Qt::CTRL | Qt::Key_A).Type("4");
    EXPECT_EQ(screen.TxtDataFrom.Text(), "4");
}

TEST_F(FrmPortSettingsTest, HasNoHandlerForTheFocusOfAnyControl) {
    for (Control* control : screen.Controls())
        if (auto* visual = dynamic_cast<VisualControl*>(control)) {
            EXPECT_FALSE(visual->GotFocus) << control->Name();
            EXPECT_FALSE(visual->LostFocus) << control->Name();
        }
}

TEST_F(FrmPortSettingsTest, HasNoRuleForEnterOutsideOfItsButtonsNorForEscape) {
    screen.Show();
    ScreenDriver(screen).Press(Qt::Key_Return).Press(Qt::Key_Escape);
    EXPECT_EQ(screen.ActiveControlName(), "CboPortName");
    EXPECT_TRUE(screen.IsLoaded());
    screen.CmdOpenPort.SetFocus();
    ScreenDriver(screen).Press(Qt::Key_Return);
    EXPECT_TRUE(screen.CM.PortOpen());
}

TEST_F(FrmPortSettingsTest, ClosesWithoutAQuestionByItsButtonAndItsCloseBox) {
    ShowWithOpenPort();
    screen.TxtDataFrom.SetText("6");
    ScreenDriver(screen).Click(screen.CmdClose);
    EXPECT_FALSE(screen.IsLoaded());
    screen.Show();
    screen.close();
    EXPECT_FALSE(screen.IsLoaded());
}

TEST_F(FrmPortSettingsTest, NamesEveryControlForAssistiveTechnology) {
    for (Control* control : screen.Controls()) {
        auto* visual = dynamic_cast<VisualControl*>(control);
        if (!visual)
            continue;
        const bool named = !CaptionOf(*visual, "accessibleName").empty() ||
                           !CaptionOf(*visual, "text").empty() ||
                           !CaptionOf(*visual, "title").empty();
        EXPECT_TRUE(named) << control->Name();
    }
}

TEST_F(FrmPortSettingsTest, HasNeitherAMinimiseNorAMaximiseButton) {
    EXPECT_FALSE(screen.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(screen.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
}

} // namespace
} // namespace Quillane
