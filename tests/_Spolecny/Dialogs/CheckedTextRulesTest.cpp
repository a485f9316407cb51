#include "Dialogs/CheckedTextRules.h"

#include <gtest/gtest.h>

namespace {

const CheckedTextRules kWholeNumber{IsInteger, IsIntegerPrefix, nullptr, -1, false};
const CheckedTextRules kDecimal{IsDecimal, IsDecimalPrefix, CommaToPoint, -1, false};

TEST(TypedCharacter, FilteredCandidateReplacesTheSelectionAndAFullFieldRefuses) {
    EXPECT_EQ(AcceptTypedCharacter(kDecimal, u"1", 1, 1, u','), u'.');  // the filter runs before the check
    EXPECT_EQ(AcceptTypedCharacter(kDecimal, u"1.", 2, 2, u','), std::nullopt);
    EXPECT_EQ(AcceptTypedCharacter(kWholeNumber, u"12", 0, 0, u'-'), u'-');
    EXPECT_EQ(AcceptTypedCharacter(kWholeNumber, u"12", 1, 1, u'-'), std::nullopt);
    // "-12" with "-1" selected (in either direction) becomes "52".
    EXPECT_EQ(AcceptTypedCharacter(kWholeNumber, u"-12", 0, 2, u'5'), u'5');
    EXPECT_EQ(ReplaceSelection(u"-12", 2, 0, u'5'), u"52");
    EXPECT_EQ(ReplaceSelection(u"ab", 5, 9, u'c'), u"abc");

    const CheckedTextRules twenty{nullptr, nullptr, nullptr, 20, false};
    EXPECT_EQ(AcceptTypedCharacter(twenty, std::u16string(19, u'x'), 19, 19, u'y'), u'y');
    EXPECT_EQ(AcceptTypedCharacter(twenty, std::u16string(20, u'x'), 20, 20, u'y'), std::nullopt);
    EXPECT_EQ(AcceptTypedCharacter(twenty, std::u16string(20, u'x'), 0, 20, u'y'), std::nullopt);
    // Only a text of exactly the limit is full: a longer pasted one still takes characters.
    EXPECT_EQ(AcceptTypedCharacter(twenty, std::u16string(21, u'x'), 21, 21, u'y'), u'y');
    EXPECT_EQ(AcceptTypedCharacter(CheckedTextRules{}, std::u16string(5000, u'x'), 0, 0, u'č'), u'č');
}

TEST(FinishedText, TrailingBlanksEmptyTextAndTheLength) {
    EXPECT_TRUE(IsFinishedTextValid(kWholeNumber, u"12  "));
    EXPECT_FALSE(IsFinishedTextValid(kWholeNumber, u" 12"));
    EXPECT_FALSE(IsFinishedTextValid(kWholeNumber, u"   "));
    CheckedTextRules rules = kWholeNumber;
    rules.emptyAllowed = true;
    EXPECT_TRUE(IsFinishedTextValid(rules, u" \t "));
    EXPECT_FALSE(IsFinishedTextValid(rules, u"-"));

    // The length counts only with a whole-text check.
    rules.maxLength = 3;
    EXPECT_TRUE(IsFinishedTextValid(rules, u"123   "));
    EXPECT_FALSE(IsFinishedTextValid(rules, u"1234"));
    const CheckedTextRules lengthOnly{nullptr, nullptr, nullptr, 3, false};
    EXPECT_TRUE(IsFinishedTextValid(lengthOnly, u"a pasted text far over the limit"));
    EXPECT_TRUE(IsFinishedTextValid(lengthOnly, u""));

    EXPECT_EQ(RightTrimmed(u"  a b \t\r\n"), u"  a b");
    EXPECT_EQ(RightTrimmed(u" \t "), u"");
    EXPECT_EQ(RightTrimmed(u"nbsp\u00A0"), u"nbsp\u00A0");
}

}  // namespace
