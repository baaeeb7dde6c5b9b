#include "slip/SlipFilling.h"

#include "slip/CrpCottonWeighment.h"
#include "slip/SlipDatabase.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

TEST(SlipFilling, FillsTheSevenParametersByPosition) {
    SlipDatabase database;
    const auto rows = database.RowsOf(1042);
    CrpCottonWeighment slip;
    FillSlip(slip, SampleContent(rows));
    const char* const shown[] = {"QUILLANE FLOUR MILLS",
                                 "Plot 7, Industrial Estate, Sargodha Road, Faisalabad",
                                 "PhoneNo: 041-555 0182",
                                 "Email: gate@quillane.example",
                                 "202-20",
                                 "12437",
                                 "8100"};
    for (int position = 1; position <= 7; ++position)
        EXPECT_EQ(slip.ParameterFields(position).Shown(), shown[position - 1]);
    EXPECT_EQ(std::get<double>(slip.ParameterFields(6).Value()), 12437);
    EXPECT_EQ(std::get<double>(slip.ParameterFields(7).Value()), 8100);
    EXPECT_EQ(slip.Title, "Quillane Slip");
    EXPECT_EQ(slip.UserName, "ali");
    EXPECT_EQ(slip.Database.Data(), rows);
    EXPECT_EQ(slip.Database.DataTag(), 3);
    EXPECT_EQ(slip.SelectedPrinter().Driver, "Dummy Driver");
    EXPECT_EQ(slip.SelectedPrinter().Printer, "Ding Dong");
    EXPECT_EQ(slip.SelectedPrinter().Port, "LPT1");
    EXPECT_EQ(slip.PaperOrientation, 1);
}

TEST(SlipFilling, FillsAllParametersWithoutCompanyDetails) {
    CrpCottonWeighment slip;
    FillSlip(slip, {});
    EXPECT_EQ(slip.ParameterFields(3).Shown(), "PhoneNo: ");
    EXPECT_EQ(slip.ParameterFields(4).Shown(), "Email: ");
    EXPECT_EQ(std::get<double>(slip.ParameterFields(6).Value()), 0);
    EXPECT_EQ(std::get<double>(slip.ParameterFields(7).Value()), 0);
}

TEST(SlipFilling, DetectsACaptionWithoutAValue) {
    for (const char* alone : {"PhoneNo: ", "Email: ", "PhoneNo:", "Email:   "})
        EXPECT_TRUE(IsCaptionAlone(alone)) << alone;
    for (const char* whole : {"PhoneNo: 0", "Email: a@b", ""})
        EXPECT_FALSE(IsCaptionAlone(whole)) << whole;
}

} // namespace
} // namespace Quillane
