#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "FixedText.h"
#include "Framework/CObject.h"
#include "_Velmora/CQvxProfil.h"
#include "_Velmora/CQvxUsers.h"
#include "_Velmora/MaterialExchangeRecord.h"
#include "_Velmora/MaterialTables.h"

class CQvxSezMaterialu;

// One pipe material of the catalogue: names, manufacturer, roughness, usage masks, pressure class,
// label rules, cross-section shape and its profiles keyed by DN index. Every change clears the
// owning list's `unchanged` flag.
class CQvxMaterial : public CObject {
public:
    // The profiles in ascending DN index, each beside its DN index. A material has a few dozen at
    // most, so a sorted array beats a tree: one allocation per profile instead of two, and reading,
    // walking and freeing a large catalogue stay in step with its size.
    using ProfileMap = std::vector<std::pair<int, std::unique_ptr<CQvxProfil>>>;
    using AffixText = FixedText<5>;  // 4 characters + terminator

    static constexpr std::size_t kManufacturerMaxLength = 25;

    // A material that a file read fills in.
    explicit CQvxMaterial(CQvxSezMaterialu* owner);
    // A new material of the editor; zero masks stand for "all".
    CQvxMaterial(CQvxSezMaterialu* owner, std::u16string_view uniqueName, int32_t placement, int32_t medium);
    // An exact copy for another list: every field, every profile (exact copies) and the users.
    CQvxMaterial(CQvxSezMaterialu* owner, const CQvxMaterial& source);
    ~CQvxMaterial() override;

    // Adds a profile for a DN index with its default dimensions. Returns nullptr when the index is
    // outside the DN table or already has a profile.
    CQvxProfil* AddProfile(int dnIndex);
    // Replaces all profiles with one per DN index from..to (inclusive; none when from > to).
    void GenerateSeries(int fromIndex, int toIndex);
    void DeleteAllProfiles();
    // Deletes the profile of a DN index; false (nothing changes) when there is none or it is used.
    bool DeleteProfile(int dnIndex);
    // Adds a copy of every profile of `other` whose DN index this material lacks.
    void AddMissingProfiles(const CQvxMaterial& other);
    // Takes over the editor's fields. Throws on a foreign name, a long manufacturer or a missing
    // PN/SDR choice; fields taken before the throw stay taken.
    void ApplyExchangeRecord(const MaterialExchangeRecord& record);
    // The fields as the editor's buffer; the roughness is given as a number.
    MaterialExchangeRecord MakeExchangeRecord() const;
    // Same names, manufacturer, DN indexes, diameters (within 0.001), walls (within 0.0001) and
    // material codes. Masks, roughness, classes and label rules do not take part.
    bool IsEqual(const CQvxMaterial& other) const;
    // This material covers `other`: same unique name, description and manufacturer, and a profile
    // of the same DN index, diameter, wall and material code for every profile of `other`.
    bool Covers(const CQvxMaterial& other) const;
    // Takes the descriptive fields of `source`: label rules, display name, description,
    // manufacturer, roughness, masks, PN, SDR and shape. Name, profiles, file index, owner and
    // users stay; the labels follow the new rules.
    void OverwriteFieldsFrom(const CQvxMaterial& source);

    // Writes the material record (with onlyUsed, only the profiles in use), or reads a record of any
    // known version. Reading the end marker of the list sets the file index to -1.
    using CObject::Serialize;
    virtual void Serialize(CArchive& archive, bool onlyUsed);

    int32_t FileIndex() const { return fileIndex_; }
    void SetFileIndex(int32_t index) { fileIndex_ = index; }
    DescriptionMode GetDescriptionMode() const { return descriptionMode_; }
    bool OnInnerDiameter() const { return onInnerDiameter_; }
    std::u16string_view Prefix() const { return prefix_.View(); }
    std::u16string_view Suffix() const { return suffix_.View(); }
    const std::u16string& UniqueName() const { return uniqueName_; }
    // Only the list renames, as it keys its map by the name.
    void SetUniqueName(std::u16string_view name) { uniqueName_ = name; }
    // The PN and SDR rows as a file stores them: -1 means that none was chosen, which the editor's
    // record cannot say.
    void SetClassIndexes(int32_t pnIndex, int32_t sdrIndex);
    const std::u16string& DisplayName() const { return displayName_; }
    const std::u16string& Description() const { return description_; }
    const std::u16string& Manufacturer() const { return manufacturer_; }
    float Roughness() const { return roughness_; }
    int32_t Placement() const { return placement_; }
    int32_t Medium() const { return medium_; }
    int32_t PnIndex() const { return pnIndex_; }
    int32_t SdrIndex() const { return sdrIndex_; }
    ProfileShape Shape() const { return shape_; }
    const ProfileMap& Profiles() const { return profiles_; }
    CQvxProfil* FindProfile(int dnIndex) const;
    CQvxSezMaterialu* Owner() const { return owner_; }
    // For a material its list lets go of while its users keep it: changes no longer reach the list.
    void DetachFromList() { owner_ = nullptr; }
    // For a material that another list takes over.
    void AttachToList(CQvxSezMaterialu* list) { owner_ = list; }
    CQvxUsers<CQvxMaterial>& Users() { return users_; }
    const CQvxUsers<CQvxMaterial>& Users() const { return users_; }

    // Clears the owning list's `unchanged` flag.
    void MarkChanged();

    // Re-keys `profile` under `newIndex` for CQvxProfil::SetDN; false when another profile holds it.
    bool MoveProfileKey(const CQvxProfil& profile, int newIndex);

private:
    void RebuildAllLabels();
    void Store(CArchive& archive, bool onlyUsed) const;
    void Load(CArchive& archive);
    void LoadProfiles(CArchive& archive, std::uint64_t count);
    // The first entry whose DN index is not below `dnIndex`.
    ProfileMap::iterator LowerBound(int dnIndex);
    ProfileMap::const_iterator LowerBound(int dnIndex) const;
    // Inserts `profile` under its DN index; nullptr (and `profile` is destroyed) when the index is held.
    CQvxProfil* InsertProfile(std::unique_ptr<CQvxProfil> profile);

    int32_t fileIndex_ = -2;
    DescriptionMode descriptionMode_ = DescriptionMode::DxT;
    AffixText prefix_;
    AffixText suffix_;
    bool onInnerDiameter_ = false;
    std::u16string uniqueName_;
    std::u16string displayName_;
    std::u16string description_;
    std::u16string manufacturer_;
    float roughness_ = 0.0f;
    int32_t placement_ = kPlacementAll;
    int32_t medium_ = kMediumAll;
    ProfileMap profiles_;
    CQvxSezMaterialu* owner_;
    int32_t pnIndex_ = -1;
    int32_t sdrIndex_ = -1;
    ProfileShape shape_ = ProfileShape::Circle;
    CQvxUsers<CQvxMaterial> users_;
};
