#pragma once

#include <cstdint>
#include <string_view>

#include "_Velmora/MaterialExchangeRecord.h"

class CQvxMaterial;
class CQvxSezMaterialu;

// The material editor's decisions that need no window: its edit modes and their transitions, which
// controls each mode enables, the field buffer for a material and for a new one, and how an edit is
// applied to the list.

enum class EditMode : int32_t { Browse = 0, Add = 1, Copy = 2, Edit = 3 };

enum class EditEvent {
    AddPressed,       // "+"
    CopyPressed,      // "%"
    EditPressed,      // "..." or a double click on a row
    ApplyAccepted,    // "Ulož.." took the edit
    ApplyRefused,     // "Ulož.." refused it (a value, an empty name, a name taken)
    RevertPressed,    // "Zruš.."
    ListRefilled,     // the list pane was filled again
};

// The mode after `event`. Copy and edit need a marked row; the material commands are disabled while
// an edit is open, so modes never nest; refilling the list abandons a copy or edit.
EditMode NextEditMode(EditMode mode, EditEvent event, bool rowMarked);

inline bool IsEditing(EditMode mode) {
    return mode != EditMode::Browse;
}

// The controls of the editor, in groups that change together.
enum class EditorGroup {
    MaterialFields,     // usage boxes, names, manufacturer, description, classes, roughness, label and shape radios
    ApplyButtons,       // "Ulož..", "Zruš.."
    MaterialList,       // the list pane
    MaterialCommands,   // "+", "X", "%", "..."
    FilterRadios,       // medium and placement radios
    LoadCommands,       // "Načíst ze souboru...", "Načíst standardní..."
    ProfilePane,        // the profile pane, its commands and the URS code edits
};

struct GroupState {
    bool enabled;
    bool visible;
};

// Editing enables the fields and shows the apply buttons and disables everything that would leave
// the material; browsing is the exact reverse, with the apply buttons hidden. The profile pane also
// needs a material to show (`materialShown`).
GroupState LayoutOf(EditorGroup group, EditMode mode, bool materialShown = true);

// The field buffer for `material`: its values, the roughness as text with five decimals, and the
// roughness number set aside so that applying takes the text.
MaterialExchangeRecord FieldsOf(const CQvxMaterial& material);
// The buffer of a new material: empty texts, roughness "0.01", the first PN and SDR rows, a circle,
// every placement and medium, and `descriptionMode`.
MaterialExchangeRecord NewMaterialFields(DescriptionMode descriptionMode);

// "Název:" lost the focus: the display name is trimmed and, when nothing is left, becomes the unique
// name. True when the buffer has to go back to the controls.
bool TakeDisplayNameFromUniqueName(MaterialExchangeRecord& fields);

// A usage box was cleared: true when it has to be checked again because no other box of its group
// is checked (`groupMask` is the group's mask after the click).
inline bool MustRecheckUsageBox(int32_t groupMask) {
    return groupMask == 0;
}

enum class ApplyOutcome {
    Applied,
    EmptyName,          // "Název nesmí být prázdný"
    NameTakenOnAdd,     // add or copy: the long message with "(přepněte filtry)"
    NameTakenOnRename,  // edit: the short message, without icon
};

// The message of a refusal; empty for Applied.
std::u16string_view ApplyRefusalText(ApplyOutcome outcome);

struct ApplyResult {
    ApplyOutcome outcome;
    CQvxMaterial* material;  // the new or renamed material when applied
};

// Applies the buffer in mode Add, Copy or Edit. Add and copy make a new material under the unique
// name (copy also takes every profile of `edited`); edit renames `edited` and takes the buffer.
// Throws CQvxException for an edited name over 20 characters and for fields the material refuses;
// a new material whose fields are refused is taken out of the list again.
ApplyResult ApplyMaterialEdit(CQvxSezMaterialu& list, EditMode mode, const MaterialExchangeRecord& fields,
                              CQvxMaterial* edited);

// "Drsnost [mm]:" as a whole: a decimal number from 0.01 to 3.0.
bool IsRoughnessText(const wchar_t* text);

// The description dialog's diameter radios ("Vnější průměr", "Vnitřní průměr"): the flag is 0 only
// when the first is checked, so that neither checked means the inner diameter.
inline int InnerDiameterFlagForRadio(int checkedPosition) {
    return checkedPosition == 0 ? 0 : 1;
}

// OK of the editor, after saving: the caller's list takes the working copy's records over (the
// working list is left empty), and every place that used a record of the caller's list is pointed
// at the record of the same name (and DN) that replaced it.
void HandBackToCaller(CQvxSezMaterialu& working, CQvxSezMaterialu& callers);
