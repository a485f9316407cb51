#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "Dialogs/TreeListModel.h"

// The text typed to find an item by its beginning. A character extends the text when it follows
// the previous one within 750 ms while one or two characters are collected, within 1000 ms once
// three or more are; otherwise, and after 16 characters, the text starts afresh with it.
class IncrementalSearch {
public:
    static constexpr std::size_t kMaxLength = 16;

    // A character typed at `milliseconds` (a running clock); returns the text to look for.
    const std::u16string& Type(char16_t character, std::uint32_t milliseconds);
    const std::u16string& Text() const { return text_; }

private:
    std::u16string text_;
    std::uint32_t last_ = 0;
};

// The first of `visible` whose text begins with `prefix`, looking from the current item (after it
// for a one-character prefix, so that typing the same letter again moves on) and round to the
// start; 0 when none does.
TreeItem FindItemStartingWith(const std::vector<TreeItem>& visible, TreeItem current, const std::u16string& prefix,
                              const std::function<bool(TreeItem, const std::u16string&)>& beginsWith);
