#include "_Velmora/CatalogueCsvFields.h"

#include <array>
#include <charconv>
#include <cmath>

#include "_Velmora/MaterialTables.h"

namespace {

constexpr std::array<NamedValue, 2> kPlacement = {{
    {u"ZTI", kPlacementIndoor},
    {u"Inženýrské sítě", kPlacementNetworks},
}};

constexpr std::array<NamedValue, 5> kMedium = {{
    {u"Kanalizace", kMediumSewage},
    {u"Kan. tlaková", kMediumPressureSewage},
    {u"Voda", kMediumWater},
    {u"Plyn", kMediumGas},
    {u"Teplovody/UT", kMediumHeating},
}};

constexpr std::array<NamedValue, 3> kModes = {{
    {u"DN", int32_t(DescriptionMode::Dn)},
    {u"D x t", int32_t(DescriptionMode::DxT)},
    {u"Jiný", int32_t(DescriptionMode::Custom)},
}};

constexpr std::array<NamedValue, 2> kLabelDiameters = {{
    {u"Vnější průměr", 0},
    {u"Vnitřní průměr", 1},
}};

constexpr std::array<NamedValue, 5> kShapes = {{
    {u"Kruh", int32_t(ProfileShape::Circle)},
    {u"Vejce", int32_t(ProfileShape::EggVienna)},
    {u"Vejce - Praha", int32_t(ProfileShape::EggPrague)},
    {u"Tlama", int32_t(ProfileShape::Mouth)},
    {u"Obdélník", int32_t(ProfileShape::Rectangle)},
}};

// The labels of a fixed table, valued by row index.
template <typename Row, std::size_t N>
std::array<NamedValue, N> RowLabels(std::span<const Row, N> rows) {
    std::array<NamedValue, N> labels{};
    for (std::size_t i = 0; i < N; ++i) labels[i] = {rows[i].label, static_cast<int32_t>(i)};
    return labels;
}

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace

namespace CsvFieldNames {
std::span<const NamedValue> Placement() {
    return kPlacement;
}
std::span<const NamedValue> Medium() {
    return kMedium;
}
std::span<const NamedValue> DescriptionModes() {
    return kModes;
}
std::span<const NamedValue> LabelDiameters() {
    return kLabelDiameters;
}
std::span<const NamedValue> Shapes() {
    return kShapes;
}

std::span<const NamedValue> DnLabels() {
    static const auto labels = RowLabels(DnTable());
    return labels;
}

std::span<const NamedValue> PnLabels() {
    static const auto labels = RowLabels(PnTable());
    return labels;
}

std::span<const NamedValue> SdrLabels() {
    static const auto labels = RowLabels(SdrTable());
    return labels;
}
}  // namespace CsvFieldNames

std::string FormatCsvNumber(float value) {
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
    return std::string(buffer.data(), result.ptr);
}

std::optional<float> ParseCsvNumber(std::string_view text) {
    std::string number(Trimmed(text));
    for (char& c : number) {
        if (c == ',') c = '.';
    }
    if (number.starts_with('+')) number.erase(0, 1);
    float value = 0.0f;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (number.empty() || error != std::errc() || end != number.data() + number.size() || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

std::optional<int32_t> ParseCsvWholeNumber(std::string_view text) {
    const std::string_view number = Trimmed(text);
    int32_t value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (number.empty() || error != std::errc() || end != number.data() + number.size()) return std::nullopt;
    return value;
}

std::optional<int32_t> ParseNamedValue(std::u16string_view text, std::span<const NamedValue> names) {
    for (const NamedValue& name : names) {
        if (name.text == text) return name.value;
    }
    return std::nullopt;
}

std::optional<std::u16string_view> NameOfValue(int32_t value, std::span<const NamedValue> names) {
    for (const NamedValue& name : names) {
        if (name.value == value) return name.text;
    }
    return std::nullopt;
}

std::optional<int32_t> ParseFlagSet(std::u16string_view text, std::span<const NamedValue> flags) {
    int32_t mask = 0;
    while (true) {
        const std::size_t joiner = text.find(kFlagJoiner);
        const std::optional<int32_t> flag = ParseNamedValue(text.substr(0, joiner), flags);
        if (!flag) return std::nullopt;
        mask |= *flag;
        if (joiner == std::u16string_view::npos) return mask;
        text.remove_prefix(joiner + 1);
    }
}

std::optional<std::u16string> FormatFlagSet(int32_t mask, std::span<const NamedValue> flags) {
    std::u16string text;
    int32_t named = 0;
    for (const NamedValue& flag : flags) {
        if ((mask & flag.value) == 0) continue;
        if (!text.empty()) text.push_back(kFlagJoiner);
        text += flag.text;
        named |= flag.value;
    }
    if (mask == 0 || named != mask) return std::nullopt;
    return text;
}

std::u16string ListNames(std::span<const NamedValue> names) {
    std::u16string list;
    for (const NamedValue& name : names) {
        if (!list.empty()) list += u", ";
        list += name.text;
    }
    return list;
}
