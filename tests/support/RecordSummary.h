#pragma once

#include <charconv>
#include <string>

#include "TextCodec.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "_Velmora/CatalogueCsv.h"

// Every field of a record on one line, so that a test states all it expects of a read, an import
// or an edit in one comparison, and a failure shows each field beside the expected one:
//   name (display name) 'description' 'manufacturer' placement/medium k roughness PN/SDR
//   label mode on inner or outer diameter 'prefix' 'suffix' shape [roughness text]
// and for each profile, on a line of its own:
//   DN index: inner diameter x wall, width, 'material code' 'install code' [label short label]
// The texts are built by appending only: GCC 12 at -O3 reports a bogus -Wrestrict overlap for a
// literal put before a temporary string (GCC bug 105329).
class RecordSummary {
public:
    RecordSummary& operator<<(std::string_view text) {
        text_ += text;
        return *this;
    }
    RecordSummary& operator<<(std::u16string_view text) { return *this << std::string_view(ToUtf8(text)); }
    RecordSummary& operator<<(int value) { return *this << std::string_view(std::to_string(value)); }
    // The shortest text that reads back as the same float: 0.01f is "0.01".
    RecordSummary& operator<<(float value) {
        char text[32];
        return *this << std::string_view(
                   text, static_cast<std::size_t>(std::to_chars(text, text + sizeof text, value).ptr - text));
    }
    RecordSummary& Quoted(std::u16string_view text) { return *this << "'" << text << "'"; }

    const std::string& Text() const { return text_; }

private:
    std::string text_;
};

inline void Summarise(RecordSummary& out, const MaterialExchangeRecord& r) {
    out << r.uniqueName << " (" << r.displayName << ") ";
    out.Quoted(r.description) << " ";
    out.Quoted(r.manufacturer) << " " << r.placement << "/" << r.medium << " k " << static_cast<float>(r.roughness)
                               << " " << r.pnIndex << "/" << r.sdrIndex << " mode "
                               << static_cast<int>(r.descriptionMode) << (r.onInnerDiameter ? " inner " : " outer ");
    out.Quoted(r.prefix) << " ";
    out.Quoted(r.suffix) << " shape " << static_cast<int>(r.shape);
    if (!r.roughnessText.empty()) (out << " ").Quoted(r.roughnessText);
}

inline void Summarise(RecordSummary& out, const CsvProfileRecord& p) {
    out << "\n" << p.dnIndex << ": " << p.innerDiameter << " x " << p.wall << ", " << p.width << ", ";
    out.Quoted(p.ursMaterialCode) << " ";
    out.Quoted(p.ursInstallCode);
}

inline void Summarise(RecordSummary& out, const CsvMaterialRecord& material) {
    Summarise(out, material.fields);
    for (const CsvProfileRecord& profile : material.profiles) Summarise(out, profile);
}

// A material adds its file index; its profiles add their labels.
inline void Summarise(RecordSummary& out, const CQvxMaterial& material) {
    Summarise(out, material.MakeExchangeRecord());
    out << " #" << material.FileIndex();
    for (const auto& [dnIndex, p] : material.Profiles()) {
        Summarise(out, CsvProfileRecord{dnIndex, p->InnerDiameter(), p->Wall(), p->Width(),
                                        std::u16string(p->UrsMaterialCode()), std::u16string(p->UrsInstallCode())});
        out << " [" << p->Label() << " " << p->ShortLabel() << "]";
    }
}

// The materials of a list in key order, one after the other.
inline void Summarise(RecordSummary& out, const CQvxSezMaterialu& list) {
    for (const auto& [name, material] : list.Materials()) {
        if (!out.Text().empty()) out << "\n";
        Summarise(out, *material);
    }
}

template <typename Record>
std::string Summary(const Record& record) {
    RecordSummary out;
    Summarise(out, record);
    return out.Text();
}
