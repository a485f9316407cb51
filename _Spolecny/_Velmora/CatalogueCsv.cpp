#include "_Velmora/CatalogueCsv.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <optional>
#include <span>

#include "Csv.h"
#include "TextCodec.h"
#include "_Velmora/CatalogueCsvFields.h"

namespace {

constexpr std::size_t kNameMaxLength = 20;
constexpr std::size_t kManufacturerMaxLength = 25;
constexpr std::size_t kAffixMaxLength = 3;  // catalogue files keep three characters of a prefix or suffix
constexpr std::size_t kCodeMaxLength = 9;
constexpr double kOuterDiameterTolerance = 0.01;
constexpr std::string_view kNotUtf8 = "Text není v kódování UTF-8 (uložte list jako CSV v UTF-8).";

enum MaterialColumn {
    kName,
    kDescription,
    kManufacturer,
    kPlacement,
    kMedium,
    kRoughness,
    kPn,
    kSdr,
    kMode,
    kPrefix,
    kSuffix,
    kLabelDiameter,
    kShape,
    kMaterialColumnCount
};
constexpr std::array<std::string_view, kMaterialColumnCount> kMaterialHeaders = {
    "Název", "Podrobný popis", "Výrobce", "Uložení", "Médium",          "Drsnost [mm]", "Tl. třída",
    "SDr",   "Způsob popisu",  "Prefix",  "Suffix",  "Průměr v popisu", "Tvar",
};

enum ProfileColumn { kMaterial, kDn, kOuter, kWall, kInner, kWidth, kMaterialCode, kInstallCode, kProfileColumnCount };
constexpr std::array<std::string_view, kProfileColumnCount> kProfileHeaders = {
    "Materiál", "DN", "OD [mm]", "Stěna [mm]", "ID / výška [mm]", "Šířka [mm]", "Kód URS materiál", "Kód URS montáž",
};

struct SheetLayout {
    std::string_view name;
    std::span<const std::string_view> headers;
    int optionalColumn;  // may be left out of the sheet
};

constexpr SheetLayout kMaterialsSheet{kMaterialsSheetName, kMaterialHeaders, -1};
constexpr SheetLayout kProfilesSheet{kProfilesSheetName, kProfileHeaders, kOuter};

std::string Quoted(std::string_view text) {
    return "„" + std::string(text) + "“";
}
std::string Quoted(std::u16string_view text) {
    return Quoted(ToUtf8(text));
}
std::string Number(std::size_t number) {
    return std::to_string(number);
}

// "1 sloupec", "3 sloupce", "12 sloupců"
std::string Counted(std::size_t count, std::string_view one, std::string_view few, std::string_view many) {
    return Number(count) + " " + std::string(count == 1 ? one : count >= 2 && count <= 4 ? few : many);
}

bool IsValidUtf8(const std::string& text) {
    return ToUtf8(FromUtf8(text)) == text;
}

// A data row of a sheet with its fields in the order of the sheet's columns.
struct SheetRow {
    std::size_t line = 0;
    std::vector<std::string> fields;

    const std::string& operator[](int column) const { return fields[static_cast<std::size_t>(column)]; }
};

class ProblemLog {
public:
    ProblemLog(std::vector<CatalogueCsvProblem>& problems, std::string_view sheet)
        : problems_(problems), sheet_(sheet) {}

    void Add(std::size_t line, std::string_view message) { problems_.push_back({sheet_, line, std::string(message)}); }
    std::size_t Count() const { return problems_.size(); }

private:
    std::vector<CatalogueCsvProblem>& problems_;
    std::string_view sheet_;
};

// Which field of a record holds each column of the sheet (-1: none); nullopt after a problem.
std::optional<std::vector<int>> MapColumns(const SheetLayout& layout, const CsvRecord& header, ProblemLog& log) {
    const std::size_t problemsBefore = log.Count();
    std::vector<int> fieldOf(layout.headers.size(), -1);
    for (std::size_t field = 0; field < header.fields.size(); ++field) {
        const std::string& title = header.fields[field];
        const auto known = std::find(layout.headers.begin(), layout.headers.end(), title);
        if (title.empty()) {
            log.Add(header.line, "Sloupec č. " + Number(field + 1) + " nemá v záhlaví název.");
        } else if (known == layout.headers.end()) {
            log.Add(header.line, "Neznámý sloupec " + Quoted(title) + ".");
        } else if (int& slot = fieldOf[static_cast<std::size_t>(known - layout.headers.begin())]; slot >= 0) {
            log.Add(header.line, "Sloupec " + Quoted(title) + " je v záhlaví dvakrát.");
        } else {
            slot = static_cast<int>(field);
        }
    }
    for (std::size_t column = 0; column < fieldOf.size(); ++column) {
        if (fieldOf[column] < 0 && static_cast<int>(column) != layout.optionalColumn) {
            log.Add(header.line, "Chybí sloupec " + Quoted(layout.headers[column]) + ".");
        }
    }
    if (log.Count() != problemsBefore) return std::nullopt;
    return fieldOf;
}

// The data rows of a sheet whose header and shape are sound; problems go to the log.
std::vector<SheetRow> ReadSheet(const SheetLayout& layout, std::string_view text, ProblemLog& log) {
    const CsvDocument document = ParseCsv(text);
    std::vector<SheetRow> rows;
    auto record =
        std::find_if(document.records.begin(), document.records.end(), [](const CsvRecord& r) { return !r.IsBlank(); });
    if (record == document.records.end()) {
        if (!document.error) log.Add(1, "List je prázdný, chybí řádek záhlaví.");
    } else if (!std::all_of(record->fields.begin(), record->fields.end(), IsValidUtf8)) {
        log.Add(record->line, kNotUtf8);  // most likely a spreadsheet's export in the Windows code page
    } else if (const auto fieldOf = MapColumns(layout, *record, log)) {
        const std::size_t width = record->fields.size();
        for (++record; record != document.records.end(); ++record) {
            if (record->IsBlank()) continue;
            if (record->fields.size() != width) {
                log.Add(record->line, "Řádek má " + Counted(record->fields.size(), "sloupec", "sloupce", "sloupců") +
                                          ", záhlaví " + Counted(width, "sloupec", "sloupce", "sloupců") + ".");
                continue;
            }
            if (!std::all_of(record->fields.begin(), record->fields.end(), IsValidUtf8)) {
                log.Add(record->line, kNotUtf8);
                continue;
            }
            SheetRow row{record->line, {}};
            for (int field : *fieldOf)
                row.fields.push_back(field < 0 ? std::string() : record->fields[std::size_t(field)]);
            rows.push_back(std::move(row));
        }
    }
    if (document.error) log.Add(document.error->line, document.error->message);
    return rows;
}

// Reads the fields of one row, logging each field that is not valid.
class RowReader {
public:
    RowReader(const SheetLayout& layout, const SheetRow& row, ProblemLog& log) : layout_(layout), row_(row), log_(log) {}

    std::u16string Text(int column, std::size_t maxLength = std::u16string::npos) {
        std::u16string text = FromUtf8(row_[column]);
        if (text.size() > maxLength) {
            Problem("Text " + Quoted(text) + " ve sloupci " + Quoted(Header(column)) + " je delší než " +
                    Counted(maxLength, "znak", "znaky", "znaků") + ".");
        }
        return text;
    }

    float Decimal(int column) {
        if (const auto value = ParseCsvNumber(row_[column])) return *value;
        Problem("Neplatné číslo " + Quoted(row_[column]) + " ve sloupci " + Quoted(Header(column)) + ".");
        return 0.0f;
    }

    int32_t Whole(int column) {
        if (row_[column].empty()) return 0;
        if (const auto value = ParseCsvWholeNumber(row_[column])) return *value;
        Problem("Neplatné celé číslo " + Quoted(row_[column]) + " ve sloupci " + Quoted(Header(column)) + ".");
        return 0;
    }

    int32_t Named(int column, std::span<const NamedValue> names) {
        const std::u16string text = FromUtf8(row_[column]);
        if (const auto value = ParseNamedValue(text, names)) return *value;
        Problem("Neznámá hodnota " + Quoted(text) + " ve sloupci " + Quoted(Header(column)) +
                "; platné jsou: " + ToUtf8(ListNames(names)) + ".");
        return 0;
    }

    // An empty field stands for "none chosen" (-1).
    int32_t NamedOrNone(int column, std::span<const NamedValue> names) {
        return row_[column].empty() ? -1 : Named(column, names);
    }

    int32_t Flags(int column, std::span<const NamedValue> flags) {
        const std::u16string text = FromUtf8(row_[column]);
        if (const auto mask = ParseFlagSet(text, flags)) return *mask;
        Problem("Neplatná hodnota " + Quoted(text) + " ve sloupci " + Quoted(Header(column)) + "; platné jsou názvy " +
                ToUtf8(ListNames(flags)) + " spojené znakem +.");
        return 0;
    }

    bool IsEmpty(int column) const { return row_[column].empty(); }
    void Problem(std::string message) { log_.Add(row_.line, std::move(message)); }

private:
    std::string_view Header(int column) const { return layout_.headers[static_cast<std::size_t>(column)]; }

    const SheetLayout& layout_;
    const SheetRow& row_;
    ProblemLog& log_;
};

MaterialExchangeRecord ReadMaterialFields(RowReader& reader) {
    MaterialExchangeRecord fields;
    fields.uniqueName = reader.Text(kName, kNameMaxLength);
    if (fields.uniqueName.empty()) reader.Problem("Materiál nemá název.");
    fields.displayName = fields.uniqueName;
    fields.description = reader.Text(kDescription);
    fields.manufacturer = reader.Text(kManufacturer, kManufacturerMaxLength);
    fields.placement = reader.Flags(kPlacement, CsvFieldNames::Placement());
    fields.medium = reader.Flags(kMedium, CsvFieldNames::Medium());
    const float roughness = reader.Decimal(kRoughness);
    fields.roughness = roughness;
    fields.roughnessText = FromUtf8(FormatCsvNumber(roughness));
    fields.pnIndex = reader.NamedOrNone(kPn, CsvFieldNames::PnLabels());
    fields.sdrIndex = reader.NamedOrNone(kSdr, CsvFieldNames::SdrLabels());
    fields.descriptionMode = DescriptionMode(reader.Named(kMode, CsvFieldNames::DescriptionModes()));
    fields.prefix = reader.Text(kPrefix, kAffixMaxLength);
    fields.suffix = reader.Text(kSuffix, kAffixMaxLength);
    fields.onInnerDiameter = reader.Named(kLabelDiameter, CsvFieldNames::LabelDiameters()) != 0;
    fields.shape = ProfileShape(reader.Named(kShape, CsvFieldNames::Shapes()));
    return fields;
}

CsvProfileRecord ReadProfileFields(RowReader& reader) {
    CsvProfileRecord profile;
    profile.dnIndex = reader.Named(kDn, CsvFieldNames::DnLabels());
    profile.wall = reader.Decimal(kWall);
    profile.innerDiameter = reader.Decimal(kInner);
    profile.width = reader.Whole(kWidth);
    profile.ursMaterialCode = reader.Text(kMaterialCode, kCodeMaxLength);
    profile.ursInstallCode = reader.Text(kInstallCode, kCodeMaxLength);
    return profile;
}

// The outer diameter as the sheet shows it: ID + 2 x wall to a hundredth, without trailing zeros.
std::string FormatOuterDiameter(const CsvProfileRecord& profile) {
    const double outer = double(profile.innerDiameter) + 2.0 * double(profile.wall);
    std::array<char, 64> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.2f", outer);
    std::string text(buffer.data());
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text == "-0" ? "0" : text;
}

void CheckOuterDiameter(RowReader& reader, const CsvProfileRecord& profile) {
    if (reader.IsEmpty(kOuter)) return;
    const float given = reader.Decimal(kOuter);
    const double outer = double(profile.innerDiameter) + 2.0 * double(profile.wall);
    if (std::fabs(double(given) - outer) > kOuterDiameterTolerance) {
        reader.Problem("OD " + FormatCsvNumber(given) +
                       " nesouhlasí s ID + 2 × stěna = " + FormatOuterDiameter(profile) + ".");
    }
}

class CatalogueCsvReader {
public:
    explicit CatalogueCsvReader(CatalogueCsvContent& content) : content_(content) {}

    void ReadMaterials(std::string_view text) {
        ProblemLog log(content_.problems, kMaterialsSheet.name);
        for (const SheetRow& row : ReadSheet(kMaterialsSheet, text, log)) {
            RowReader reader(kMaterialsSheet, row, log);
            CsvMaterialRecord material{ReadMaterialFields(reader), {}};
            const auto [known, added] =
                materialByName_.try_emplace(material.fields.uniqueName, Entry{content_.materials.size(), row.line, {}});
            if (!added) {
                reader.Problem("Materiál " + Quoted(material.fields.uniqueName) + " je už na řádku " +
                               Number(known->second.line) + ".");
                continue;
            }
            content_.materials.push_back(std::move(material));
        }
    }

    void ReadProfiles(std::string_view text) {
        ProblemLog log(content_.problems, kProfilesSheet.name);
        for (const SheetRow& row : ReadSheet(kProfilesSheet, text, log)) {
            RowReader reader(kProfilesSheet, row, log);
            const std::u16string name = reader.Text(kMaterial);
            const std::size_t problemsBefore = log.Count();
            const CsvProfileRecord profile = ReadProfileFields(reader);
            if (log.Count() == problemsBefore) CheckOuterDiameter(reader, profile);
            const auto material = materialByName_.find(name);
            if (material == materialByName_.end()) {
                reader.Problem("Materiál " + Quoted(name) + " není v listu " + std::string(kMaterialsSheetName) + ".");
                continue;
            }
            if (log.Count() != problemsBefore) continue;
            Entry& entry = material->second;
            const auto [taken, added] = entry.lineOfDn.try_emplace(profile.dnIndex, row.line);
            if (!added) {
                reader.Problem("Materiál " + Quoted(name) + " už má profil " +
                               Quoted(CsvFieldNames::DnLabels()[std::size_t(profile.dnIndex)].text) + " na řádku " +
                               Number(taken->second) + ".");
                continue;
            }
            content_.materials[entry.index].profiles.push_back(profile);
        }
        for (CsvMaterialRecord& material : content_.materials) {
            std::sort(material.profiles.begin(), material.profiles.end(),
                      [](const CsvProfileRecord& a, const CsvProfileRecord& b) { return a.dnIndex < b.dnIndex; });
        }
    }

private:
    struct Entry {
        std::size_t index;
        std::size_t line;
        std::map<int, std::size_t> lineOfDn;
    };

    CatalogueCsvContent& content_;
    std::map<std::u16string, Entry> materialByName_;
};

// Texts of a material's fields that come from fixed tables; throws when a value has none.
class FieldWriter {
public:
    explicit FieldWriter(const MaterialExchangeRecord& fields) : fields_(fields) {}

    std::string Named(int32_t value, std::span<const NamedValue> names, std::string_view column) const {
        if (const auto text = NameOfValue(value, names)) return ToUtf8(*text);
        throw Unrepresentable(std::to_string(value), column);
    }

    std::string NamedOrNone(int32_t value, std::span<const NamedValue> names, std::string_view column) const {
        return value == -1 ? std::string() : Named(value, names, column);
    }

    std::string Flags(int32_t mask, std::span<const NamedValue> flags, std::string_view column) const {
        if (const auto text = FormatFlagSet(mask, flags)) return ToUtf8(*text);
        throw Unrepresentable(std::to_string(mask), column);
    }

    CatalogueCsvExportError Unrepresentable(const std::string& value, std::string_view column) const {
        return CatalogueCsvExportError("Materiál " + Quoted(fields_.uniqueName) + ": hodnotu " + value +
                                       " nelze zapsat do sloupce " + Quoted(column) + ", není v tabulce programu.");
    }

private:
    const MaterialExchangeRecord& fields_;
};

std::vector<std::string> MaterialRow(const MaterialExchangeRecord& fields) {
    const FieldWriter writer(fields);
    std::vector<std::string> row(kMaterialColumnCount);
    row[kName] = ToUtf8(fields.uniqueName);
    row[kDescription] = ToUtf8(fields.description);
    row[kManufacturer] = ToUtf8(fields.manufacturer);
    row[kPlacement] = writer.Flags(fields.placement, CsvFieldNames::Placement(), kMaterialHeaders[kPlacement]);
    row[kMedium] = writer.Flags(fields.medium, CsvFieldNames::Medium(), kMaterialHeaders[kMedium]);
    row[kRoughness] = FormatCsvNumber(static_cast<float>(fields.roughness));
    row[kPn] = writer.NamedOrNone(fields.pnIndex, CsvFieldNames::PnLabels(), kMaterialHeaders[kPn]);
    row[kSdr] = writer.NamedOrNone(fields.sdrIndex, CsvFieldNames::SdrLabels(), kMaterialHeaders[kSdr]);
    row[kMode] =
        writer.Named(int32_t(fields.descriptionMode), CsvFieldNames::DescriptionModes(), kMaterialHeaders[kMode]);
    row[kPrefix] = ToUtf8(fields.prefix);
    row[kSuffix] = ToUtf8(fields.suffix);
    row[kLabelDiameter] =
        writer.Named(fields.onInnerDiameter ? 1 : 0, CsvFieldNames::LabelDiameters(), kMaterialHeaders[kLabelDiameter]);
    row[kShape] = writer.Named(int32_t(fields.shape), CsvFieldNames::Shapes(), kMaterialHeaders[kShape]);
    return row;
}

std::vector<std::string> ProfileRow(const MaterialExchangeRecord& fields, const CsvProfileRecord& profile) {
    std::vector<std::string> row(kProfileColumnCount);
    row[kMaterial] = ToUtf8(fields.uniqueName);
    row[kDn] = FieldWriter(fields).Named(profile.dnIndex, CsvFieldNames::DnLabels(), kProfileHeaders[kDn]);
    row[kOuter] = FormatOuterDiameter(profile);
    row[kWall] = FormatCsvNumber(profile.wall);
    row[kInner] = FormatCsvNumber(profile.innerDiameter);
    row[kWidth] = profile.width == 0 ? std::string() : std::to_string(profile.width);
    row[kMaterialCode] = ToUtf8(profile.ursMaterialCode);
    row[kInstallCode] = ToUtf8(profile.ursInstallCode);
    return row;
}

template <std::size_t N>
std::vector<std::string> HeaderRow(const std::array<std::string_view, N>& headers) {
    return std::vector<std::string>(headers.begin(), headers.end());
}

}  // namespace

std::string CatalogueCsvProblem::Describe() const {
    return std::string(sheet) + ", řádek " + std::to_string(line) + ": " + message;
}

CatalogueCsvContent ReadCatalogueCsv(const CatalogueCsvSheets& sheets) {
    CatalogueCsvContent content;
    CatalogueCsvReader reader(content);
    reader.ReadMaterials(sheets.materials);
    const std::size_t profileProblems = content.problems.size();
    reader.ReadProfiles(sheets.profiles);

    // A row's shape is checked before its fields: give each sheet's problems in the order of its lines.
    const auto byLine = [](const CatalogueCsvProblem& a, const CatalogueCsvProblem& b) { return a.line < b.line; };
    const auto firstOfProfiles = content.problems.begin() + static_cast<std::ptrdiff_t>(profileProblems);
    std::stable_sort(content.problems.begin(), firstOfProfiles, byLine);
    std::stable_sort(firstOfProfiles, content.problems.end(), byLine);
    return content;
}

CatalogueCsvSheets WriteCatalogueCsv(const std::vector<CsvMaterialRecord>& materials) {
    std::vector<std::vector<std::string>> materialRows{HeaderRow(kMaterialHeaders)};
    std::vector<std::vector<std::string>> profileRows{HeaderRow(kProfileHeaders)};
    for (const CsvMaterialRecord& material : materials) {
        materialRows.push_back(MaterialRow(material.fields));
        for (const CsvProfileRecord& profile : material.profiles) {
            profileRows.push_back(ProfileRow(material.fields, profile));
        }
    }
    return {FormatCsv(materialRows), FormatCsv(profileRows)};
}
