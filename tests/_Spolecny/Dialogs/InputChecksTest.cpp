#include "Dialogs/InputChecks.h"

#include <gtest/gtest.h>

namespace {

TEST(InputChecks, WholeNumbers) {
    for (const wchar_t* typing : {L"", L"-", L"+", L"12", L"-007"}) EXPECT_TRUE(IsIntegerPrefix(typing)) << typing;
    for (const wchar_t* refused : {L"1-", L"--1", L"1.", L" 1", L"1a"})
        EXPECT_FALSE(IsIntegerPrefix(refused)) << refused;

    for (const wchar_t* finished : {L"0", L"-12", L"+3"}) EXPECT_TRUE(IsInteger(finished)) << finished;
    for (const wchar_t* unfinished : {L"", L"-", L"+", L"1.0", L"1 "})
        EXPECT_FALSE(IsInteger(unfinished)) << unfinished;
}

TEST(InputChecks, DecimalNumbers) {
    for (const wchar_t* typing : {L"", L"-", L"1.", L".5", L"-.", L"12.25"})
        EXPECT_TRUE(IsDecimalPrefix(typing)) << typing;
    for (const wchar_t* refused : {L"1,5", L"1.2.", L"..", L"1e3", L"-+1"})
        EXPECT_FALSE(IsDecimalPrefix(refused)) << refused;

    for (const wchar_t* finished : {L".5", L"1.5", L"-0.25", L"+7", L"15"})
        EXPECT_TRUE(IsDecimal(finished)) << finished;
    for (const wchar_t* unfinished : {L"1.", L"", L"-", L".", L"1,5"})
        EXPECT_FALSE(IsDecimal(unfinished)) << unfinished;
}

TEST(InputChecks, CommaBecomesPointAndNothingElseChanges) {
    EXPECT_EQ(CommaToPoint(L','), L'.');
    EXPECT_EQ(CommaToPoint(L'.'), L'.');
    EXPECT_EQ(CommaToPoint(L'5'), L'5');
    EXPECT_EQ(CommaToPoint(L';'), L';');
}

TEST(InputChecks, AlphanumericWords) {
    EXPECT_TRUE(IsAlphanumeric(L"PE100_sdr11"));
    EXPECT_FALSE(IsAlphanumeric(L""));
    EXPECT_FALSE(IsAlphanumeric(L"PE 100"));
    EXPECT_FALSE(IsAlphanumeric(L"PE-100"));
}

TEST(InputChecks, EmailNeedsADottedDomain) {
    EXPECT_TRUE(IsEmail(L"jan.novak@firma.cz"));
    EXPECT_TRUE(IsEmail(L"jan_novak@mail.firma.cz"));
    EXPECT_FALSE(IsEmail(L"jan@localhost"));        // no dotted part after the at sign
    EXPECT_FALSE(IsEmail(L"jan..novak@firma.cz"));  // one dot or underscore only
    EXPECT_FALSE(IsEmail(L"jan.novak.ml@firma.cz"));
    EXPECT_FALSE(IsEmail(L"@firma.cz"));
    EXPECT_FALSE(IsEmail(L""));
}

TEST(InputChecks, FileNames) {
    EXPECT_TRUE(IsFileName(L"Potrubi.qxp"));
    EXPECT_TRUE(IsFileName(L"katalog 2024"));
    EXPECT_FALSE(IsFileName(L""));
    EXPECT_FALSE(IsFileName(L" katalog"));
    EXPECT_FALSE(IsFileName(L".qxp"));
    for (const wchar_t* refused : {L"a\\b", L"a/b", L"c:", L"a?", L"a\"b", L"a<b", L"a>b", L"a|b", L"a*"}) {
        EXPECT_FALSE(IsFileName(refused)) << refused;
    }
}

}  // namespace
