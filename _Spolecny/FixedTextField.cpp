#include "FixedTextField.h"

#include <algorithm>

#include "CQvxException.h"
#include "Framework/CArchive.h"

namespace {

constexpr int kLineNotTerminated = 625;

}  // namespace

void WriteFixedTextField(CArchive& archive, std::u16string_view text, std::size_t capacity) {
    const std::u16string_view kept = text.substr(0, capacity > 0 ? capacity - 1 : 0);
    for (char16_t unit : kept) archive.WriteUInt16(unit);
    archive.WriteUInt16(0);
}

std::u16string ReadTerminatedTextField(CArchive& archive, std::size_t capacity) {
    std::u16string text;
    for (std::size_t read = 0; read <= capacity; ++read) {
        const char16_t unit = archive.ReadUInt16();
        if (unit == 0) return text;
        text.push_back(unit);
    }
    throw CQvxException(u"Načítaný řetězec není ukončen nulou", kLineNotTerminated, SourceModule::kFunkce);
}

std::u16string ReadFixedFormTextField(CArchive& archive, std::size_t capacity) {
    std::u16string units(capacity + 1, u'\0');
    for (char16_t& unit : units) unit = archive.ReadUInt16();
    const std::size_t end = std::min(units.find(u'\0'), capacity);
    units.resize(end);
    return units;
}
