#include "_Velmora/CatalogueCsv.h"

#include <gtest/gtest.h>

#include <utility>

#include "_Velmora/CatalogueCsvFields.h"
#include "support/CsvSheets.h"
#include "support/RecordSummary.h"

namespace {

using namespace CsvSheets;

std::vector<std::string> Described(const CatalogueCsvContent& content) {
    std::vector<std::string> texts;
    for (const CatalogueCsvProblem& problem : content.problems) texts.push_back(problem.Describe());
    return texts;
}

TEST(CatalogueCsvRead, FieldsComeFromTheirColumns) {
    const CatalogueCsvContent content = ReadCatalogueCsv(Canonical());
    ASSERT_EQ(Described(content), std::vector<std::string>{});
    ASSERT_EQ(content.materials.size(), 2u);
    EXPECT_EQ(Summary(content.materials[0]),
              "Beton vejčitý (Beton vejčitý) 'Vejčité stoky; š/v = 2/3' '' 2/1 k 0.3 -1/-1 mode 2 inner 'V ' '' "
              "shape 1 '0.3'\n"
              "20: 450 x 0, 300, '' ''");
    EXPECT_EQ(Summary(content.materials[1]),
              "PE100 SDR11 (PE100 SDR11) 'Voda, ČSN EN 12201-2' 'Generic' 3/12 k 0.01 3/4 mode 1 outer '' '' shape 0 "
              "'0.01'\n"
              "3: 16 x 2, 0, '' ''\n"
              "11: 90 x 10, 0, '801234567' 'ABC'\n"
              "22: 515.6 x 57.2, 0, '' ''");
}

TEST(CatalogueCsvRead, ColumnOrderCommasAndRowOrderAreFree) {
    const CatalogueCsvSheets spreadsheet{
        "Tvar,Průměr v popisu,Suffix,Prefix,Způsob popisu,SDr,Tl. třída,Drsnost [mm],Médium,Uložení,Výrobce,"
        "Podrobný popis,Název\n"
        "Kruh,Vnější průměr,,,D x t,SDr 11,PN 16,\"0,01\",Voda+Plyn,ZTI+Inženýrské sítě,Generic,"
        "\"Voda, ČSN EN 12201-2\",PE100 SDR11\n"
        "Vejce,Vnitřní průměr,,\"V \",Jiný,,,\"0,3\",Kanalizace,Inženýrské sítě,,\"Vejčité stoky; š/v = 2/3\","
        "Beton vejčitý\n",
        "DN;Materiál;Stěna [mm];ID / výška [mm];Šířka [mm];Kód URS materiál;Kód URS montáž\n"  // no OD column
        "DN 600;PE100 SDR11;57,2;515,6;;;\n"
        "DN 100;PE100 SDR11;10;90;;801234567;ABC\n"
        ";;;;;;\n"
        "DN 450;Beton vejčitý;0;450;300;;\n"
        "DN 15;PE100 SDR11; 2 ;16;;;\n"};
    const CatalogueCsvContent content = ReadCatalogueCsv(spreadsheet);
    ASSERT_EQ(Described(content), std::vector<std::string>{});

    std::vector<CsvMaterialRecord> materials = content.materials;
    ASSERT_EQ(materials.size(), 2u);
    EXPECT_EQ(materials[0].fields.uniqueName, u"PE100 SDR11");  // the sheet's order is kept
    std::swap(materials[0], materials[1]);
    const CatalogueCsvSheets written = WriteCatalogueCsv(materials);
    EXPECT_EQ(written.materials, Canonical().materials);
    EXPECT_EQ(written.profiles, Canonical().profiles);
}

TEST(CatalogueCsvRead, RowProblemsCarryTheirLineNumbers) {
    const CatalogueCsvContent content =
        ReadCatalogueCsv({Canonical().materials, Profiles("PE100 SDR11;DN 15;20;2;16;;;\n"
                                                          "PE100 SDR11;DN 20;25;2.3;20.4;;\n"
                                                          "PE100 SDR11;DN 25;32;3,0x;26;;;\n"
                                                          "PE100 SDR11;DN 110;110;10;90;;;\n"
                                                          "PE100 SDR11;DN 15;20;2;16;;;\n"
                                                          "PE-X;DN 15;20;2;16;;;\n"
                                                          "PE100 SDR11;DN 32;40;3.7;32;;;\n"
                                                          "PE100 SDR11;DN 40;;4.6;40.8;1.5;8012345678;\n"
        "PE100 SDR11\n"
                                                          "PE100 SDR11;DN 50\n")});
    EXPECT_EQ(Described(content),
              (std::vector<std::string>{
                  "profily.csv, řádek 3: Řádek má 7 sloupců, záhlaví 8 sloupců.",
                  "profily.csv, řádek 4: Neplatné číslo „3,0x“ ve sloupci „Stěna [mm]“.",
                  "profily.csv, řádek 5: Neznámá hodnota „DN 110“ ve sloupci „DN“; platné jsou: DN 8, DN 10, "
                  "DN 12, DN 15, DN 20, DN 25, DN 32, DN 40, DN 50, DN 65, DN 80, DN 100, DN 125, DN 150, DN 200, "
                  "DN 225, DN 250, DN 300, DN 350, DN 400, DN 450, DN 500, DN 600, DN 700, DN 800, DN 900, "
                  "DN 1000, DN 1200.",
                  "profily.csv, řádek 6: Materiál „PE100 SDR11“ už má profil „DN 15“ na řádku 2.",
                  "profily.csv, řádek 7: Materiál „PE-X“ není v listu materialy.csv.",
                  "profily.csv, řádek 8: OD 40 nesouhlasí s ID + 2 × stěna = 39.4.",
                  "profily.csv, řádek 9: Neplatné celé číslo „1.5“ ve sloupci „Šířka [mm]“.",
                  "profily.csv, řádek 9: Text „8012345678“ ve sloupci „Kód URS materiál“ je delší než 9 znaků.",
                  "profily.csv, řádek 10: Řádek má 1 sloupec, záhlaví 8 sloupců.",
                  "profily.csv, řádek 11: Řádek má 2 sloupce, záhlaví 8 sloupců.",
              }));
    ASSERT_EQ(content.materials.size(), 2u);
    EXPECT_EQ(content.materials[1].profiles.size(), 1u);  // only the sound row
}

TEST(CatalogueCsvRead, MaterialProblemsCarryTheirLineNumbers) {
    CatalogueCsvSheets sheets = Canonical();
    sheets.materials = Materials(
        "PE100 SDR11 pro pitnou vodu;;;ZTI;Voda;0.01;;;D x t;;;Vnější průměr;Kruh\n"
        "A;;Výrobce s velmi dlouhým jménem;ZTI;Voda;0.01;PN 20;SDr 26;DxT;HT-1;;vnější;Kruh\n"
        ";;;;Voda+;0.01;;;DN;;;Vnější průměr;Kruh\n"
        "A;;;Sítě;Voda;abc;;;DN;;;Vnější průměr;Koule\n");
    sheets.profiles = Profiles("");
    EXPECT_EQ(Described(ReadCatalogueCsv(sheets)),
              (std::vector<std::string>{
                  "materialy.csv, řádek 2: Text „PE100 SDR11 pro pitnou vodu“ ve sloupci „Název“ je delší než "
                  "20 znaků.",
                  "materialy.csv, řádek 3: Text „Výrobce s velmi dlouhým jménem“ ve sloupci „Výrobce“ je delší "
                  "než 25 znaků.",
                  "materialy.csv, řádek 3: Neznámá hodnota „PN 20“ ve sloupci „Tl. třída“; platné jsou: ---, "
                  "PN 6, PN 10, PN 16, PN 25, PN 40, PN 63.",
                  "materialy.csv, řádek 3: Neznámá hodnota „SDr 26“ ve sloupci „SDr“; platné jsou: ---, SDr 6, "
                  "SDr 7.4, SDr 9, SDr 11, SDr 13.6, SDr 17, SDr 17.6.",
                  "materialy.csv, řádek 3: Neznámá hodnota „DxT“ ve sloupci „Způsob popisu“; platné jsou: DN, "
                  "D x t, Jiný.",
                  "materialy.csv, řádek 3: Text „HT-1“ ve sloupci „Prefix“ je delší než 3 znaky.",
                  "materialy.csv, řádek 3: Neznámá hodnota „vnější“ ve sloupci „Průměr v popisu“; platné jsou: "
                  "Vnější průměr, Vnitřní průměr.",
                  "materialy.csv, řádek 4: Materiál nemá název.",
                  "materialy.csv, řádek 4: Neplatná hodnota „“ ve sloupci „Uložení“; platné jsou názvy ZTI, "
                  "Inženýrské sítě spojené znakem +.",
                  "materialy.csv, řádek 4: Neplatná hodnota „Voda+“ ve sloupci „Médium“; platné jsou názvy "
                  "Kanalizace, Kan. tlaková, Voda, Plyn, Teplovody/UT spojené znakem +.",
                  "materialy.csv, řádek 5: Neplatná hodnota „Sítě“ ve sloupci „Uložení“; platné jsou názvy ZTI, "
                  "Inženýrské sítě spojené znakem +.",
                  "materialy.csv, řádek 5: Neplatné číslo „abc“ ve sloupci „Drsnost [mm]“.",
                  "materialy.csv, řádek 5: Neznámá hodnota „Koule“ ve sloupci „Tvar“; platné jsou: Kruh, Vejce, "
                  "Vejce - Praha, Tlama, Obdélník.",
                  "materialy.csv, řádek 5: Materiál „A“ je už na řádku 3.",
              }));
}

TEST(CatalogueCsvRead, HeaderAndFileProblems) {
    CatalogueCsvSheets sheets{
        "Název;Popis;Název;Uložení;Médium;Drsnost [mm];Tl. třída;SDr;Způsob popisu;Prefix;Suffix;;Tvar\n"
        "PE;x;PE;ZTI;Voda;0.01;;;DN;;;;Kruh\n",
        ""};
    EXPECT_EQ(Described(ReadCatalogueCsv(sheets)), (std::vector<std::string>{
                                                       "materialy.csv, řádek 1: Neznámý sloupec „Popis“.",
                                                       "materialy.csv, řádek 1: Sloupec „Název“ je v záhlaví dvakrát.",
                                                       "materialy.csv, řádek 1: Sloupec č. 12 nemá v záhlaví název.",
                                                       "materialy.csv, řádek 1: Chybí sloupec „Podrobný popis“.",
                                                       "materialy.csv, řádek 1: Chybí sloupec „Výrobce“.",
                                                       "materialy.csv, řádek 1: Chybí sloupec „Průměr v popisu“.",
                                                       "profily.csv, řádek 1: List je prázdný, chybí řádek záhlaví.",
                                                   }));

    sheets = Canonical();
    sheets.profiles += "PE100 SDR11;DN 20;25;2.3;20.4;;\"ABC;\n";
    sheets.materials += "Cp1250 \xE8\xED\x9A;;;ZTI;Voda;0.01;;;DN;;;Vnější průměr;Kruh\n";
    EXPECT_EQ(Described(ReadCatalogueCsv(sheets)),
              (std::vector<std::string>{
                  "materialy.csv, řádek 4: Text není v kódování UTF-8 (uložte list jako CSV v UTF-8).",
                  "profily.csv, řádek 6: Uvozovky otevřené na tomto řádku nejsou uzavřeny.",
              }));

    sheets.profiles = "Materi\xE1l;DN;St\xECna [mm];ID / v\xFD\x9Aka [mm]\n";  // Windows-1250
    EXPECT_EQ(Described(ReadCatalogueCsv(sheets)).back(),
              "profily.csv, řádek 1: Text není v kódování UTF-8 (uložte list jako CSV v UTF-8).");
}

TEST(CatalogueCsvWrite, RefusesValuesTheSheetsCannotName) {
    using Change = void (*)(CsvMaterialRecord&);
    const struct {
        Change change;
        const char* refusal;
    } cases[] = {
        {[](CsvMaterialRecord&) {}, "<written>"},
        {[](CsvMaterialRecord& r) { r.fields.descriptionMode = DescriptionMode(7); },
         "Materiál „PE100 SDR11“: hodnotu 7 nelze zapsat do sloupce „Způsob popisu“, není v tabulce programu."},
        {[](CsvMaterialRecord& r) { r.fields.medium = kMediumWater | 64; },
         "Materiál „PE100 SDR11“: hodnotu 68 nelze zapsat do sloupce „Médium“, není v tabulce programu."},
        {[](CsvMaterialRecord& r) { r.profiles[0].dnIndex = 28; },
         "Materiál „PE100 SDR11“: hodnotu 28 nelze zapsat do sloupce „DN“, není v tabulce programu."},
        {[](CsvMaterialRecord& r) { r.fields.pnIndex = 7; },
         "Materiál „PE100 SDR11“: hodnotu 7 nelze zapsat do sloupce „Tl. třída“, není v tabulce programu."},
    };
    for (const auto& [change, refusal] : cases) {
        CsvMaterialRecord material = ReadCatalogueCsv(Canonical()).materials[1];
        change(material);
        std::string what = "<written>";
        try {
            WriteCatalogueCsv({material});
        } catch (const CatalogueCsvExportError& error) {
            what = error.what();
        }
        EXPECT_EQ(what, refusal);
    }
}

TEST(CatalogueCsvFields, NumbersAreShortestAndExact) {
    EXPECT_EQ(FormatCsvNumber(0.01f), "0.01");
    EXPECT_EQ(FormatCsvNumber(110.0f), "110");
    EXPECT_EQ(FormatCsvNumber(0.00001f), "0.00001");
    EXPECT_EQ(FormatCsvNumber(90.0f - 2.0f * 8.2f), "73.6");
    for (float value : {0.01f, 73.6f, 515.6f, 1.0f / 3.0f, 3.4e38f, 1e-30f, -2.5f}) {
        EXPECT_EQ(ParseCsvNumber(FormatCsvNumber(value)), value);
    }
    EXPECT_EQ(ParseCsvNumber("  8,2 "), 8.2f);
    EXPECT_EQ(ParseCsvNumber("+3"), 3.0f);
    for (std::string_view bad : {"", "1.2.3", "abc", "inf", "nan", "1e40", "8 2", "--1"}) {
        EXPECT_EQ(ParseCsvNumber(bad), std::nullopt) << bad;
    }
    EXPECT_EQ(ParseCsvWholeNumber("-300"), -300);
    EXPECT_EQ(ParseCsvWholeNumber("3000000000"), std::nullopt);
}

TEST(CatalogueCsvFields, FlagSetsJoinNamesInBitOrder) {
    EXPECT_EQ(ParseFlagSet(u"Plyn+Voda", CsvFieldNames::Medium()), kMediumWater | kMediumGas);
    EXPECT_EQ(FormatFlagSet(kMediumGas | kMediumWater, CsvFieldNames::Medium()), u"Voda+Plyn");
    EXPECT_EQ(FormatFlagSet(kMediumAll, CsvFieldNames::Medium()), u"Kanalizace+Kan. tlaková+Voda+Plyn+Teplovody/UT");
    EXPECT_EQ(ParseFlagSet(u"Voda+voda", CsvFieldNames::Medium()), std::nullopt);
    EXPECT_EQ(FormatFlagSet(0, CsvFieldNames::Placement()), std::nullopt);
    EXPECT_EQ(FormatFlagSet(-1, CsvFieldNames::Placement()), std::nullopt);
}

}  // namespace
