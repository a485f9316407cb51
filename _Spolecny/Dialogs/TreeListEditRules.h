#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Dialogs/CheckedTextRules.h"

// The rules of a tree-list's in-place editing that need no window: the packed message arguments,
// the configuration of the shared checked edit from a column's input kind, and where the editor
// goes in its cell.

enum class EditorKind { EditField = 0, EditableCombo = 1, DropDownList = 2 };

// The argument of TVM_EDITLABELW: bits 0-7 column, 8-25 placement data, 26-27 placement mode,
// 29-30 editor kind, 31 the cell's full width.
struct EditArgument {
    int column = 0;
    int placementMode = 0;  // 0 all selected, 1 pixel offset, 2 character index, 3 two 9-bit indices
    int placementData = 0;
    EditorKind kind = EditorKind::EditField;
    bool fullWidth = false;

    int SelectionStart() const { return placementMode == 3 ? placementData & 0x1FF : placementData; }
    int SelectionEnd() const { return placementMode == 3 ? (placementData >> 9) & 0x1FF : placementData; }
};
EditArgument DecodeEditArgument(std::uint32_t packed);
std::uint32_t EncodeEditArgument(const EditArgument& argument);

// The automatic form: the upper 24 bits 0xF5A5A5, the column in the low byte.
inline constexpr std::uint32_t kAutomaticEditMark = 0xF5A5A5;
inline bool IsAutomaticEdit(std::uint32_t packed) {
    return (packed >> 8) == kAutomaticEditMark;
}
inline std::uint32_t AutomaticEditArgument(int column) {
    return (kAutomaticEditMark << 8) | static_cast<std::uint32_t>(column & 0xFF);
}

// TVM_SETCOLUMNAUTOEDIT's first parameter: bits 0-7 flags, 8-10 mode, 11-16 column, 17-24 and
// 25-31 two parameter bytes.
struct ColumnAutoEdit {
    std::uint8_t flags = 0;
    std::uint8_t mode = 0;
    int column = 0;
    std::uint8_t param1 = 0;
    std::uint8_t param2 = 0;
};
ColumnAutoEdit DecodeColumnAutoEdit(std::uint32_t packed);
std::uint32_t EncodeColumnAutoEdit(const ColumnAutoEdit& settings);

// TVM_SETCOLUMNCHECK's second parameter: bits 0-7 input kind, 8-23 maximum length (0xFFFF: none).
struct ColumnCheck {
    std::uint8_t inputKind = 0;
    std::int16_t maxLength = -1;
};
ColumnCheck DecodeColumnCheck(std::uint32_t packed);

// Input kinds: when several bits are set the first of 0x01, 0x02, 0x04, 0x08, 0x10, 0x40 decides.
namespace InputKind {
inline constexpr std::uint8_t kPlainText = 0x01;
inline constexpr std::uint8_t kWholeNumber = 0x02;
inline constexpr std::uint8_t kDecimalNumber = 0x04;
inline constexpr std::uint8_t kAlphanumeric = 0x08;
inline constexpr std::uint8_t kEmail = 0x10;
inline constexpr std::uint8_t kEmptyAllowed = 0x20;
inline constexpr std::uint8_t kFileName = 0x40;
}  // namespace InputKind

// Sets up the shared in-place checked edit for a column. Only what the kind names is set: a kind
// without any of the check bits keeps the previous checks and message, and the empty-allowed flag
// is only ever raised. A length limit is added to the message on a line of its own.
void ConfigureForInputKind(CheckedTextRules& rules, std::u16string& message, std::uint8_t inputKind,
                           std::int16_t maxLength);

// The editor's kind for a column's edit mode (modes 4 to 7 behave as 0 to 3); none for mode 0.
bool EditorKindForMode(std::uint8_t mode, EditorKind& kind);
// Whether a typed character starts the column's own edit (modes 1, 2, 5, 7 without flag 0x10).
bool TypingStartsEdit(std::uint8_t mode, std::uint8_t flags);

// Where the editor goes across its cell (x and width, in client pixels), before the offset of
// 2 pixels that every editor gets. The allowances around the text grow with the monitor's pixel
// density, as the rows and indents do; the one pixel per character does not.
struct EditorSpan {
    int left;
    int width;
};
struct EditorSpanInput {
    int cellLeft;
    int cellWidth;
    int clientWidth;
    int textWidth;   // drawn width of the cell text
    int textLength;  // characters
    EditorKind kind;
    int format;  // column alignment: 0 left, 1 right, 2 centre
    bool fullWidth;
    int scrollBarWidth;
    int dpi;  // the control's pixel density; 96 is 100 %
};
EditorSpan PlaceEditor(const EditorSpanInput& input);

// Whether an edit changed the cell: only a text that differs from the one the edit started with
// counts, so that a text written back unchanged, or typed back to what it was, is no change.
bool TextChangedDuringEdit(bool edited, std::u16string_view startText, std::u16string_view endText);

// The caret position for a click `offset` pixels into a text whose characters end at `extents`.
int CaretAtOffset(const std::vector<int>& extents, int offset);
