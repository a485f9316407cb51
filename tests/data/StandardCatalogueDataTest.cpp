#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "_Velmora/CatalogueCsv.h"
#include "_Velmora/MaterialTables.h"

// The standard catalogue's source sheets in data/. That they are in the form the tool writes is
// checked by the round trip of the catalogue the build makes from them.
namespace {

std::string ReadDataFile(std::string_view name) {
    std::ifstream file(std::string(VELMORA_DATA_DIR) + "/" + std::string(name), std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

class StandardCatalogueData : public ::testing::Test {
protected:
    void SetUp() override {
        sheets = {ReadDataFile(kMaterialsSheetName), ReadDataFile(kProfilesSheetName)};
        ASSERT_FALSE(sheets.materials.empty());
        ASSERT_FALSE(sheets.profiles.empty());
        content = ReadCatalogueCsv(sheets);
        for (const CatalogueCsvProblem& problem : content.problems) ADD_FAILURE() << problem.Describe();
    }

    CatalogueCsvSheets sheets;
    CatalogueCsvContent content;
};

TEST_F(StandardCatalogueData, CoversEveryMediumAndPlacementWithEnoughSizes) {
    std::size_t profiles = 0;
    int32_t media = 0;
    int32_t placements = 0;
    for (const CsvMaterialRecord& material : content.materials) {
        profiles += material.profiles.size();
        media |= material.fields.medium;
        placements |= material.fields.placement;
        EXPECT_FALSE(material.fields.description.empty()) << "the description cites the standard";
    }
    EXPECT_GE(content.materials.size(), 30u);
    EXPECT_GE(profiles, 300u);
    EXPECT_EQ(media, kMediumAll);
    EXPECT_EQ(placements, kPlacementAll);
}

// Profiles labelled by DN, or by their inner diameter, lie within the band of the neighbouring
// sizes that the editor enforces when a diameter is typed: a profile outside it sits on a wrong row.
TEST_F(StandardCatalogueData, DiametersFitTheirDnRow) {
    for (const CsvMaterialRecord& material : content.materials) {
        const bool labelledByInnerSize =
            material.fields.descriptionMode == DescriptionMode::Dn ||
            (material.fields.descriptionMode == DescriptionMode::Custom && material.fields.onInnerDiameter);
        if (!labelledByInnerSize) continue;
        for (const CsvProfileRecord& profile : material.profiles) {
            const int i = profile.dnIndex;
            if (i < 2 || i > 26) continue;
            EXPECT_GT(profile.innerDiameter, 0.9f * DnTable()[std::size_t(i - 1)].value);
            EXPECT_LT(profile.innerDiameter, 1.1f * DnTable()[std::size_t(i + 1)].value);
        }
    }
}

}  // namespace
