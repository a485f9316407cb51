#include "Dialogs/CCheckedEdit.h"

#include <gtest/gtest.h>

#include "win/DemoDialog.h"
#include "win/GuiHarness.h"
#include "win/RefusalBeeps.h"

namespace {

constexpr COLORREF kYellow = RGB(255, 255, 160);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);

class CheckedEdit : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dialog.Create());
        dialog.Show(SW_SHOW);
        gui::Pump(dialog);
        dialog.changes.clear();  // the exchange's writes while opening
        dialog.killFocus.clear();
    }
    void TearDown() override { dialog.DestroyWindow(); }

    HWND Field(int id) const { return dialog.Item(id); }
    bool ShowsInvalid(int id) const {
        const gui::EditColours colours = gui::ReadEditColours(dialog.Handle(), Field(id));
        return colours.background == kYellow && colours.text == kRed && colours.brush == kYellow;
    }
    bool ShowsValid(int id) const {
        const gui::EditColours colours = gui::ReadEditColours(dialog.Handle(), Field(id));
        return colours.background == kWhite && colours.text == GetSysColor(COLOR_WINDOWTEXT) && colours.brush == kWhite;
    }

    RefusalBeeps beeps;
    DemoDialog dialog;
};

TEST_F(CheckedEdit, LoneMinusIsTypedButInvalidAndUnreportedUntilADigitFollows) {
    gui::Type(Field(IDC_WHOLE), u"-");
    EXPECT_EQ(gui::Text(Field(IDC_WHOLE)), u"-");
    EXPECT_EQ(beeps.Heard(), 0);
    EXPECT_FALSE(dialog.whole.IsValid());
    EXPECT_TRUE(ShowsInvalid(IDC_WHOLE));
    EXPECT_TRUE(dialog.changes.empty());  // only valid changes reach the parent

    gui::Type(Field(IDC_WHOLE), u"7");
    EXPECT_EQ(dialog.changes, std::vector<int>{IDC_WHOLE});
    EXPECT_TRUE(dialog.whole.IsValid());
    EXPECT_TRUE(ShowsValid(IDC_WHOLE));
    EXPECT_EQ(dialog.whole.CurrentText(), u"-7");

    gui::Type(Field(IDC_WHOLE), u"x-");
    EXPECT_EQ(gui::Text(Field(IDC_WHOLE)), u"-7");
    EXPECT_EQ(beeps.Heard(), 2);
}

TEST_F(CheckedEdit, DecimalCommaBecomesAPointAndATrailingPointIsInvalid) {
    gui::Type(Field(IDC_DECIMAL), u"1,5");
    EXPECT_EQ(gui::Text(Field(IDC_DECIMAL)), u"1.5");
    EXPECT_TRUE(ShowsValid(IDC_DECIMAL));
    gui::Type(Field(IDC_DECIMAL), u",");  // a second separator
    EXPECT_EQ(gui::Text(Field(IDC_DECIMAL)), u"1.5");
    EXPECT_EQ(beeps.Heard(), 1);

    gui::SetText(Field(IDC_DECIMAL), u"");
    gui::Type(Field(IDC_DECIMAL), u"1.");
    EXPECT_EQ(gui::Text(Field(IDC_DECIMAL)), u"1.");
    EXPECT_EQ(beeps.Heard(), 1);
    EXPECT_TRUE(ShowsInvalid(IDC_DECIMAL));

    gui::SetText(Field(IDC_DECIMAL), u"");
    gui::Type(Field(IDC_DECIMAL), u".5");
    EXPECT_TRUE(ShowsValid(IDC_DECIMAL));
}

TEST_F(CheckedEdit, FullFieldRefusesTheNextCharacterWithBeepAndBalloon) {
    const HWND name = Field(IDC_DEMO_NAME);
    SetFocus(name);
    gui::Type(name, u"Trubka PE-HD 110x6,6");  // 20 characters
    EXPECT_EQ(beeps.Heard(), 0);
    EXPECT_FALSE(gui::FindVisibleBalloon().visible);

    gui::Type(name, u"X");
    EXPECT_EQ(gui::Text(name), u"Trubka PE-HD 110x6,6");
    EXPECT_EQ(beeps.Heard(), 1);
    const gui::Balloon balloon = gui::FindVisibleBalloon();
    ASSERT_TRUE(balloon.visible);
    EXPECT_EQ(balloon.text, u"Název může mít nejvýše 20 znaků");
    const RECT field = dialog.name.WindowRect();
    EXPECT_GE(balloon.rect.bottom, field.top);  // shown at the field, not somewhere on the screen
    EXPECT_LE(balloon.rect.top, field.bottom + 60);

    // Typing over a selection in a full field is refused too; control characters pass.
    SendMessageW(name, EM_SETSEL, 0, -1);
    gui::Type(name, u"Y");
    EXPECT_EQ(gui::Text(name), u"Trubka PE-HD 110x6,6");
    EXPECT_EQ(beeps.Heard(), 2);
    gui::Type(name, u"\b");
    EXPECT_EQ(gui::Text(name), u"");
    EXPECT_EQ(beeps.Heard(), 2);
    EXPECT_FALSE(gui::FindVisibleBalloon().visible);  // the next key hides the balloon
}

TEST_F(CheckedEdit, BlankTextCountsAsEmpty) {
    gui::SetText(Field(IDC_EMAIL), u"   ");
    EXPECT_TRUE(ShowsInvalid(IDC_EMAIL));
    EXPECT_EQ(dialog.email.CurrentText(), u"");

    dialog.email.Rules().emptyAllowed = true;
    dialog.email.CheckWholeText();
    EXPECT_TRUE(ShowsValid(IDC_EMAIL));

    gui::SetText(Field(IDC_EMAIL), u"jan@firma");
    EXPECT_TRUE(ShowsInvalid(IDC_EMAIL));
    gui::SetText(Field(IDC_EMAIL), u"jan@firma.cz  ");
    EXPECT_TRUE(ShowsValid(IDC_EMAIL));
}

TEST_F(CheckedEdit, LeavingTrimsSilentlyAndTellsTheParentTheTrimmedText) {
    const HWND name = Field(IDC_DEMO_NAME);
    SetFocus(name);
    gui::Type(name, u"PE 100  ");
    dialog.killFocus.clear();
    const std::size_t changesBefore = dialog.changes.size();

    SetFocus(Field(IDC_WHOLE));

    EXPECT_EQ(gui::Text(name), u"PE 100");
    EXPECT_EQ(dialog.changes.size(), changesBefore);
    ASSERT_EQ(dialog.killFocus.size(), 1u);
    EXPECT_EQ(dialog.killFocus[0].edit, name);
    EXPECT_EQ(dialog.killFocus[0].text, u"PE 100");

    // The guard is down again: the next real change reaches the parent.
    gui::Type(name, u"!");
    EXPECT_EQ(dialog.changes.size(), changesBefore + 1);
}

TEST_F(CheckedEdit, DisabledFieldIsWhiteWhateverItsText) {
    gui::Type(Field(IDC_WHOLE), u"-");
    EnableWindow(Field(IDC_WHOLE), FALSE);
    const gui::EditColours colours = gui::ReadEditColours(dialog.Handle(), Field(IDC_WHOLE));
    EXPECT_EQ(colours.brush, kWhite);
    EXPECT_EQ(colours.background, RGB(1, 2, 3));  // left as they were
}

TEST_F(CheckedEdit, FileNameRefusesForbiddenCharactersWhileTyping) {
    gui::Type(Field(IDC_FILE), u"katalog|");
    EXPECT_EQ(beeps.Heard(), 1);
    EXPECT_EQ(gui::FindVisibleBalloon().text, u"Zadejte název bez '<>*:\\?'(platný název souboru Windows)");
    gui::Type(Field(IDC_FILE), u"2.qxp");
    EXPECT_EQ(gui::Text(Field(IDC_FILE)), u"katalog2.qxp");
    EXPECT_TRUE(ShowsValid(IDC_FILE));
    EXPECT_FALSE(gui::FindVisibleBalloon().visible);
}

TEST(CheckedEditDefaults, TitleWhenNoneIsGivenAndValidWithoutChecks) {
    const CCheckedEdit edit;
    EXPECT_EQ(edit.Title(), u"Chybný vstup");
    EXPECT_TRUE(edit.IsValid());
}

}  // namespace
