#include "RegistryValues.h"

namespace {

class CNoRegistryValues final : public CRegistryValues {
public:
    std::optional<std::u16string> ReadString(Hive, std::u16string_view, std::u16string_view) override {
        return std::nullopt;
    }
};

CNoRegistryValues g_noValues;
CRegistryValues* g_installed = nullptr;

}  // namespace

CRegistryValues& RegistryValues() {
    return g_installed ? *g_installed : g_noValues;
}

CRegistryValues* SetRegistryValues(CRegistryValues* values) {
    CRegistryValues* previous = g_installed;
    g_installed = values;
    return previous;
}
