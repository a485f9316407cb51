#include "_Velmora/CQvxSezMaterialu.h"

#include <iterator>
#include <limits>

#include "CQvxException.h"
#include "Framework/CArchive.h"
#include "UserMessages.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CatalogueFormat.h"

using namespace CatalogueFormat;

namespace {

constexpr int kLineNewerList = 257;
// Lists up to version 2 end in three words that nothing reads any more.
constexpr std::uint64_t kOldTrailerBytes = 3 * 4;

// "Ano všem" and "Ne všem" answer every later conflict of the read: the for-all bit plus yes or no.
std::uint32_t OverwriteAnswer(unsigned button) {
    using namespace TaskDialogButtons;
    if (button == kYesToAll) return kForAll | kYes;
    if (button == kNoToAll) return kForAll | kNo;
    return button;
}

}  // namespace

CQvxSezMaterialu::CQvxSezMaterialu() = default;

CQvxSezMaterialu::~CQvxSezMaterialu() {
    Clear(false);
}

void CQvxSezMaterialu::Clear(bool keepUsed) {
    // The materials are freed in key order, the order a file's were made in: the map's own clearing
    // visits them in tree order, which jumps around the heap and took twice as long for a large
    // catalogue.
    for (auto& [name, material] : materials_) {
        if (keepUsed && !material->Users().IsEmpty()) {
            material->DetachFromList();
            material.release();  // owned by its users from now on
        } else {
            material.reset();
        }
    }
    materials_.clear();
    unchanged_ = true;
}

CQvxSezMaterialu& CQvxSezMaterialu::AssignFrom(const CQvxSezMaterialu& source) {
    if (&source == this) return *this;
    Clear(true);
    for (const auto& [name, material] : source.materials_) {
        // In key order, so each copy goes to the end. It takes the source's users along.
        materials_.emplace_hint(materials_.end(), name, std::make_unique<CQvxMaterial>(this, *material));
    }
    unchanged_ = source.unchanged_;
    userFileStamp_ = source.userFileStamp_;
    return *this;
}

void CQvxSezMaterialu::TakeFrom(CQvxSezMaterialu& source) {
    if (&source == this) return;
    Clear(true);
    materials_.swap(source.materials_);
    for (auto& [name, material] : materials_) material->AttachToList(this);
    unchanged_ = source.unchanged_;
    userFileStamp_ = source.userFileStamp_;
    source.unchanged_ = true;
}

std::pair<CQvxMaterial*, bool> CQvxSezMaterialu::Insert(std::u16string_view name,
                                                        std::unique_ptr<CQvxMaterial>& material) {
    // Files and copies come in key order, so a name after the last one is the usual case: it goes
    // to the end without a search down the tree, whose nodes a large catalogue has long evicted
    // from the caches.
    auto position = materials_.end();
    if (!materials_.empty() && !(std::prev(position)->first < name)) {
        position = materials_.lower_bound(name);
        if (position != materials_.end() && position->first == name) return {position->second.get(), false};
    }
    CQvxMaterial* inserted = material.get();
    materials_.emplace_hint(position, std::u16string(name), std::move(material));
    return {inserted, true};
}

CQvxMaterial* CQvxSezMaterialu::Find(std::u16string_view name) const {
    const auto found = materials_.find(name);
    return found == materials_.end() ? nullptr : found->second.get();
}

bool CQvxSezMaterialu::RenameMaterial(std::u16string_view newName, CQvxMaterial& material) {
    const CQvxMaterial* holder = Find(newName);
    if (holder != nullptr && holder != &material) return false;
    const auto current = materials_.find(material.UniqueName());
    if (current == materials_.end() || current->second.get() != &material) return false;
    auto node = materials_.extract(current);
    node.key() = newName;
    material.SetUniqueName(newName);
    materials_.insert(std::move(node));
    unchanged_ = false;
    return true;
}

bool CQvxSezMaterialu::RemoveMaterial(std::u16string_view name) {
    const auto found = materials_.find(name);
    if (found == materials_.end() || !found->second->Users().IsEmpty()) return false;
    materials_.erase(found);
    unchanged_ = false;
    return true;
}

void CQvxSezMaterialu::ResetFileIndices() {
    for (auto& [name, material] : materials_) material->SetFileIndex(-2);
}

void CQvxSezMaterialu::ClearUsage() {
    for (auto& [name, material] : materials_) {
        material->Users().Clear();
        for (auto& [dnIndex, profile] : material->Profiles()) profile->Users().Clear();
    }
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

// Reading adds to what the list holds. A material of a name already held is kept silently when it
// is the same (catalogue files: IsEqual; a project's used materials: Covers); otherwise the user
// decides whether its fields overwrite the list's. Missing profiles are added whatever the answer.
void CQvxSezMaterialu::Load(CArchive& archive, bool onlyUsed) {
    ResetFileIndices();
    rememberedAnswer_ = 0;
    bool updated = false;
    const std::uint8_t version = archive.ReadByte();
    if (version > kListVersion) throw CQvxException(kNewerVersion, kLineNewerList, SourceModule::kMaterialList);

    // Versions 0 and 1 count their materials; later ones run to the end marker.
    const std::uint64_t count = version <= 1 ? archive.ReadUInt64() : std::numeric_limits<std::uint64_t>::max();
    for (std::uint64_t position = 0; position < count; ++position) {
        auto incoming = std::make_unique<CQvxMaterial>(this);
        incoming->Serialize(archive, onlyUsed);
        if (incoming->FileIndex() == -1) break;
        const auto [held, inserted] = Insert(incoming->UniqueName(), incoming);
        if (!inserted) {
            const bool same = onlyUsed ? held->Covers(*incoming) : held->IsEqual(*incoming);
            if (!same && Merge(*held, *incoming)) updated = true;
        }
        held->SetFileIndex(static_cast<std::int32_t>(position));
    }
    if (version <= 2) archive.Skip(kOldTrailerBytes);
    unchanged_ = true;
    rememberedAnswer_ = 0;

    if (updated && UserMessages().AskSaveUpdated()) SaveCatalogue();
}

bool CQvxSezMaterialu::Merge(CQvxMaterial& existing, const CQvxMaterial& incoming) {
    const std::uint32_t answer = rememberedAnswer_ != 0
                                     ? rememberedAnswer_
                                     : OverwriteAnswer(UserMessages().AskOverwrite(incoming.UniqueName()));
    existing.AddMissingProfiles(incoming);
    const bool overwrite = (answer & TaskDialogButtons::kYes) != 0;
    if (overwrite) existing.OverwriteFieldsFrom(incoming);
    if ((answer & TaskDialogButtons::kForAll) != 0) rememberedAnswer_ = answer;
    return overwrite;
}
