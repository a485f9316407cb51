#include "Dialogs/TreeListEditRules.h"

#include <algorithm>

#include "TextCodec.h"

EditArgument DecodeEditArgument(std::uint32_t packed) {
    EditArgument argument;
    argument.column = static_cast<int>(packed & 0xFF);
    argument.placementData = static_cast<int>((packed >> 8) & 0x3FFFF);
    argument.placementMode = static_cast<int>((packed >> 26) & 0x3);
    const std::uint32_t kind = (packed >> 29) & 0x3;
    argument.kind = kind == 0   ? EditorKind::EditField
                    : kind == 1 ? EditorKind::EditableCombo
                                : EditorKind::DropDownList;
    argument.fullWidth = (packed & 0x80000000u) != 0;
    return argument;
}

std::uint32_t EncodeEditArgument(const EditArgument& argument) {
    return (static_cast<std::uint32_t>(argument.column) & 0xFF) |
           ((static_cast<std::uint32_t>(argument.placementData) & 0x3FFFF) << 8) |
           ((static_cast<std::uint32_t>(argument.placementMode) & 0x3) << 26) |
           (static_cast<std::uint32_t>(argument.kind) << 29) | (argument.fullWidth ? 0x80000000u : 0);
}

ColumnAutoEdit DecodeColumnAutoEdit(std::uint32_t packed) {
    ColumnAutoEdit settings;
    settings.flags = static_cast<std::uint8_t>(packed & 0xFF);
    settings.mode = static_cast<std::uint8_t>((packed >> 8) & 0x7);
    settings.column = static_cast<int>((packed >> 11) & 0x3F);
    settings.param1 = static_cast<std::uint8_t>((packed >> 17) & 0xFF);
    settings.param2 = static_cast<std::uint8_t>((packed >> 25) & 0x7F);
    return settings;
}

std::uint32_t EncodeColumnAutoEdit(const ColumnAutoEdit& settings) {
    return settings.flags | (static_cast<std::uint32_t>(settings.mode & 0x7) << 8) |
           ((static_cast<std::uint32_t>(settings.column) & 0x3F) << 11) |
           (static_cast<std::uint32_t>(settings.param1) << 17) |
           (static_cast<std::uint32_t>(settings.param2 & 0x7F) << 25);
}

ColumnCheck DecodeColumnCheck(std::uint32_t packed) {
    return {static_cast<std::uint8_t>(packed & 0xFF), static_cast<std::int16_t>((packed >> 8) & 0xFFFF)};
}

void ConfigureForInputKind(CheckedTextRules& rules, std::u16string& message, std::uint8_t inputKind,
                           std::int16_t maxLength) {
    auto use = [&](TextCheck keystroke, TextCheck whole, CharacterFilter filter, std::u16string_view text) {
        rules.keystrokeCheck = keystroke;
        rules.wholeTextCheck = whole;
        rules.filter = filter;
        message = text;
    };
    if (inputKind & InputKind::kPlainText) {
        use(nullptr, nullptr, nullptr, u"");
    } else if (inputKind & InputKind::kWholeNumber) {
        use(IsIntegerPrefix, IsInteger, nullptr, u"Zadejte celé číslo");
    } else if (inputKind & InputKind::kDecimalNumber) {
        use(IsDecimalPrefix, IsDecimal, CommaToPoint, u"Zadejte desetinné číslo");
    } else if (inputKind & InputKind::kAlphanumeric) {
        use(IsAlphanumeric, IsAlphanumeric, nullptr, u"Zadejte číslice nebo písmena");
    } else if (inputKind & InputKind::kEmail) {
        use(nullptr, IsEmail, nullptr, u"Zadejte platný email");
    } else if (inputKind & InputKind::kFileName) {
        use(IsFileName, IsFileName, nullptr, u"Zadejte název bez '<>*:\\?'(platný název souboru Windows)");
    }
    rules.maxLength = maxLength;
    if (maxLength != -1) message += u"\nmax. " + FromUtf8(std::to_string(maxLength)) + u" znaků";
    if (inputKind & InputKind::kEmptyAllowed) rules.emptyAllowed = true;
}

bool EditorKindForMode(std::uint8_t mode, EditorKind& kind) {
    switch (mode & 0x3) {
        case 1:
            kind = EditorKind::EditField;
            return true;
        case 2:
            kind = EditorKind::EditableCombo;
            return true;
        case 3:
            kind = EditorKind::DropDownList;
            return true;
        default:
            return false;
    }
}

bool TypingStartsEdit(std::uint8_t mode, std::uint8_t flags) {
    return (mode == 1 || mode == 2 || mode == 5 || mode == 7) && (flags & 0x10) == 0;
}

EditorSpan PlaceEditor(const EditorSpanInput& input) {
    if (input.fullWidth) {
        const int right = std::min(input.cellLeft + input.cellWidth, input.clientWidth);
        return {input.cellLeft, std::max(right - input.cellLeft, 0)};
    }
    const bool combo = input.kind != EditorKind::EditField;
    const auto scaled = [&](int pixels) { return (pixels * input.dpi + 48) / 96; };  // rounded as MulDiv does
    int width = input.textWidth + scaled(10);
    width = std::max(width, scaled(combo ? 60 : 48));
    width += input.textLength;
    if (combo) width += input.scrollBarWidth;

    int left = input.cellLeft;
    if (input.format == 2) {
        left = input.cellLeft + (input.cellWidth - width) / 2;
    } else if (input.format == 1) {
        left = input.cellLeft + input.cellWidth - width;
    }
    return {std::max(left, input.cellLeft), width};
}

bool TextChangedDuringEdit(bool edited, std::u16string_view startText, std::u16string_view endText) {
    return edited && startText != endText;
}

int CaretAtOffset(const std::vector<int>& extents, int offset) {
    int previous = 0;
    for (std::size_t i = 0; i < extents.size(); ++i) {
        if (offset < (previous + extents[i] + 1) / 2) return static_cast<int>(i);
        previous = extents[i];
    }
    return static_cast<int>(extents.size());
}
