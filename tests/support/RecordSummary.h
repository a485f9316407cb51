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
namespace RecordSummary {

// The shortest text that reads back as the same float: 0.01f is "0.01".
inline std::string Number(float value) {
    char text[32];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

inline std::string Quoted(std::u16string_view text) {
    return "'" + ToUtf8(text) + "'";
}

}  // namespace RecordSummary

inline std::string Summary(const MaterialExchangeRecord& r) {
    using namespace RecordSummary;
    return ToUtf8(r.uniqueName) + " (" + ToUtf8(r.displayName) + ") " + Quoted(r.description) + " " +
           Quoted(r.manufacturer) + " " + std::to_string(r.placement) + "/" + std::to_string(r.medium) + " k " +
           Number(static_cast<float>(r.roughness)) + " " + std::to_string(r.pnIndex) + "/" +
           std::to_string(r.sdrIndex) + " mode " + std::to_string(static_cast<int>(r.descriptionMode)) +
           (r.onInnerDiameter ? " inner " : " outer ") + Quoted(r.prefix) + " " + Quoted(r.suffix) + " shape " +
           std::to_string(static_cast<int>(r.shape)) + (r.roughnessText.empty() ? "" : " " + Quoted(r.roughnessText));
}

inline std::string Summary(const CsvProfileRecord& p) {
    using namespace RecordSummary;
    return std::to_string(p.dnIndex) + ": " + Number(p.innerDiameter) + " x " + Number(p.wall) + ", " +
           std::to_string(p.width) + ", " + Quoted(p.ursMaterialCode) + " " + Quoted(p.ursInstallCode);
}

inline std::string Summary(const CsvMaterialRecord& m) {
    std::string text = Summary(m.fields);
    for (const CsvProfileRecord& profile : m.profiles) text += "\n" + Summary(profile);
    return text;
}

// A material adds its file index; its profiles add their labels.
inline std::string Summary(const CQvxMaterial& m) {
    std::string text = Summary(m.MakeExchangeRecord()) + " #" + std::to_string(m.FileIndex());
    for (const auto& [dnIndex, p] : m.Profiles()) {
        text += "\n" +
                Summary(CsvProfileRecord{dnIndex, p->InnerDiameter(), p->Wall(), p->Width(),
                                         std::u16string(p->UrsMaterialCode()), std::u16string(p->UrsInstallCode())}) +
                " [" + ToUtf8(p->Label()) + " " + ToUtf8(p->ShortLabel()) + "]";
    }
    return text;
}

// The materials of a list in key order, one summary after the other.
inline std::string Summary(const CQvxSezMaterialu& list) {
    std::string text;
    for (const auto& [name, material] : list.Materials()) text += (text.empty() ? "" : "\n") + Summary(*material);
    return text;
}
