#include "CataloguePrinter.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "TextCodec.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "_Velmora/CatalogueCsvFields.h"

namespace {

std::string Utf8(std::u16string_view text) {
    return ToUtf8(text);
}

// A value without a name, as "#" and its number. Appended rather than `"#" + std::to_string(...)`:
// GCC 12 at -O3 reports a bogus -Wrestrict overlap for a one-character literal prepended to a
// temporary string (GCC bug 105329).
std::string Unnamed(int32_t value) {
    std::string text(1, '#');
    text += std::to_string(value);
    return text;
}

std::string Named(int32_t value, std::span<const NamedValue> names) {
    if (const auto name = NameOfValue(value, names)) return Utf8(*name);
    return value == -1 ? "nezvoleno" : Unnamed(value);
}

std::string Flags(int32_t mask, std::span<const NamedValue> flags) {
    if (const auto text = FormatFlagSet(mask, flags)) return Utf8(*text);
    return Unnamed(mask);
}

std::string Formatted(const char* format, double value) {
    char text[64];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

// Pads to a width in characters (not bytes), on the left for numbers.
std::string Padded(const std::string& text, std::size_t width, bool alignRight = false) {
    const auto characters = static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
    const std::string fill(width > characters ? width - characters : 0, ' ');
    return alignRight ? fill + text : text + fill;
}

std::string LabelRule(const CQvxMaterial& material) {
    std::string rule = Named(int32_t(material.GetDescriptionMode()), CsvFieldNames::DescriptionModes());
    if (material.GetDescriptionMode() == DescriptionMode::Custom) {
        rule += " („" + Utf8(material.Prefix()) + "“ + " +
                (material.OnInnerDiameter() ? "vnitřní průměr" : "vnější průměr") + " + „" + Utf8(material.Suffix()) +
                "“)";
    }
    return rule;
}

// A table row without the blanks that pad its last, often empty, columns.
void PrintRow(std::string row, std::ostream& out) {
    row.erase(row.find_last_not_of(' ') + 1);
    out << row << '\n';
}

void PrintProfiles(const CQvxMaterial& material, std::ostream& out) {
    if (material.Profiles().empty()) {
        out << "  (bez profilů)\n";
        return;
    }
    const bool circle = material.Shape() == ProfileShape::Circle;
    PrintRow("  " + Padded("Profil", 14) + Padded("DN", 9) + Padded("OD", 9, true) + Padded("Stěna", 8, true) +
                 Padded(circle ? "ID" : "Výška", 9, true) + Padded(circle ? "" : "Šířka", 7, true) + "  " +
                 Padded("Kód URS mat.", 13) + "Kód URS mont.",
             out);
    for (const auto& [dnIndex, profile] : material.Profiles()) {
        PrintRow("  " + Padded(Utf8(profile->Label()), 14) + Padded(Named(dnIndex, CsvFieldNames::DnLabels()), 9) +
                     Padded(Formatted("%.1f", profile->OuterDiameter()), 9, true) +
                     Padded(Formatted("%.2f", profile->Wall()), 8, true) +
                     Padded(Formatted("%.1f", profile->InnerDiameter()), 9, true) +
                     Padded(circle ? "" : std::to_string(profile->Width()), 7, true) + "  " +
                     Padded(Utf8(profile->UrsMaterialCode()), 13) + Utf8(profile->UrsInstallCode()),
                 out);
    }
}

void PrintMaterial(const CQvxMaterial& material, std::ostream& out) {
    out << '\n' << Utf8(material.UniqueName()) << '\n';
    out << "  Podrobný popis: " << Utf8(material.Description()) << '\n';
    out << "  Výrobce: " << (material.Manufacturer().empty() ? "(neuveden)" : Utf8(material.Manufacturer())) << '\n';
    out << "  Uložení: " << Flags(material.Placement(), CsvFieldNames::Placement())
        << " | Médium: " << Flags(material.Medium(), CsvFieldNames::Medium()) << '\n';
    out << "  Drsnost: " << FormatCsvNumber(material.Roughness()) << " mm"
        << " | Tl. třída: " << Named(material.PnIndex(), CsvFieldNames::PnLabels())
        << " | SDr: " << Named(material.SdrIndex(), CsvFieldNames::SdrLabels()) << '\n';
    out << "  Popis profilů: " << LabelRule(material)
        << " | Tvar: " << Named(int32_t(material.Shape()), CsvFieldNames::Shapes()) << '\n';
    PrintProfiles(material, out);
}

}  // namespace

void PrintCatalogue(const CQvxSezMaterialu& list, std::string_view title, std::ostream& out) {
    std::size_t profiles = 0;
    for (const auto& [name, material] : list.Materials()) profiles += material->Profiles().size();
    out << title << ": materiálů " << list.Materials().size() << ", profilů " << profiles << '\n';
    for (const auto& [name, material] : list.Materials()) PrintMaterial(*material, out);
}
