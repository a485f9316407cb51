#pragma once

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string_view>

#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "support/ArchiveBytes.h"

// A new material (D x t labels, all masks) inserted into `list` under `name`.
inline CQvxMaterial& AddMaterial(CQvxSezMaterialu& list, std::u16string_view name) {
    auto material = std::make_unique<CQvxMaterial>(&list, name, kPlacementAll, kMediumAll);
    return *list.Insert(name, material).first;
}

// Changes the editor's buffer of `material` with `change` and applies it, as the editor does. A PN or
// SDR row of none (-1, which the buffer refuses) becomes "---" first.
template <typename Change>
void EditMaterial(CQvxMaterial& material, Change&& change) {
    MaterialExchangeRecord record = material.MakeExchangeRecord();
    record.pnIndex = std::max(record.pnIndex, 0);
    record.sdrIndex = std::max(record.sdrIndex, 0);
    change(record);
    material.ApplyExchangeRecord(record);
}

// A new material used for `placement` and `medium` (their bit masks).
inline CQvxMaterial& AddUsedFor(CQvxSezMaterialu& list, std::u16string_view name, int32_t placement, int32_t medium) {
    CQvxMaterial& material = AddMaterial(list, name);
    EditMaterial(material, [&](MaterialExchangeRecord& record) {
        record.placement = placement;
        record.medium = medium;
    });
    return material;
}

inline Bytes WriteCatalogue(CQvxSezMaterialu& list, bool onlyUsed = false) {
    return StoredBytes([&](CArchive& archive) { list.Serialize(archive, onlyUsed); });
}

// Reads a catalogue stream into `list`; returns how many bytes it left unread.
inline std::uint64_t ReadCatalogue(CQvxSezMaterialu& list, const Bytes& bytes, bool onlyUsed = false) {
    return LoadBytes(bytes, [&](CArchive& archive) { list.Serialize(archive, onlyUsed); });
}

// The material or profile a test expects to be there; its absence fails the test (as an exception).
inline const CQvxMaterial& MaterialNamed(const CQvxSezMaterialu& list, std::u16string_view name) {
    const CQvxMaterial* material = list.Find(name);
    if (material == nullptr) throw std::runtime_error("no material of that name");
    return *material;
}

inline const CQvxProfil& ProfileAt(const CQvxMaterial& material, int dnIndex) {
    const CQvxProfil* profile = material.FindProfile(dnIndex);
    if (profile == nullptr) throw std::runtime_error("no profile at that DN index");
    return *profile;
}
