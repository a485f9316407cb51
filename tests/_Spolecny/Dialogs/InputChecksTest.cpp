#include "Dialogs/InputChecks.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

TEST(InputChecks, AcceptWhatTheirKindAllowsAndRefuseTheRest) {
    const struct {
        const char* kind;
        TextCheck check;
        std::vector<const wchar_t*> accepted;
        std::vector<const wchar_t*> refused;
    } checks[] = {
        {"whole number, typing",
         IsIntegerPrefix,
         {L"", L"-", L"+", L"12", L"-007"},
         {L"1-", L"--1", L"1.", L" 1", L"1a"}},
        {"whole number", IsInteger, {L"0", L"-12", L"+3"}, {L"", L"-", L"+", L"1.0", L"1 "}},
        {"decimal, typing",
         IsDecimalPrefix,
         {L"", L"-", L"1.", L".5", L"-.", L"12.25"},
         {L"1,5", L"1.2.", L"..", L"1e3", L"-+1"}},
        {"decimal", IsDecimal, {L".5", L"1.5", L"-0.25", L"+7", L"15"}, {L"1.", L"", L"-", L".", L"1,5"}},
        {"alphanumeric", IsAlphanumeric, {L"PE100_sdr11"}, {L"", L"PE 100", L"PE-100"}},
        // One dot or underscore between the name's parts, and a dotted part after the at sign.
        {"email",
         IsEmail,
         {L"jan.novak@firma.cz", L"jan_novak@mail.firma.cz"},
         {L"jan@localhost", L"jan..novak@firma.cz", L"jan.novak.ml@firma.cz", L"@firma.cz", L""}},
        {"file name",
         IsFileName,
         {L"Potrubi.qxp", L"katalog 2024"},
         {L"", L" katalog", L".qxp", L"a\\b", L"a/b", L"c:", L"a?", L"a\"b", L"a<b", L"a>b", L"a|b", L"a*"}},
    };
    for (const auto& [kind, check, accepted, refused] : checks) {
        for (const wchar_t* text : accepted) EXPECT_TRUE(check(text)) << kind << ": " << text;
        for (const wchar_t* text : refused) EXPECT_FALSE(check(text)) << kind << ": " << text;
    }
    for (const auto& [typed, kept] : {std::pair{L',', L'.'}, {L'.', L'.'}, {L'5', L'5'}, {L';', L';'}}) {
        EXPECT_EQ(CommaToPoint(typed), kept);
    }
}

}  // namespace
