#include "Dialogs/IncrementalSearch.h"

#include <algorithm>

const std::u16string& IncrementalSearch::Type(char16_t character, std::uint32_t milliseconds) {
    const std::uint32_t pause = milliseconds - last_;
    const std::uint32_t allowed = text_.size() >= 3 ? 1000 : 750;
    const bool extends = !text_.empty() && text_.size() < kMaxLength && pause <= allowed;
    if (!extends) text_.clear();
    text_ += character;
    last_ = milliseconds;
    return text_;
}

TreeItem FindItemStartingWith(const std::vector<TreeItem>& visible, TreeItem current, const std::u16string& prefix,
                              const std::function<bool(TreeItem, const std::u16string&)>& beginsWith) {
    if (visible.empty() || prefix.empty()) return 0;
    const auto at = std::find(visible.begin(), visible.end(), current);
    std::size_t start = at == visible.end() ? 0 : static_cast<std::size_t>(at - visible.begin());
    if (at != visible.end() && prefix.size() == 1) start = (start + 1) % visible.size();
    for (std::size_t step = 0; step < visible.size(); ++step) {
        const TreeItem candidate = visible[(start + step) % visible.size()];
        if (beginsWith(candidate, prefix)) return candidate;
    }
    return 0;
}
