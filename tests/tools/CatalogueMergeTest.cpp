#include <gtest/gtest.h>

#include "ToolTestSupport.h"
#include "support/CsvSheets.h"

namespace {

using namespace CsvSheets;

constexpr std::string_view kPeTarget =
    "PE100 SDR11;ČSN EN 12201-2;;Inženýrské sítě;Voda;0.01;PN 16;SDr 11;D x t;;;Vnější průměr;Kruh\n";
constexpr std::string_view kPeSource =
    "PE100 SDR11;Jiný popis;;Inženýrské sítě;Voda;0.02;PN 10;SDr 11;D x t;;;Vnější průměr;Kruh\n";
constexpr std::string_view kPvc = "PVC-U KG SN4;ČSN EN 1401-1;;ZTI;Kanalizace;0.01;;;D x t;;;Vnější průměr;Kruh\n";

// The target holds the egg section and PE; the source holds the same egg section, a PE that
// differs (description, roughness, PN, the wall of DN 100, an extra DN 150) and a new PVC.
class ToolMerge : public ToolTest {
protected:
    void SetUp() override {
        ToolTest::SetUp();
        MakeCatalogue("target", std::string(kEgg) + std::string(kPeTarget),
                      std::string(kEggProfile) + "PE100 SDR11;DN 100;110;10;90;;801234567;\n");
        MakeCatalogue("source", std::string(kEgg) + std::string(kPeSource) + std::string(kPvc),
                      std::string(kEggProfile) +
                          "PE100 SDR11;DN 100;110;6.6;96.8;;;\n"
                          "PE100 SDR11;DN 150;160;14.6;130.8;;;\n"
                          "PVC-U KG SN4;DN 100;110;3.2;103.6;;;\n");
    }

    void MakeCatalogue(const std::string& name, const std::string& materials, const std::string& profiles) {
        std::filesystem::create_directories(folder / name);
        WriteBytes(name + "/materialy.csv", Materials(materials));
        WriteBytes(name + "/profily.csv", Profiles(profiles));
        ASSERT_EQ(Run({"csv2qxp", In(name), In(name + ".qxp")}), kExitDone) << err.str();
    }

    // The catalogue as its two sheets, without the byte order marks.
    std::pair<std::string, std::string> Sheets(const std::string& catalogue) {
        EXPECT_EQ(Run({"qxp2csv", In(catalogue), In("sheets")}), kExitDone) << err.str();
        return {ReadBytes(folder / "sheets/materialy.csv").substr(3),
                ReadBytes(folder / "sheets/profily.csv").substr(3)};
    }
};

// Whatever the answer, the existing PE keeps its DN 100 and gains the missing DN 150; "yes" takes
// the incoming fields in place, "no" keeps them. --output leaves the target alone.
TEST_F(ToolMerge, AnswerDecidesTheFieldsAndMissingProfilesAreAlwaysAdded) {
    const std::string target = ReadBytes(folder / "target.qxp");
    for (const bool yes : {false, true}) {
        SCOPED_TRACE(yes);
        const std::string output = yes ? "yes.qxp" : "no.qxp";
        ASSERT_EQ(Run({"merge", In("target.qxp"), In("source.qxp"), yes ? "--overwrite=yes" : "--overwrite=no",
                       "--output=" + In(output)}),
                  kExitDone)
            << err.str();
        EXPECT_EQ(out.str(), std::string(yes ? "Přepsán" : "Ponechán") + " materiál „PE100 SDR11“.\nZapsán katalog „" +
                                 In(output) + "“: materiálů 3, profilů 4 (nových materiálů 1, přepsaných " +
                                 (yes ? "1, ponechaných 0).\n" : "0, ponechaných 1).\n"));
        const auto [materials, profiles] = Sheets(output);
        EXPECT_EQ(materials, Materials(std::string(kEgg) + std::string(yes ? kPeSource : kPeTarget) + std::string(kPvc)));
        EXPECT_EQ(profiles, Profiles(std::string(kEggProfile) +
                                     "PE100 SDR11;DN 100;110;10;90;;801234567;\n"
                                     "PE100 SDR11;DN 150;160;14.6;130.8;;;\n"
                                     "PVC-U KG SN4;DN 100;110;3.2;103.6;;;\n"));
    }
    EXPECT_EQ(ReadBytes(folder / "target.qxp"), target);

    ASSERT_EQ(Run({"merge", In("target.qxp"), In("source.qxp"), "--overwrite=yes"}), kExitDone) << err.str();
    EXPECT_EQ(ReadBytes(folder / "target.qxp"), ReadBytes(folder / "yes.qxp"));  // without --output: in place
}

TEST_F(ToolMerge, NeedsAnAnswerAndLeavesTheTargetOnABadSource) {
    const std::string target = ReadBytes(folder / "target.qxp");
    EXPECT_EQ(Run({"merge", In("target.qxp"), In("source.qxp")}), kExitBadUsage);
    EXPECT_EQ(err.str(),
              "velmora-katalog: merge potřebuje volbu --overwrite=yes nebo --overwrite=no.\n"
              "Nápověda: velmora-katalog --help\n");
    EXPECT_EQ(Run({"merge", In("target.qxp"), In("source.qxp"), "--overwrite=maybe"}), kExitBadUsage);

    WriteBytes("cut.qxp", ReadBytes(folder / "source.qxp").substr(0, 40));
    EXPECT_EQ(Run({"merge", In("target.qxp"), In("cut.qxp"), "--overwrite=yes"}), kExitBadInput);
    EXPECT_NE(err.str().find("nelze načíst: soubor končí uprostřed záznamu"), std::string::npos) << err.str();
    EXPECT_EQ(ReadBytes(folder / "target.qxp"), target);
}

}  // namespace
