#pragma once

#include "Framework/CObject.h"

// The catalogue in memory. Materials and profiles clear its `unchanged` flag whenever they
// change; a completed read or save sets it again.
class CQvxSezMaterialu : public CObject {
public:
    CQvxSezMaterialu() = default;

    bool IsUnchanged() const { return unchanged_; }
    void SetUnchanged(bool unchanged) { unchanged_ = unchanged; }
    void MarkChanged() { unchanged_ = false; }

private:
    bool unchanged_ = true;
};
