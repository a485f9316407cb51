#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "Framework/CObject.h"

class CQvxMaterial;

// The catalogue in memory: materials keyed by unique name, ordered by plain comparison of UTF-16
// code units (case-sensitive). Materials and profiles clear its `unchanged` flag whenever they
// change; a completed read or save sets it again.
class CQvxSezMaterialu : public CObject {
public:
    using MaterialMap = std::map<std::u16string, std::unique_ptr<CQvxMaterial>, std::less<>>;

    CQvxSezMaterialu();
    ~CQvxSezMaterialu() override;

    const MaterialMap& Materials() const { return materials_; }
    std::size_t Count() const { return materials_.size(); }

    // Unique insertion under `name`. Takes `material` only when the name is new; otherwise returns
    // the material already held, with false, and leaves `material` with the caller.
    std::pair<CQvxMaterial*, bool> Insert(std::u16string_view name, std::unique_ptr<CQvxMaterial>& material);
    CQvxMaterial* Find(std::u16string_view name) const;

    // Writes the list (with onlyUsed, only the materials in use, numbered as they are written), or
    // reads a catalogue stream into it without emptying it first.
    using CObject::Serialize;
    virtual void Serialize(CArchive& archive, bool onlyUsed);

    bool IsUnchanged() const { return unchanged_; }
    void SetUnchanged(bool unchanged) { unchanged_ = unchanged; }
    void MarkChanged() { unchanged_ = false; }

private:
    void Store(CArchive& archive, bool onlyUsed);
    void Load(CArchive& archive, bool onlyUsed);

    MaterialMap materials_;
    bool unchanged_ = true;
};
