#pragma once

#include <cstdint>
#include <string_view>

#include "FixedText.h"
#include "Framework/CObject.h"
#include "_Velmora/CQvxUsers.h"

class CQvxMaterial;

// One nominal size (DN) of a material: inner diameter, wall, width, two price-list codes and the
// two labels built from the material's description mode. The material owns its profiles, each
// under its DN index.
class CQvxProfil : public CObject {
public:
    using CodeText = FixedText<11>;       // 10 characters + terminator
    using LabelText = FixedText<15>;      // 14 characters + terminator
    using ShortLabelText = FixedText<6>;  // 5 characters + terminator

    // Bound of the code setters and of the copy: 10 units with the terminator, so 9 characters.
    static constexpr std::size_t kCodeCopyBound = 10;

    // An empty profile that a file read fills in: DN index -1, no labels yet.
    explicit CQvxProfil(CQvxMaterial& owner);
    // A profile for a new DN; the inner diameter holds the index until the material sets it.
    CQvxProfil(CQvxMaterial& owner, int dnIndex);
    // Copy for a copied or merged material: keeps the DN index, diameters, width, material code and
    // users; the installation code is deliberately not carried over.
    CQvxProfil(CQvxMaterial& owner, const CQvxProfil& source);
    // Exact copy for a copy of the whole catalogue: every field as it stands, labels and users too.
    struct ExactCopy {};
    CQvxProfil(CQvxMaterial& owner, const CQvxProfil& source, ExactCopy);
    ~CQvxProfil() override;

    int DnIndex() const { return dnIndex_; }
    float InnerDiameter() const { return innerDiameter_; }
    float Wall() const { return wall_; }
    float OuterDiameter() const { return innerDiameter_ + wall_ + wall_; }
    int32_t Width() const { return width_; }
    std::u16string_view UrsMaterialCode() const { return ursMaterialCode_.View(); }
    std::u16string_view UrsInstallCode() const { return ursInstallCode_.View(); }
    std::u16string_view Label() const { return label_.View(); }
    std::u16string_view ShortLabel() const { return shortLabel_.View(); }
    CQvxMaterial* Owner() const { return owner_; }
    CQvxUsers<CQvxProfil>& Users() { return users_; }
    const CQvxUsers<CQvxProfil>& Users() const { return users_; }

    // Moves the profile to another DN index of its material. Refuses (false) the current index, an
    // index outside the DN table and an index another profile holds. With `takeFromTable` the inner
    // diameter becomes the table's DN value.
    bool SetDN(int newIndex, bool takeFromTable);

    // Setters rebuild the labels where they depend on the value, and mark the catalogue changed.
    void SetInnerDiameter(float innerDiameter);
    void SetWall(float wall);
    void SetDimensions(float innerDiameter, float wall);
    void SetWidth(int32_t width);
    void SetUrsMaterialCode(std::u16string_view code);
    void SetUrsInstallCode(std::u16string_view code);

    // Rebuilds Label and ShortLabel from the owner's description mode; marks the catalogue changed.
    void BuildLabels();

    // Writes the newest profile record, or reads a record of any known version and rebuilds the
    // labels. Reading the end marker leaves the DN index at -1.
    void Serialize(CArchive& archive) override;

private:
    void MarkChanged();
    void Store(CArchive& archive) const;
    void Load(CArchive& archive);

    int dnIndex_ = -1;
    float innerDiameter_ = 0.0f;
    float wall_ = 0.0f;
    int32_t width_ = 0;
    CQvxMaterial* owner_;
    CodeText ursMaterialCode_;
    CodeText ursInstallCode_;
    LabelText label_;
    ShortLabelText shortLabel_;
    CQvxUsers<CQvxProfil> users_;
};
