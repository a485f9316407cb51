// The material editor's checked fields under Wine: what typing, pasting and leaving do to them.

#include "Dialogs/CCheckedEdit.h"

#include "win/MaterialEditorHarness.h"

namespace {

using namespace material_dialogs;

constexpr COLORREF kYellow = RGB(255, 255, 160);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);

// A new material being added: every field is open.
class CheckedFields : public MaterialEditor {
protected:
    void SetUp() override {
        AddMaterial(catalogue, u"PE");
        Open();
        Click(IDC_MATERIAL_ADD);
    }
    // Valid: white with the window text colour; invalid: yellow with red text.
    bool ShowsValid(int id) const {
        const gui::EditColours colours = gui::ReadEditColours(editor.Handle(), Control(id));
        if (colours.background == kYellow && colours.text == kRed && colours.brush == kYellow) return false;
        EXPECT_EQ(colours.background, kWhite) << id;
        EXPECT_EQ(colours.text, GetSysColor(COLOR_WINDOWTEXT)) << id;
        EXPECT_EQ(colours.brush, kWhite) << id;
        return true;
    }
    void Retype(int id, std::u16string_view text) {
        gui::SetText(Control(id), u"");
        gui::Type(Control(id), text);
    }

    // Counts the refusal beeps instead of sounding them.
    struct Beeps {
        Beeps() : previous(SetRefusalSound([] { ++heard; })) { heard = 0; }
        ~Beeps() { SetRefusalSound(previous); }
        static inline int heard = 0;
        RefusalSound previous;
    } beeps;
};

TEST_F(CheckedFields, RoughnessTakesACommaAsAPointAndColoursWhatIsNoValueInItsRange) {
    Retype(IDC_ROUGHNESS, u"0,5");
    EXPECT_EQ(Text(IDC_ROUGHNESS), u"0.5");
    EXPECT_TRUE(ShowsValid(IDC_ROUGHNESS));
    gui::Type(Control(IDC_ROUGHNESS), u",");  // a second separator
    EXPECT_EQ(Text(IDC_ROUGHNESS), u"0.5");
    EXPECT_EQ(beeps.heard, 1);
    EXPECT_EQ(gui::FindVisibleBalloon().text, u"Hydraulická drsnost potrubí [mm]\nod 0.01 do 3.0");

    // Texts that may still become a number are typed, and only coloured.
    const std::pair<const char16_t*, bool> typed[] = {{u"-", false}, {u"1.", false}, {u".5", true}, {u"3.5", false}};
    for (const auto& [text, valid] : typed) {
        Retype(IDC_ROUGHNESS, text);
        EXPECT_EQ(Text(IDC_ROUGHNESS), text);
        EXPECT_EQ(ShowsValid(IDC_ROUGHNESS), valid) << Wide(std::u16string(text));
    }
    EXPECT_EQ(beeps.heard, 1);
    gui::SetText(Control(IDC_ROUGHNESS), u"2.5  ");  // pasted: trailing blanks are not judged
    EXPECT_TRUE(ShowsValid(IDC_ROUGHNESS));

    // A disabled field is white whatever its text, its colours left as they were.
    Click(IDC_MATERIAL_REVERT);
    gui::SetText(Control(IDC_ROUGHNESS), u"x");
    const gui::EditColours colours = gui::ReadEditColours(editor.Handle(), Control(IDC_ROUGHNESS));
    EXPECT_EQ(colours.brush, kWhite);
    EXPECT_EQ(colours.background, RGB(1, 2, 3));
}

TEST_F(CheckedFields, FullFieldRefusesTheNextCharacterWithBeepAndBalloonAndLeavingTrims) {
    const HWND name = Control(IDC_NAME);
    gui::Type(name, u"Trubka PE-HD 110x6,6");  // 20 characters
    EXPECT_EQ(beeps.heard, 0);
    EXPECT_FALSE(gui::FindVisibleBalloon().visible);

    gui::Type(name, u"X");
    EXPECT_EQ(Text(IDC_NAME), u"Trubka PE-HD 110x6,6");
    EXPECT_EQ(beeps.heard, 1);
    const gui::Balloon balloon = gui::FindVisibleBalloon();
    EXPECT_EQ(balloon.text, u"Maximální délka je omezena na 20 znaků");
    RECT field{};
    GetWindowRect(name, &field);
    EXPECT_GE(balloon.rect.bottom, field.top);  // shown at the field, not somewhere on the screen
    EXPECT_LE(balloon.rect.top, field.bottom + 60);

    // Typing over a selection in a full field is refused too; control characters pass.
    SendMessageW(name, EM_SETSEL, 0, -1);
    gui::Type(name, u"Y");
    EXPECT_EQ(beeps.heard, 2);
    gui::Type(name, u"\b");
    EXPECT_EQ(Text(IDC_NAME), u"");
    EXPECT_EQ(beeps.heard, 2);
    EXPECT_FALSE(gui::FindVisibleBalloon().visible);  // the next key hides the balloon

    gui::Type(Control(IDC_MANUFACTURER), u"12345678901234567890123456");
    EXPECT_EQ(Text(IDC_MANUFACTURER), u"1234567890123456789012345");
    EXPECT_EQ(beeps.heard, 3);
    EXPECT_EQ(gui::FindVisibleBalloon().text, u"Maximální délka je omezena na 25 znaků");

    // Leaving "Název:" names an empty "Popis:" after it; leaving it again trims its trailing
    // blanks without a word, and a filled "Popis:" stays.
    for (const char16_t* typed : {u"PE 100", u"  "}) {
        SetFocus(name);
        SendMessageW(name, EM_SETSEL, 99, 99);  // the caret at the end
        gui::Type(name, typed);
        SetFocus(Control(IDC_MANUFACTURER));
        gui::Pump(editor);
        EXPECT_EQ(Text(IDC_NAME), u"PE 100");
        EXPECT_EQ(Text(IDC_DISPLAY_NAME), u"PE 100");
    }
    EXPECT_EQ(beeps.heard, 3);
}

}  // namespace
