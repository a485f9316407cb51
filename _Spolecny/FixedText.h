#pragma once

#include <array>
#include <cstddef>
#include <string_view>

// A short wide text in a fixed buffer of `Capacity` UTF-16 units, terminator included, as the
// records keep their codes, prefixes and labels. It never holds more than Capacity - 1 units.
template <std::size_t Capacity>
class FixedText {
    static_assert(Capacity >= 1);

public:
    static constexpr std::size_t kCapacity = Capacity;

    // Bounded copy: takes `text` only when it is shorter than `bound` units (the bound counts the
    // terminator, so at most bound - 1 characters fit). Returns false and keeps the old text otherwise.
    bool Assign(std::u16string_view text, std::size_t bound = Capacity) {
        if (bound > Capacity || text.size() >= bound) return false;
        units_.fill(0);
        text.copy(units_.data(), text.size());
        return true;
    }

    void Clear() { units_.fill(0); }

    std::u16string_view View() const { return std::u16string_view(units_.data()); }
    const char16_t* CStr() const { return units_.data(); }
    bool IsEmpty() const { return units_[0] == 0; }

    friend bool operator==(const FixedText& a, const FixedText& b) { return a.View() == b.View(); }

private:
    std::array<char16_t, Capacity> units_{};
};
