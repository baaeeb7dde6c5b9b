#include "platform/report/ReportLayout.h"

#include "platform/report/ReportSamples.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

/// A caption and a value in one row, a row below, a box around both.
ReportSection Rows(std::string value) {
    ReportObject caption = TextObject("Party");
    ReportObject shown = TextObject(std::move(value));
    shown.Left = 3000;
    shown.CanGrow = true;
    ReportObject below = TextObject("Address");
    below.Top = 300;
    return {"Rows", 700, {BoxObject(6000, 650, 0), caption, shown, below}, {}};
}

TEST(SectionLayout, PlacesObjectsAtTheirPositions) {
    const PlacedSection placed = LaidOut(Rows("short"), Report(0), nullptr);
    EXPECT_EQ(placed.height, 700);
    ASSERT_EQ(placed.objects.size(), 4U);
    EXPECT_EQ(placed.objects[0].bounds, QRectF(0, 0, 6000, 650));
    EXPECT_EQ(placed.objects[2].bounds, QRectF(3000, 0, 3000, 300));
    EXPECT_EQ(placed.objects[3].bounds, QRectF(0, 300, 3000, 300));
}

TEST(SectionLayout, MovesDownTheObjectsBelowAGrownText) {
    const PlacedSection placed =
        LaidOut(Rows("Messrs. Abdul Rehman Muhammad Siddique and Sons, Commission Agents"),
                Report(0), nullptr);
    const double extra = placed.height - 700;
    ASSERT_GT(extra, 0);
    EXPECT_EQ(placed.objects[0].bounds.height(), 650 + extra);
    EXPECT_EQ(placed.objects[1].bounds.height(), 300 + extra);
    EXPECT_EQ(placed.objects[2].bounds.height(), 300 + extra);
    EXPECT_EQ(placed.objects[3].bounds, QRectF(0, 300 + extra, 3000, 300));
}

TEST(SectionLayout, CountsTwoTextsOfOneRowOnce) {
    ReportSection section = Rows("Messrs. Abdul Rehman Muhammad Siddique and Sons");
    const double alone = LaidOut(section, Report(0), nullptr).height;
    section.Objects.push_back(section.Objects[2]);
    EXPECT_EQ(LaidOut(section, Report(0), nullptr).height, alone);
}

ReportObject Suppressed(ReportObject object) {
    object.Suppress = [](const ReportContext&) { return true; };
    return object;
}

TEST(SectionLayout, OmitsSuppressedObjects) {
    ReportSection section = Rows("short");
    section.Objects[0] = Suppressed(section.Objects[0]);
    section.Objects[2] = Suppressed(section.Objects[2]);
    const PlacedSection placed = LaidOut(section, Report(0), nullptr);
    ASSERT_EQ(placed.objects.size(), 2U);
    EXPECT_EQ(placed.objects[0].object, &section.Objects[1]);
    // The caption in the same row keeps the height.
    EXPECT_EQ(placed.objects[1].bounds, QRectF(0, 300, 3000, 300));
    EXPECT_EQ(placed.height, 700);
}

TEST(SectionLayout, MovesUpIfAllTextsOfARowAreSuppressed) {
    ReportSection section = Rows("short");
    section.Objects[1] = Suppressed(section.Objects[1]);
    section.Objects[2] = Suppressed(section.Objects[2]);
    const PlacedSection placed = LaidOut(section, Report(0), nullptr);
    ASSERT_EQ(placed.objects.size(), 2U);
    EXPECT_EQ(placed.objects[0].bounds, QRectF(0, 0, 6000, 350));
    EXPECT_EQ(placed.objects[1].bounds, QRectF(0, 0, 3000, 300));
    EXPECT_EQ(placed.height, 400);
}

} // namespace
} // namespace Quillane
