#include <gtest/gtest.h>

#include "ToolTestSupport.h"
#include "support/ArchiveBytes.h"
#include "support/CatalogueFixtures.h"
#include "support/CsvSheets.h"

namespace {

using namespace CsvSheets;

class CatalogueTool : public ToolTest {
protected:
    // The sheets above in the folder "csv", converted to "pe.qxp".
    void MakeCatalogue() {
        std::filesystem::create_directories(folder / "csv");
        WriteBytes("csv/materialy.csv", Canonical().materials);
        WriteBytes("csv/profily.csv", Canonical().profiles);
        ASSERT_EQ(Run({"csv2qxp", In("csv"), In("pe.qxp")}), kExitDone) << err.str();
    }
};

TEST_F(CatalogueTool, HelpNamesEveryCommandAndBadUsageExitsWithTwo) {
    EXPECT_EQ(Run({"--help"}), kExitDone);
    for (const char* command : {"csv2qxp", "qxp2csv", "print", "validate", "merge", "--overwrite=yes|no"}) {
        EXPECT_NE(out.str().find(command), std::string::npos) << command;
    }
    EXPECT_EQ(Run({}), kExitBadUsage);
    EXPECT_NE(err.str().find("Použití:"), std::string::npos);

    EXPECT_EQ(Run({"convert", "a"}), kExitBadUsage);
    EXPECT_EQ(err.str(), "velmora-katalog: neznámý příkaz convert.\nNápověda: velmora-katalog --help\n");
    EXPECT_EQ(Run({"csv2qxp", "data"}), kExitBadUsage);
    EXPECT_EQ(err.str(),
              "velmora-katalog: příkaz csv2qxp se píše: velmora-katalog csv2qxp <složka CSV> <katalog.qxp>\n"
              "Nápověda: velmora-katalog --help\n");
    EXPECT_EQ(Run({"print", "a.qxp", "--overwrite=yes"}), kExitBadUsage);
    EXPECT_EQ(err.str(),
              "velmora-katalog: neznámá volba --overwrite=yes příkazu print.\n"
              "Nápověda: velmora-katalog --help\n");
}

TEST_F(CatalogueTool, ConvertsBothWaysWithoutLoss) {
    MakeCatalogue();
    EXPECT_EQ(out.str(), "Zapsán katalog „" + In("pe.qxp") + "“: materiálů 2, profilů 4.\n");
    const std::string catalogue = ReadBytes(folder / "pe.qxp");
    EXPECT_EQ(catalogue.substr(0, 2), "\x03\x05");  // list version 3, material version 5

    ASSERT_EQ(Run({"qxp2csv", In("pe.qxp"), In("back")}), kExitDone) << err.str();
    EXPECT_EQ(ReadBytes(folder / "back/materialy.csv"), Canonical().materials);
    EXPECT_EQ(ReadBytes(folder / "back/profily.csv"), Canonical().profiles);

    ASSERT_EQ(Run({"csv2qxp", In("back"), In("again.qxp")}), kExitDone) << err.str();
    EXPECT_EQ(ReadBytes(folder / "again.qxp"), catalogue);
    EXPECT_FALSE(std::filesystem::exists(folder / "again.qxp.tmp"));
}

TEST_F(CatalogueTool, BadSheetsNameEveryLineAndWriteNothing) {
    MakeCatalogue();
    const std::string before = ReadBytes(folder / "pe.qxp");
    WriteBytes("csv/materialy.csv",
               Canonical().materials + "PE100 SDR11 pro pitnou vodu;;;ZTI;Voda;0.01;;;D x t;;;Vnější průměr;Kruh\n");
    WriteBytes("csv/profily.csv", Canonical().profiles + "PE100 SDR11;DN 65;75;6.8\n");
    EXPECT_EQ(Run({"csv2qxp", In("csv"), In("pe.qxp")}), kExitBadInput);
    EXPECT_EQ(err.str(), "velmora-katalog: chyby v listech ve složce „" + In("csv") +
                             "“:\n"
                             "  materialy.csv, řádek 4: Text „PE100 SDR11 pro pitnou vodu“ ve sloupci „Název“ je delší "
                             "než 20 znaků.\n"
                             "  profily.csv, řádek 6: Řádek má 4 sloupce, záhlaví 8 sloupců.\n"
                             "velmora-katalog: Listy ve složce „" +
                             In("csv") + "“ nelze převést, počet chyb: 2. Katalog „" + In("pe.qxp") +
                             "“ nebyl zapsán.\n");
    EXPECT_EQ(ReadBytes(folder / "pe.qxp"), before);
    EXPECT_FALSE(std::filesystem::exists(folder / "pe.qxp.tmp"));

    EXPECT_EQ(Run({"validate", In("csv")}), kExitBadInput);
    EXPECT_EQ(Run({"csv2qxp", In("missing"), In("new.qxp")}), kExitBadInput);
    EXPECT_FALSE(std::filesystem::exists(folder / "new.qxp"));

    // Sound sheets whose sizes no label can show.
    WriteBytes("csv/materialy.csv", Canonical().materials);
    WriteBytes("csv/profily.csv", Canonical().profiles + "PE100 SDR11;DN 150;;10;1000000000000;;;\n");
    EXPECT_EQ(Run({"csv2qxp", In("csv"), In("new.qxp")}), kExitBadInput);
    EXPECT_EQ(err.str(),
              "velmora-katalog: Materiál „PE100 SDR11“ ve složce „" + In("csv") +
                  "“ nelze převést: Nepodařilo se vytvořit popis, Line 36, _Spolecny\\_Velmora\\CQvxMaterial. "
                  "Katalog „" +
                  In("new.qxp") + "“ nebyl zapsán.\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "new.qxp"));
}

TEST_F(CatalogueTool, ValidateReportsTheByteOfAMalformedCatalogue) {
    MakeCatalogue();
    const std::string good = ReadBytes(folder / "pe.qxp");
    EXPECT_EQ(Run({"validate", In("pe.qxp")}), kExitDone);
    EXPECT_EQ(out.str(), "Soubor „" + In("pe.qxp") + "“ je v pořádku: materiálů 2, profilů 4.\n");

    WriteBytes("cut.qxp", good.substr(0, 30));
    EXPECT_EQ(Run({"validate", In("cut.qxp")}), kExitBadInput);
    EXPECT_EQ(err.str().find("velmora-katalog: Soubor „" + In("cut.qxp") +
                             "“ nelze načíst: soubor končí uprostřed záznamu (bajt "),
              0u)
        << err.str();

    WriteBytes("newer.qxp", "\x04" + good.substr(1));
    EXPECT_EQ(Run({"validate", In("newer.qxp")}), kExitBadInput);
    EXPECT_EQ(err.str(), "velmora-katalog: Soubor „" + In("newer.qxp") +
                             "“ nelze načíst: Nelze načíst, soubor byl uložen vyšší verzí programu, aktualizujte "
                             "program, Line 257, _Spolecny\\_Velmora\\CQvxSezMaterialu (bajt 0, 0x0).\n");

    WriteBytes("tail.qxp", good + "abc");
    EXPECT_EQ(Run({"validate", In("tail.qxp")}), kExitBadInput);
    EXPECT_EQ(err.str(), "velmora-katalog: Soubor „" + In("tail.qxp") +
                             "“ má za koncem katalogu přebytečné bajty (počet 3, od bajtu " +
                             std::to_string(good.size()) + ").\n");

    // One material "PE" holding the profile of DN index 11 twice: the second is refused where it ends.
    using namespace CatalogueFixtures;
    const Bytes twice = Hex(std::string("03 ") + kPeHeader + kPeProfile + kPeProfile + "FF FF");
    WriteBytes("twice.qxp", std::string(twice.begin(), twice.end()));
    EXPECT_EQ(Run({"validate", In("twice.qxp")}), kExitBadInput);
    EXPECT_EQ(err.str(), "velmora-katalog: Soubor „" + In("twice.qxp") +
                             "“ nelze načíst: Nelze vložit nový profil, Line 411, _Spolecny\\_Velmora\\CQvxMaterial "
                             "(bajt 74, 0x4A).\n");

    EXPECT_EQ(Run({"print", In("nothing.qxp")}), kExitBadInput);
    EXPECT_EQ(err.str(), "velmora-katalog: Soubor „" + In("nothing.qxp") + "“ nelze přečíst.\n");
}

TEST_F(CatalogueTool, PrintShowsFieldsAndProfileLabels) {
    MakeCatalogue();
    ASSERT_EQ(Run({"print", In("pe.qxp")}), kExitDone) << err.str();
    const std::string text = out.str();
    EXPECT_EQ(text.find(In("pe.qxp") + ": materiálů 2, profilů 4\n"), 0u);
    EXPECT_NE(text.find("\nPE100 SDR11\n  Podrobný popis: Voda, ČSN EN 12201-2\n"), std::string::npos);
    EXPECT_NE(text.find("  Drsnost: 0.01 mm | Tl. třída: PN 16 | SDr: SDr 11\n"), std::string::npos);
    EXPECT_NE(text.find("  110x10.0      DN 100       110.0   10.00     90.0         801234567    ABC\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("  Popis profilů: Jiný („V “ + vnitřní průměr + „“) | Tvar: Vejce\n"), std::string::npos);
    EXPECT_NE(text.find("  V 450         DN 450       450.0    0.00    450.0    300\n"), std::string::npos) << text;
}

TEST_F(CatalogueTool, QxpToCsvRefusesValuesTheSheetsCannotHold) {
    MakeCatalogue();
    std::string odd = ReadBytes(folder / "pe.qxp");
    ASSERT_EQ(odd[2], '\x02');  // the description mode of the first material ("Jiný")
    odd[2] = '\x07';
    WriteBytes("odd.qxp", odd);
    EXPECT_EQ(Run({"qxp2csv", In("odd.qxp"), In("odd")}), kExitBadInput);
    EXPECT_EQ(err.str(),
              "velmora-katalog: Materiál „Beton vejčitý“: hodnotu 7 nelze zapsat do sloupce „Způsob popisu“, "
              "není v tabulce programu. Listy nebyly zapsány.\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "odd"));
}

}  // namespace
