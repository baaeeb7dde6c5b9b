// A stored load with both weights is opened again: it is not weighed a second time.

#include "weighment/OpeningFixture.h"

namespace Quillane {
namespace {

using WeighedLoad = Testing::OpeningTest;

TEST_F(WeighedLoad, CannotBeWeighedAgainByManualWeightEither) {
    Open(1031);
    screen->ChkManualWeight.SetValue(1);
    screen->TxtWeight.SetText("9000");
    EXPECT_FALSE(screen->CmdGrossWeight.Enabled());
    EXPECT_FALSE(screen->CmdTareWeight.Enabled());
    Testing::ScreenDriver(*screen).Click(screen->CmdGrossWeight).Click(screen->CmdTareWeight);
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "12540");
    EXPECT_EQ(screen->TxtTareWeight.Text(), "4320");
    EXPECT_EQ(screen->TxtNetWeight.Text(), "8203");
}

} // namespace
} // namespace Quillane
