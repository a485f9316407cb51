#pragma once

#include <algorithm>
#include <vector>

// The outside places that refer to a material or profile: each registers the address of its
// pointer. A record with registered places is in use; when it is destroyed it nulls them all.
template <typename T>
class CQvxUsers {
public:
    void Register(T** slot) { slots_.push_back(slot); }
    void Unregister(T** slot) { std::erase(slots_, slot); }
    bool IsEmpty() const { return slots_.empty(); }
    std::size_t Count() const { return slots_.size(); }
    void Clear() { slots_.clear(); }

    // Points every registered place at `record`, the copy that now stands for the original.
    void PointAllAt(T* record) {
        for (T** slot : slots_) *slot = record;
    }

    // Tells every registered place that the record is gone.
    void ReleaseAll() {
        for (T** slot : slots_) *slot = nullptr;
        slots_.clear();
    }

private:
    std::vector<T**> slots_;
};
