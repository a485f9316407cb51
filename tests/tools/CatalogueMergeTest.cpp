#include <gtest/gtest.h>

#include "ToolTestSupport.h"

namespace {

constexpr std::string_view kMaterialsHeader =
    "Název;Podrobný popis;Výrobce;Uložení;Médium;Drsnost [mm];Tl. třída;SDr;Způsob popisu;Prefix;Suffix;"
    "Průměr v popisu;Tvar\n";
constexpr std::string_view kProfilesHeader =
    "Materiál;DN;OD [mm];Stěna [mm];ID / výška [mm];Šířka [mm];Kód URS materiál;Kód URS montáž\n";
constexpr std::string_view kEgg =
    "Beton vejčitý;Vejčité stoky;;Inženýrské sítě;Kanalizace;0.3;;;Jiný;\"V \";;Vnitřní průměr;Vejce\n";
constexpr std::string_view kEggProfile = "Beton vejčitý;DN 450;450;0;450;300;;\n";

// The target holds the egg section and PE; the source holds the same egg section, a PE that
// differs (description, roughness, PN, the wall of DN 100, an extra DN 150) and a new PVC.
class ToolMerge : public ToolTest {
protected:
    void SetUp() override {
        ToolTest::SetUp();
        MakeCatalogue("target",
                      std::string(kEgg) +
                          "PE100 SDR11;ČSN EN 12201-2;;Inženýrské sítě;Voda;0.01;PN 16;SDr 11;D x t;;;"
                          "Vnější průměr;Kruh\n",
                      std::string(kEggProfile) + "PE100 SDR11;DN 100;110;10;90;;801234567;\n");
        MakeCatalogue("source",
                      std::string(kEgg) +
                          "PE100 SDR11;Jiný popis;;Inženýrské sítě;Voda;0.02;PN 10;SDr 11;D x t;;;"
                          "Vnější průměr;Kruh\n"
                          "PVC-U KG SN4;ČSN EN 1401-1;;ZTI;Kanalizace;0.01;;;D x t;;;Vnější průměr;Kruh\n",
                      std::string(kEggProfile) +
                          "PE100 SDR11;DN 100;110;6.6;96.8;;;\n"
                          "PE100 SDR11;DN 150;160;14.6;130.8;;;\n"
                          "PVC-U KG SN4;DN 100;110;3.2;103.6;;;\n");
    }

    void MakeCatalogue(const std::string& name, const std::string& materials, const std::string& profiles) {
        std::filesystem::create_directories(folder / name);
        WriteBytes(name + "/materialy.csv", std::string(kMaterialsHeader) + materials);
        WriteBytes(name + "/profily.csv", std::string(kProfilesHeader) + profiles);
        ASSERT_EQ(Run({"csv2qxp", In(name), In(name + ".qxp")}), kExitDone) << err.str();
    }

    // The catalogue as its two sheets, without the byte order marks.
    std::pair<std::string, std::string> Sheets(const std::string& catalogue) {
        EXPECT_EQ(Run({"qxp2csv", In(catalogue), In("sheets")}), kExitDone) << err.str();
        return {ReadBytes(folder / "sheets/materialy.csv").substr(3),
                ReadBytes(folder / "sheets/profily.csv").substr(3)};
    }
};

// Whatever the answer, the existing PE keeps its DN 100 and gains the missing DN 150.
constexpr std::string_view kMergedProfiles =
    "Beton vejčitý;DN 450;450;0;450;300;;\n"
    "PE100 SDR11;DN 100;110;10;90;;801234567;\n"
    "PE100 SDR11;DN 150;160;14.6;130.8;;;\n"
    "PVC-U KG SN4;DN 100;110;3.2;103.6;;;\n";
constexpr std::string_view kPvc = "PVC-U KG SN4;ČSN EN 1401-1;;ZTI;Kanalizace;0.01;;;D x t;;;Vnější průměr;Kruh\n";

TEST_F(ToolMerge, NoKeepsTheFieldsButAddsMissingProfiles) {
    const std::string target = ReadBytes(folder / "target.qxp");
    ASSERT_EQ(Run({"merge", In("target.qxp"), In("source.qxp"), "--overwrite=no", "--output=" + In("out.qxp")}),
              kExitDone)
        << err.str();
    EXPECT_EQ(out.str(), "Ponechán materiál „PE100 SDR11“.\nZapsán katalog „" + In("out.qxp") +
                             "“: materiálů 3, profilů 4 (nových materiálů 1, přepsaných 0, ponechaných 1).\n");
    EXPECT_EQ(ReadBytes(folder / "target.qxp"), target);  // --output leaves the target alone

    const auto [materials, profiles] = Sheets("out.qxp");
    EXPECT_EQ(materials, std::string(kMaterialsHeader) + std::string(kEgg) +
                             "PE100 SDR11;ČSN EN 12201-2;;Inženýrské sítě;Voda;0.01;PN 16;SDr 11;D x t;;;"
                             "Vnější průměr;Kruh\n" +
                             std::string(kPvc));
    EXPECT_EQ(profiles, std::string(kProfilesHeader) + std::string(kMergedProfiles));
}

TEST_F(ToolMerge, YesTakesTheIncomingFieldsInPlace) {
    ASSERT_EQ(Run({"merge", In("target.qxp"), In("source.qxp"), "--overwrite=yes"}), kExitDone) << err.str();
    EXPECT_EQ(out.str(), "Přepsán materiál „PE100 SDR11“.\nZapsán katalog „" + In("target.qxp") +
                             "“: materiálů 3, profilů 4 (nových materiálů 1, přepsaných 1, ponechaných 0).\n");

    const auto [materials, profiles] = Sheets("target.qxp");
    EXPECT_EQ(materials, std::string(kMaterialsHeader) + std::string(kEgg) +
                             "PE100 SDR11;Jiný popis;;Inženýrské sítě;Voda;0.02;PN 10;SDr 11;D x t;;;"
                             "Vnější průměr;Kruh\n" +
                             std::string(kPvc));
    EXPECT_EQ(profiles, std::string(kProfilesHeader) + std::string(kMergedProfiles));
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
