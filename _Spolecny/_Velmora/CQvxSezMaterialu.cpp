#include "_Velmora/CQvxSezMaterialu.h"

#include <limits>

#include "CQvxException.h"
#include "Framework/CArchive.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CatalogueFormat.h"

using namespace CatalogueFormat;

namespace {

constexpr int kLineNewerList = 257;
// Lists up to version 2 end in three words that nothing reads any more.
constexpr std::uint64_t kOldTrailerBytes = 3 * 4;

}  // namespace

CQvxSezMaterialu::CQvxSezMaterialu() = default;

CQvxSezMaterialu::~CQvxSezMaterialu() = default;

std::pair<CQvxMaterial*, bool> CQvxSezMaterialu::Insert(std::u16string_view name,
                                                        std::unique_ptr<CQvxMaterial>& material) {
    const auto found = materials_.find(name);
    if (found != materials_.end()) return {found->second.get(), false};
    CQvxMaterial* inserted = material.get();
    materials_.emplace(std::u16string(name), std::move(material));
    return {inserted, true};
}

CQvxMaterial* CQvxSezMaterialu::Find(std::u16string_view name) const {
    const auto found = materials_.find(name);
    return found == materials_.end() ? nullptr : found->second.get();
}

void CQvxSezMaterialu::Serialize(CArchive& archive, bool onlyUsed) {
    if (archive.IsStoring()) {
        Store(archive, onlyUsed);
    } else {
        Load(archive, onlyUsed);
    }
}

void CQvxSezMaterialu::Store(CArchive& archive, bool onlyUsed) {
    archive.WriteByte(kListVersion);
    std::int32_t written = 0;
    for (const auto& [name, material] : materials_) {
        if (onlyUsed) {
            if (material->Users().IsEmpty()) continue;
            material->SetFileIndex(written);
        }
        material->Serialize(archive, onlyUsed);
        ++written;
    }
    archive.WriteByte(kEndMarker);
}

void CQvxSezMaterialu::Load(CArchive& archive, bool onlyUsed) {
    const std::uint8_t version = archive.ReadByte();
    if (version > kListVersion) throw CQvxException(kNewerVersion, kLineNewerList, SourceModule::kMaterialList);

    // Versions 0 and 1 count their materials; later ones run to the end marker.
    const std::uint64_t count = version <= 1 ? archive.ReadUInt64() : std::numeric_limits<std::uint64_t>::max();
    for (std::uint64_t position = 0; position < count; ++position) {
        auto incoming = std::make_unique<CQvxMaterial>(this);
        incoming->Serialize(archive, onlyUsed);
        if (incoming->FileIndex() == -1) break;
        const auto [held, inserted] = Insert(incoming->UniqueName(), incoming);
        held->SetFileIndex(static_cast<std::int32_t>(position));
    }
    if (version <= 2) archive.Skip(kOldTrailerBytes);
    unchanged_ = true;
}
