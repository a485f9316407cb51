#include "Dialogs/TreeListEditRules.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

TEST(EditArgument, PackedFieldsAndTheAutomaticForm) {
    // Column 4, caret between characters 3 and 5 (mode 3), drop-down list, full width.
    const std::uint32_t packed = 4u | ((3u | (5u << 9)) << 8) | (3u << 26) | (2u << 29) | 0x80000000u;
    const EditArgument argument = DecodeEditArgument(packed);
    EXPECT_EQ(argument.column, 4);
    EXPECT_EQ(argument.placementMode, 3);
    EXPECT_EQ(argument.SelectionStart(), 3);
    EXPECT_EQ(argument.SelectionEnd(), 5);
    EXPECT_EQ(argument.kind, EditorKind::DropDownList);
    EXPECT_TRUE(argument.fullWidth);
    EXPECT_EQ(EncodeEditArgument(argument), packed);

    // A combo-box answer with both kind bits set is a drop-down list too.
    EXPECT_EQ(DecodeEditArgument(0x60000000u).kind, EditorKind::DropDownList);
    EXPECT_EQ(DecodeEditArgument(0x20000000u).kind, EditorKind::EditableCombo);
    EXPECT_EQ(DecodeEditArgument((2u << 26) | (260u << 8)).SelectionStart(), 260);

    EXPECT_TRUE(IsAutomaticEdit(0xF5A5A503u));
    EXPECT_EQ(AutomaticEditArgument(3), 0xF5A5A503u);
    EXPECT_FALSE(IsAutomaticEdit(0xF5A5A40u));
}

TEST(EditArgument, ColumnSettingsUnpack) {
    const ColumnAutoEdit settings = DecodeColumnAutoEdit(0x20u | (3u << 8) | (4u << 11) | (7u << 17) | (100u << 25));
    EXPECT_EQ(settings.flags, 0x20);
    EXPECT_EQ(settings.mode, 3);
    EXPECT_EQ(settings.column, 4);
    EXPECT_EQ(settings.param1, 7);
    EXPECT_EQ(settings.param2, 100);
    const ColumnAutoEdit all{0x10, 7, 63, 255, 127};
    const ColumnAutoEdit back = DecodeColumnAutoEdit(EncodeColumnAutoEdit(all));
    EXPECT_EQ(std::tie(back.flags, back.mode, back.column, back.param1, back.param2),
              std::tie(all.flags, all.mode, all.column, all.param1, all.param2));

    EXPECT_EQ(DecodeColumnCheck(0xFFFF02).maxLength, -1);
    EXPECT_EQ(DecodeColumnCheck(0xFFFF02).inputKind, 0x02);
    EXPECT_EQ(DecodeColumnCheck(0x000504).maxLength, 5);
}

TEST(InputKinds, WholeNumberWithALengthAddsTheLimitLine) {
    CheckedTextRules rules;
    std::u16string message;
    ConfigureForInputKind(rules, message, InputKind::kWholeNumber, 5);
    EXPECT_EQ(message, u"Zadejte celé číslo\nmax. 5 znaků");
    EXPECT_EQ(rules.keystrokeCheck, &IsIntegerPrefix);
    EXPECT_EQ(rules.wholeTextCheck, &IsInteger);
    EXPECT_EQ(rules.maxLength, 5);

    ConfigureForInputKind(rules, message, InputKind::kDecimalNumber | InputKind::kWholeNumber, -1);  // first bit wins
    EXPECT_EQ(message, u"Zadejte celé číslo");
    EXPECT_EQ(rules.maxLength, -1);

    ConfigureForInputKind(rules, message, InputKind::kDecimalNumber, -1);
    EXPECT_EQ(rules.filter, &CommaToPoint);
    EXPECT_EQ(message, u"Zadejte desetinné číslo");
    ConfigureForInputKind(rules, message, InputKind::kPlainText, -1);
    EXPECT_EQ(rules.filter, nullptr);
    EXPECT_EQ(rules.wholeTextCheck, nullptr);
    EXPECT_EQ(message, u"");
}

TEST(InputKinds, WhatAKindDoesNotNameCarriesOver) {
    CheckedTextRules rules;
    std::u16string message;
    ConfigureForInputKind(rules, message, InputKind::kWholeNumber | InputKind::kEmptyAllowed, 5);
    EXPECT_TRUE(rules.emptyAllowed);

    // No check bit: the previous checks and message stay, and the limit line is added again.
    ConfigureForInputKind(rules, message, 0, 5);
    EXPECT_EQ(rules.wholeTextCheck, &IsInteger);
    EXPECT_EQ(message, u"Zadejte celé číslo\nmax. 5 znaků\nmax. 5 znaků");

    // Empty stays allowed for every later kind.
    ConfigureForInputKind(rules, message, InputKind::kEmail, -1);
    EXPECT_TRUE(rules.emptyAllowed);
    EXPECT_EQ(message, u"Zadejte platný email");
    ConfigureForInputKind(rules, message, InputKind::kFileName, -1);
    EXPECT_EQ(message, u"Zadejte název bez '<>*:\\?'(platný název souboru Windows)");
    ConfigureForInputKind(rules, message, InputKind::kAlphanumeric, -1);
    EXPECT_EQ(message, u"Zadejte číslice nebo písmena");
    EXPECT_TRUE(rules.emptyAllowed);
}

TEST(EditModes, KindsAndWhichStartOnTyping) {
    EditorKind kind = EditorKind::EditField;
    EXPECT_FALSE(EditorKindForMode(0, kind));
    EXPECT_FALSE(EditorKindForMode(4, kind));
    EXPECT_TRUE(EditorKindForMode(3, kind));
    EXPECT_EQ(kind, EditorKind::DropDownList);
    EXPECT_TRUE(EditorKindForMode(6, kind));
    EXPECT_EQ(kind, EditorKind::EditableCombo);

    for (std::uint8_t mode : {1, 2, 5, 7}) EXPECT_TRUE(TypingStartsEdit(mode, 0)) << int(mode);
    for (std::uint8_t mode : {0, 3, 4, 6}) EXPECT_FALSE(TypingStartsEdit(mode, 0)) << int(mode);
    EXPECT_FALSE(TypingStartsEdit(1, 0x10));
}

TEST(EditorPlace, WidthFromTheTextWithItsAllowances) {
    EditorSpanInput input{100, 60, 400, 20, 3, EditorKind::EditField, 0, false, 17, 96};
    EXPECT_EQ(PlaceEditor(input).width, 48 + 3);  // 20 + 10 is raised to 48, then one per character
    input.textWidth = 50;
    EXPECT_EQ(PlaceEditor(input).width, 50 + 10 + 3);
    EXPECT_EQ(PlaceEditor(input).left, 100);

    input.kind = EditorKind::EditableCombo;
    input.textWidth = 20;
    EXPECT_EQ(PlaceEditor(input).width, 60 + 3 + 17);
    input.dpi = 144;  // 150 %: the allowances grow by half, the pixel per character does not
    EXPECT_EQ(PlaceEditor(input).width, 90 + 3 + 17);
    input = {100, 60, 400, 70, 3, EditorKind::EditField, 0, false, 17, 144};
    EXPECT_EQ(PlaceEditor(input).width, 70 + 15 + 3);

    input = {100, 80, 400, 20, 2, EditorKind::EditField, 1, false, 17, 96};  // right-aligned column
    EXPECT_EQ(PlaceEditor(input).left, 100 + 80 - 50);
    input.format = 2;  // centred
    EXPECT_EQ(PlaceEditor(input).left, 100 + 15);
    input.cellWidth = 30;  // wider than the cell: starts at the cell
    EXPECT_EQ(PlaceEditor(input).left, 100);

    input = {350, 100, 400, 20, 2, EditorKind::EditField, 0, true, 17, 96};
    const EditorSpan full = PlaceEditor(input);
    EXPECT_EQ(full.left, 350);
    EXPECT_EQ(full.width, 50);  // clipped to the client width
}

TEST(EditorPlace, CaretGoesToTheNearerCharacterBoundary) {
    const std::vector<int> extents{8, 16, 30};
    for (const auto& [offset, caret] : {std::pair{0, 0}, {3, 0}, {4, 1}, {22, 2}, {23, 3}, {500, 3}}) {
        EXPECT_EQ(CaretAtOffset(extents, offset), caret) << offset;
    }
    EXPECT_EQ(CaretAtOffset({}, 5), 0);
}

TEST(EditEnd, OnlyATypedTextOtherThanTheStartCountsAsAChange) {
    EXPECT_TRUE(TextChangedDuringEdit(true, u"3.00", u"3.5"));
    EXPECT_FALSE(TextChangedDuringEdit(true, u"3.00", u"3.00"));  // typed back, or written back trimmed
    EXPECT_FALSE(TextChangedDuringEdit(false, u"3.00", u"3.5"));  // the owner's text, not the user's
}

}  // namespace
