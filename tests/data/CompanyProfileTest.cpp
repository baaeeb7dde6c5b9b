#include "data/CompanyProfile.h"

#include "station/SampleDatabase.h"

#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

TEST(MoundKgsText, HasWholeMoundsAndTheRest) {
    struct Case {
        double weight, kgsPerMound;
        const char* text;
    };
    constexpr Case cases[] = {
        {8100, 40, "202-20"}, {8203, 40, "205-3"},      {0, 40, "0-0"},     {39, 40, "0-39"},
        {40, 40, "1-0"},      {-40, 40, "-1-0"},        {-39, 40, "-0-39"}, {-8100, 40, "-202-20"},
        {0.5, 40, "0-0"},     {1.5, 40, "0-2"},         {2.5, 40, "0-2"},   {39.5, 40, "1-0"},
        {-0.4, 40, "0-0"},    {999999, 40, "24999-39"}, {75, 37.6, "1-37"}, {113, 37.7, "3-0"},
        {100, 50, "2-0"},
    };
    for (const Case& each : cases)
        EXPECT_EQ(CompanyProfileObject().MoundKgsText(each.weight, each.kgsPerMound), each.text)
            << each.weight << " by " << each.kgsPerMound;
}

TEST(MoundKgsText, MoundOfZeroKilogramsFails) {
    EXPECT_THROW(CompanyProfileObject().MoundKgsText(100, 0), Failure);
}

TEST(CompanyProfile, LoadReadsAllTexts) {
    SampleDatabase database;
    CompanyProfileObject profile;
    profile.SetConnection(database.connection);
    profile.Load();
    EXPECT_EQ(profile.CompanyTitle(), "Veltrane Flour Mills");
    EXPECT_EQ(profile.CompanyAddress(), "14 Canal Road, Okara");
    EXPECT_EQ(profile.CompanyPhone(), "044 555 0147");
    EXPECT_EQ(profile.CompanyEmail(), "gate@veltrane.example");
}

TEST(CompanyProfile, MissingOrNullTextIsEmpty) {
    SampleDatabase database;
    CompanyProfileObject profile;
    profile.SetConnection(database.connection);
    profile.Load();
    database.connection.Execute("Delete From Project_Registry Where registrykey = 'CompanyName'");
    database.connection.Execute(
        "Update Project_Registry Set value = Null Where registrykey = 'companyphone'");
    profile.Load();
    EXPECT_EQ(profile.CompanyTitle(), "");
    EXPECT_EQ(profile.CompanyPhone(), "");
    EXPECT_EQ(profile.CompanyAddress(), "14 Canal Road, Okara");
}

TEST(CompanyProfile, LoadWithoutAConnectionFails) {
    EXPECT_THROW(CompanyProfileObject().Load(), Failure);
}

} // namespace
} // namespace Quillane
