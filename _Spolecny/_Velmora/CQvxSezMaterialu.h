#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Framework/CObject.h"
#include "Framework/FileSystem.h"

class CQvxMaterial;

// The catalogue in memory: materials keyed by unique name, ordered by plain comparison of UTF-16
// code units (case-sensitive, no folding). The list owns its materials. Materials and profiles
// clear its `unchanged` flag whenever they change; a completed read or save sets it again.
class CQvxSezMaterialu : public CObject {
public:
    using MaterialMap = std::map<std::u16string, std::unique_ptr<CQvxMaterial>, std::less<>>;

    CQvxSezMaterialu();
    ~CQvxSezMaterialu() override;

    const MaterialMap& Materials() const { return materials_; }
    std::size_t Count() const { return materials_.size(); }

    // Deletes the materials; with keepUsed, materials in use are only let go of (their users keep
    // them). The list ends empty and unchanged.
    void Clear(bool keepUsed);
    // Deep copy of `source` (materials, profiles, users, the unchanged flag, what the user's
    // catalogue held when read or saved); nothing for itself.
    CQvxSezMaterialu& AssignFrom(const CQvxSezMaterialu& source);
    // Takes every material of `source` over, as they are (users included), with its unchanged flag
    // and what its user's catalogue held; `source` is left empty. This list's own materials go as
    // Clear(true) lets them.
    void TakeFrom(CQvxSezMaterialu& source);
    // Unique insertion under `name`. Takes `material` only when the name is new; otherwise returns
    // the material already held, with false, and leaves `material` with the caller.
    std::pair<CQvxMaterial*, bool> Insert(std::u16string_view name, std::unique_ptr<CQvxMaterial>& material);
    CQvxMaterial* Find(std::u16string_view name) const;
    // Re-keys a material of this list under `newName`; false when another material holds the name.
    bool RenameMaterial(std::u16string_view newName, CQvxMaterial& material);
    // Deletes the material of `name`; false (and nothing changes) when there is none or it is used.
    bool RemoveMaterial(std::u16string_view name);
    void ResetFileIndices();
    // Empties the users of every material and every profile.
    void ClearUsage();

    // Writes the list (with onlyUsed, only the materials in use, numbered as they are written), or
    // reads a catalogue stream into it without emptying it first: a material of a name already
    // held is merged, asking the user whether to overwrite it (see Load).
    using CObject::Serialize;
    virtual void Serialize(CArchive& archive, bool onlyUsed);

    // Reads the user's catalogue, or the standard one (and then the list counts as changed). When
    // the user's catalogue cannot be opened the standard one is read instead and saved at once as
    // the user's. Reports every failure itself except a malformed file, whose CArchiveException
    // passes to the caller. True when a file was read. The user's catalogue's stamp is remembered
    // even when its content turns out malformed or too new.
    bool LoadCatalogue(bool standard);
    // Writes the user's catalogue, creating its folder; an empty list writes nothing. The file is
    // replaced in one step and its previous version kept as "Potrubi.qxp.bak"; a file that another
    // program has written since this list read or saved it is replaced only when the user says so.
    // Reports every failure itself, leaving the file as it was. True when saved or nothing was to
    // be saved.
    bool SaveCatalogue();

    bool IsUnchanged() const { return unchanged_; }
    void SetUnchanged(bool unchanged) { unchanged_ = unchanged; }
    void MarkChanged() { unchanged_ = false; }

private:
    void Store(CArchive& archive, bool onlyUsed);
    void Load(CArchive& archive, bool onlyUsed);
    // Merges a material read from a stream into the one of the same name; true when its fields were
    // overwritten.
    bool Merge(CQvxMaterial& existing, const CQvxMaterial& incoming);
    bool ReadCatalogueFile(bool standard);
    bool WriteCatalogueFile();

    MaterialMap materials_;
    bool unchanged_ = true;
    // The user's catalogue as this list last read or wrote it; none before either.
    std::optional<FileStamp> userFileStamp_;
    // The overwrite answer the user gave for every remaining conflict of the current read; 0 if none.
    std::uint32_t rememberedAnswer_ = 0;
};
