#include "data/CompanyProfile.h"
#include "platform/forms/core/ScreenLook.h"
#include "platform/forms/core/Text.h"
#include "shell/Desktop.h"
#include "shell/Scenery.h"
#include "signin/UserLogin.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace Quillane {

namespace {

constexpr int iconSize = 48;
constexpr QSize usualSize(1080, 675);

/// Sizes in pixels and points. A small display, or one with enlarged text, needs smaller ones.
struct Measures {
    int margin, padding, spacing, leadingButton, button, leadingPoints, points;
};
constexpr Measures large{40, 26, 14, 68, 44, 17, 12};
constexpr Measures small{8, 12, 6, 44, 30, 14, 11};

const Measures& MeasuresFor(const QWidget& window) {
    return OnSmallDisplay(window) ? small : large;
}

void MakeTall(QWidget& button, int height, int points, bool bold) {
    button.setMinimumHeight(height);
    SetFontSize(button, points, bold);
}

void MakeLeading(QWidget& button) {
    QPalette palette = button.palette();
    palette.setColor(QPalette::Button, ToQt(DialogGreen));
    palette.setColor(QPalette::ButtonText, Qt::white);
    button.setPalette(palette);
}

} // namespace

void Desktop::LayOut() {
    setWindowFlags(Qt::Window);
    resize(usualSize.boundedTo(LargestWindow(*this)));
    panel_ = new QWidget(this);
    panel_->setFixedWidth(380);
    auto* row = new QHBoxLayout(this);
    const int margin = MeasuresFor(*this).margin;
    row->setContentsMargins(margin, margin, margin, margin);
    row->addWidget(panel_, 0, Qt::AlignVCenter);
    row->addStretch();
    LayOutPanel();
}

void Desktop::LayOutPanel() {
    auto* column = new QVBoxLayout(panel_);
    const Measures& use = MeasuresFor(*this);
    column->setContentsMargins(use.padding, use.padding, use.padding, use.padding);
    column->setSpacing(use.spacing);
    LayOutHead(*column);
    TxtWeight.SetFont("Arial", 21.75, true);
    TxtWeight.SetForeColor(Red);
    TxtWeight.SetBackColor(Black);
    TxtWeight.SetAlignment(TextBox::Alignment::Centre);
    TxtWeight.SetAccessibleName("Weight");
    column->addWidget(&TxtWeight.Widget());
    MakeTall(BtnWeighment.Widget(), use.leadingButton, use.leadingPoints, true);
    MakeLeading(BtnWeighment.Widget());
    BtnWeighment.SetToolTip("Weigh a load");
    column->addWidget(&BtnWeighment.Widget());
    MakeTall(CmdScaleSetting.Widget(), use.button, use.points, false);
    CmdScaleSetting.SetToolTip("Set up the line to the weighing indicator");
    column->addWidget(&CmdScaleSetting.Widget());
    LayOutPaperChoice();
    column->addWidget(&Frame1.Widget());
    MakeTall(BtnExit.Widget(), use.button, use.points, false);
    BtnExit.SetToolTip("End the program");
    column->addWidget(&BtnExit.Widget());
}

void Desktop::LayOutHead(QVBoxLayout& column) {
    Image1.SetPicture(":/shell/sign-in.png", iconSize, iconSize);
    Image1.SetToolTip("Sign in as another user");
    Image1.SetAccessibleName("Sign in as another user");
    SetFontSize(company_, 15, true);
    SetTextColour(company_, HeadingGreen);
    company_.setWordWrap(true);
    SetTextColour(user_, QuietGrey);
    auto* names = new QVBoxLayout;
    names->setSpacing(2);
    names->addWidget(&company_);
    names->addWidget(&user_);
    auto* head = new QHBoxLayout;
    head->addLayout(names, 1);
    head->addWidget(&Image1.Widget(), 0, Qt::AlignTop);
    column.addLayout(head);
}

void Desktop::LayOutPaperChoice() {
    auto* options = new QVBoxLayout(&Frame1.Widget());
    const int spacing = MeasuresFor(*this).spacing / 2;
    options->setContentsMargins(14, spacing, 14, spacing);
    options->setSpacing(spacing);
    options->addWidget(&OptWhitePage.Widget());
    options->addWidget(&OptPrintedPaper.Widget());
}

void Desktop::ShowWhoIsSignedIn() {
    company_.setText(ToQt(CompanyProfile->CompanyTitle()));
    user_.setText(ToQt("Signed in: " + UserLogin->UserName()));
}

void Desktop::paintEvent(QPaintEvent* /*event*/) {
    const QSize size = this->size() * devicePixelRatio();
    if (background_.size() != size) {
        background_ = QPixmap(size);
        QPainter picture(&background_);
        PaintScenery(picture, QRectF(QPointF(0, 0), QSizeF(size)));
        background_.setDevicePixelRatio(devicePixelRatio());
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, background_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 235));
    painter.drawRoundedRect(panel_->geometry(), 14, 14);
}

} // namespace Quillane
