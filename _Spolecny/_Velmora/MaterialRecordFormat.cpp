// The material and profile records of the catalogue file, in every version the reader knows.

#include <limits>

#include "CQvxException.h"
#include "FixedTextField.h"
#include "Framework/CArchive.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxProfil.h"
#include "_Velmora/CatalogueFormat.h"

using namespace CatalogueFormat;

namespace {

constexpr int kLineNewerMaterial = 357;
constexpr int kLineDuplicateProfile = 411;
constexpr int kLineNewerProfile = 447;

// Profile versions below 3 predate "DN 225" (row 15): their indexes from 15 on are one lower.
constexpr std::uint8_t kFirstProfileVersionWithDn225 = 3;
constexpr int kInsertedDnRow = 15;

std::u16string ReadTextField(CArchive& archive, std::size_t capacity, bool terminated) {
    return terminated ? ReadTerminatedTextField(archive, capacity) : ReadFixedFormTextField(archive, capacity);
}

// A field read holds at most its capacity in characters, which the record's buffer always takes.
static_assert(CQvxProfil::CodeText::kCapacity == kCodeField + 1);
static_assert(CQvxMaterial::AffixText::kCapacity == kAffixField + 1);

}  // namespace

void CQvxProfil::Serialize(CArchive& archive) {
    if (archive.IsStoring()) {
        Store(archive);
    } else {
        Load(archive);
    }
}

void CQvxProfil::Store(CArchive& archive) const {
    archive.WriteByte(kProfileVersion);
    archive.WriteInt16(static_cast<std::int16_t>(dnIndex_));
    archive.WriteFloat(innerDiameter_);
    archive.WriteFloat(wall_);
    archive.WriteInt32(width_);
    WriteFixedTextField(archive, UrsMaterialCode(), kCodeField);
    WriteFixedTextField(archive, UrsInstallCode(), kCodeField);
}

void CQvxProfil::Load(CArchive& archive) {
    const std::uint8_t version = archive.ReadByte();
    if (version == kEndMarker) {
        dnIndex_ = -1;
        return;
    }
    if (version > kProfileVersion) throw CQvxException(kNewerVersion, kLineNewerProfile, SourceModule::kMaterial);

    dnIndex_ = archive.ReadInt16();
    if (version < kFirstProfileVersionWithDn225 && dnIndex_ >= kInsertedDnRow) ++dnIndex_;
    innerDiameter_ = archive.ReadFloat();
    wall_ = archive.ReadFloat();
    if (version <= 6) archive.Skip(4);  // a word no longer used
    if (version >= 5) width_ = archive.ReadInt32();
    ursMaterialCode_.Assign(ReadTextField(archive, kCodeField, version >= 4));
    if (version >= 5) ursInstallCode_.Assign(ReadTerminatedTextField(archive, kCodeField));
    if (version <= 5) {
        // The label used to be stored; it is always rebuilt now.
        ReadTextField(archive, version < 2 ? kOldLabelField : kLabelField, version >= 4);
    }
    BuildLabels();
}

void CQvxMaterial::Serialize(CArchive& archive, bool onlyUsed) {
    if (archive.IsStoring()) {
        Store(archive, onlyUsed);
    } else {
        Load(archive);
    }
}

void CQvxMaterial::Store(CArchive& archive, bool onlyUsed) const {
    archive.WriteByte(kMaterialVersionWritten);
    archive.WriteByte(static_cast<std::uint8_t>(descriptionMode_));
    archive.WriteByte(onInnerDiameter_ ? 1 : 0);
    WriteFixedTextField(archive, Prefix(), kAffixField);
    WriteFixedTextField(archive, Suffix(), kAffixField);
    archive.WriteString(uniqueName_);
    archive.WriteString(description_);
    archive.WriteString(manufacturer_);
    archive.WriteFloat(roughness_);
    archive.WriteInt16(static_cast<std::int16_t>(medium_));
    archive.WriteInt16(static_cast<std::int16_t>(placement_));
    archive.WriteInt16(static_cast<std::int16_t>(pnIndex_));
    archive.WriteInt16(static_cast<std::int16_t>(sdrIndex_));
    archive.WriteByte(static_cast<std::uint8_t>(shape_));
    for (const auto& [dnIndex, profile] : profiles_) {
        if (!onlyUsed || !profile->Users().IsEmpty()) profile->Serialize(archive);
    }
    archive.WriteByte(kEndMarker);
}

void CQvxMaterial::Load(CArchive& archive) {
    const std::uint8_t version = archive.ReadByte();
    if (version == kEndMarker) {
        fileIndex_ = -1;
        return;
    }
    if (version > kMaterialVersionNewest) {
        throw CQvxException(kNewerVersion, kLineNewerMaterial, SourceModule::kMaterial);
    }

    if (version <= 2) {
        // Before label rules existed a material was labelled either by DN or as D x t.
        descriptionMode_ = archive.ReadByte() != 0 ? DescriptionMode::Dn : DescriptionMode::DxT;
    } else {
        descriptionMode_ = static_cast<DescriptionMode>(archive.ReadByte());
        onInnerDiameter_ = archive.ReadByte() != 0;
        const bool terminated = version >= 4;
        prefix_.Assign(ReadTextField(archive, kAffixField, terminated));
        suffix_.Assign(ReadTextField(archive, kAffixField, terminated));
    }
    uniqueName_ = archive.ReadString();
    description_ = archive.ReadString();
    manufacturer_ = archive.ReadString();
    roughness_ = archive.ReadFloat();
    medium_ = NormalisedMedium(archive.ReadInt16());
    placement_ = NormalisedPlacement(archive.ReadInt16());
    pnIndex_ = archive.ReadInt16();
    sdrIndex_ = archive.ReadInt16();
    if (version >= 5) shape_ = static_cast<ProfileShape>(archive.ReadByte());

    // Versions 0 and 1 count their profiles; later ones run to the end marker.
    const std::uint64_t count = version <= 1 ? archive.ReadUInt64() : std::numeric_limits<std::uint64_t>::max();
    LoadProfiles(archive, count);

    displayName_ = version >= 6 ? archive.ReadString() : uniqueName_;
}

void CQvxMaterial::LoadProfiles(CArchive& archive, std::uint64_t count) {
    for (std::uint64_t read = 0; read < count; ++read) {
        auto profile = std::make_unique<CQvxProfil>(*this);
        profile->Serialize(archive);
        if (profile->DnIndex() == -1) return;
        if (InsertProfile(std::move(profile)) == nullptr) {
            throw CQvxException(u"Nelze vložit nový profil", kLineDuplicateProfile, SourceModule::kMaterial);
        }
        MarkChanged();
    }
}
