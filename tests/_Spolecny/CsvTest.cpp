#include "Csv.h"

#include <gtest/gtest.h>

namespace {

using Fields = std::vector<std::string>;

TEST(CsvParse, QuotedFieldsKeepSeparatorsQuotesAndLineBreaks) {
    const CsvDocument document = ParseCsv("a;\"b;c\";\"say \"\"hi\"\"\"\n\"two\nlines\";x\r\nlast;\n");
    ASSERT_FALSE(document.error);
    EXPECT_EQ(document.separator, ';');
    ASSERT_EQ(document.records.size(), 3u);
    EXPECT_EQ(document.records[0].fields, (Fields{"a", "b;c", "say \"hi\""}));
    EXPECT_EQ(document.records[1].fields, (Fields{"two\nlines", "x"}));
    EXPECT_EQ(document.records[1].line, 2u);
    EXPECT_EQ(document.records[2].line, 4u);  // the quoted line break counts
    EXPECT_EQ(document.records[2].fields, (Fields{"last", ""}));
}

TEST(CsvParse, SeparatorComesFromTheHeaderAndTheByteOrderMarkIsSkipped) {
    const CsvDocument comma = ParseCsv("\xEF\xBB\xBFName,\"x;y\"\r1;5,2\r");
    EXPECT_EQ(comma.separator, ',');
    ASSERT_EQ(comma.records.size(), 2u);
    EXPECT_EQ(comma.records[0].fields, (Fields{"Name", "x;y"}));
    EXPECT_EQ(comma.records[1].fields, (Fields{"1;5", "2"}));  // a lone CR ends a line too

    EXPECT_EQ(ParseCsv("\"a,b\";c\n").separator, ';');  // a comma inside quotes does not count
}

TEST(CsvParse, BlankRowsAreRecognised) {
    const CsvDocument document = ParseCsv("a;b\n;\n\nc;d");
    ASSERT_EQ(document.records.size(), 4u);
    EXPECT_TRUE(document.records[1].IsBlank());
    EXPECT_TRUE(document.records[2].IsBlank());
    EXPECT_FALSE(document.records[3].IsBlank());
    EXPECT_EQ(document.records[3].line, 4u);
    EXPECT_EQ(document.records[3].fields, (Fields{"c", "d"}));  // the last field needs no line end
}

TEST(CsvParse, SyntaxErrorsNameTheirLineAndKeepTheRecordsBefore) {
    const CsvDocument open = ParseCsv("a;b\nc;\"never\nclosed\n");
    ASSERT_TRUE(open.error);
    EXPECT_EQ(open.error->line, 2u);
    EXPECT_EQ(open.error->message, "Uvozovky otevřené na tomto řádku nejsou uzavřeny.");
    EXPECT_EQ(open.records.size(), 1u);

    const CsvDocument trailing = ParseCsv("a;b\n\"x\"y;z\n");
    ASSERT_TRUE(trailing.error);
    EXPECT_EQ(trailing.error->line, 2u);
    EXPECT_EQ(trailing.error->message, "Za uzavírací uvozovkou smí být jen oddělovač nebo konec řádku.");
    EXPECT_EQ(trailing.records.size(), 1u);
}

TEST(CsvFormat, QuotesOnlyWhereNeededAndReadsBack) {
    const std::vector<Fields> rows = {{"plain", "semi;colon", "quo\"te"}, {" padded", "", "two\nlines"}};
    const std::string text = FormatCsv(rows);
    EXPECT_EQ(text, "\xEF\xBB\xBFplain;\"semi;colon\";\"quo\"\"te\"\n\" padded\";;\"two\nlines\"\n");

    const CsvDocument document = ParseCsv(text);
    ASSERT_EQ(document.records.size(), 2u);
    EXPECT_EQ(document.records[0].fields, rows[0]);
    EXPECT_EQ(document.records[1].fields, rows[1]);

    EXPECT_EQ(FormatCsv({{"a,b", "c"}}, ','), "\xEF\xBB\xBF\"a,b\",c\n");
}

}  // namespace
