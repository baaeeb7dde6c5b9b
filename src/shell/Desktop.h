#pragma once

#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/Label.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"

#include <QPixmap>

#include <memory>

class QVBoxLayout;

namespace Quillane {

/// The start screen. It exists until the program ends. It opens the other screens, stores the paper
/// choice of the user and lets another user sign in. Closing it in any way ends the process. None
/// of its handlers has an error trap.
class Desktop : public Screen {
public:
    Desktop();

    CommandButton BtnWeighment{*this, "BtnWeighment", "Weighment"};
    CommandButton BtnExit{*this, "BtnExit", "Exit"};
    CommandButton CmdScaleSetting{*this, "CmdScaleSetting", "Scale Setting "};
    TextBox TxtWeight{*this, "TxtWeight"}; ///< no procedure reads or writes it
    Frame Frame1{*this, "Frame1", "Printer Setting"};
    OptionButton OptWhitePage{*this, "OptWhitePage", "Print on white paper"};
    OptionButton OptPrintedPaper{*this, "OptPrintedPaper", "Print on printed paper"};
    Image Image1{*this, "Image1"};

protected:
    /// Selects the stored paper choice. The click handler stores it again, so the first start
    /// stores the default.
    void Form_Load() override;
    void Form_Unload(bool& cancel) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void WireEvents();
    void LayOut();
    void LayOutPanel();
    void LayOutHead(QVBoxLayout& column);
    void LayOutPaperChoice();
    void ShowWhoIsSignedIn();

    void BtnWeighment_Click();
    void CmdScaleSetting_Click();
    void Image1_Click();
    void EndStation();

    QWidget* panel_ = nullptr;
    Label company_{""};
    Label user_{""};
    QPixmap background_; ///< the picture, scaled to the window
};

/// The start screen of the process. Null before the user has signed in.
extern std::unique_ptr<Desktop> TheDesktop;

} // namespace Quillane
