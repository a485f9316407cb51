#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// Text forms of the catalogue's fields in its CSV sheets. Fields that hold a row of a fixed table
// or a set of flags are written with the texts the editor shows for them.

// A value of a fixed set and the text that names it.
struct NamedValue {
    std::u16string_view text;
    int32_t value;
};

namespace CsvFieldNames {
// Placement and medium flags; a set is written as its names joined by '+', in bit order.
std::span<const NamedValue> Placement();
std::span<const NamedValue> Medium();
std::span<const NamedValue> DescriptionModes();
std::span<const NamedValue> LabelDiameters();  // the diameter a custom label shows: 0 outer, 1 inner
std::span<const NamedValue> Shapes();
std::span<const NamedValue> DnLabels();  // "DN 8" ... "DN 1200" by row
std::span<const NamedValue> PnLabels();  // "---", "PN 6" ... by row
std::span<const NamedValue> SdrLabels();
}  // namespace CsvFieldNames

inline constexpr char16_t kFlagJoiner = u'+';

// The shortest text that reads back as the same float, with a full stop ("0.01", "110", "8.2").
std::string FormatCsvNumber(float value);
// A finite decimal number; a comma counts as the decimal point, blanks around it are ignored.
std::optional<float> ParseCsvNumber(std::string_view text);
std::optional<int32_t> ParseCsvWholeNumber(std::string_view text);

std::optional<int32_t> ParseNamedValue(std::u16string_view text, std::span<const NamedValue> names);
std::optional<std::u16string_view> NameOfValue(int32_t value, std::span<const NamedValue> names);

// A non-empty set of names joined by '+'; nullopt when a part is no name of the set.
std::optional<int32_t> ParseFlagSet(std::u16string_view text, std::span<const NamedValue> flags);
// nullopt for an empty mask or a mask with bits that have no name.
std::optional<std::u16string> FormatFlagSet(int32_t mask, std::span<const NamedValue> flags);

// "a, b, c" for messages that list the valid texts.
std::u16string ListNames(std::span<const NamedValue> names);
