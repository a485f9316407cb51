#pragma once

#include <map>
#include <string>
#include <utility>

#include "RegistryValues.h"

// Folder values held in memory, present only where a test put them, under the maker's key.
class FakeRegistryValues final : public CRegistryValues {
public:
    void Set(Hive hive, std::u16string name, std::u16string value) {
        values_[{hive, std::move(name)}] = std::move(value);
    }

    std::optional<std::u16string> ReadString(Hive hive, std::u16string_view key, std::u16string_view name) override {
        if (key != u"Software\\Quorvex\\") return std::nullopt;
        const auto found = values_.find({hive, std::u16string(name)});
        if (found == values_.end()) return std::nullopt;
        return found->second;
    }

private:
    std::map<std::pair<Hive, std::u16string>, std::u16string> values_;
};
