#include "_Velmora/CQvxProfil.h"

#include <cstdio>
#include <string>

#include "CQvxException.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/MaterialTables.h"

namespace {

// Lines of the label formats, as users see them in the failure text.
constexpr int kLineDnLabel = 28;
constexpr int kLineDnShortLabel = 30;
constexpr int kLineOuterShortLabel = 36;
constexpr int kLineDxtLabel = 41;
constexpr int kLineCustomInnerLabel = 47;
constexpr int kLineCustomOuterLabel = 52;
constexpr int kLineCopyCode = 76;
constexpr int kLineSetCode = 155;

// printf formatting of numbers; labels use the C library's own rounding.
template <typename... Numbers>
std::string FormatNumbers(const char* format, Numbers... numbers) {
    const int length = std::snprintf(nullptr, 0, format, numbers...);
    if (length <= 0) return {};
    std::string text(static_cast<std::size_t>(length), '\0');
    std::snprintf(text.data(), text.size() + 1, format, numbers...);
    return text;
}

// Stores prefix + number + suffix in a label buffer. A text that does not fit, or a number that
// could not be formatted, throws "Nepodařilo se vytvořit popis" with the format's line.
template <std::size_t Capacity>
void StoreLabel(FixedText<Capacity>& label, std::u16string_view prefix, const std::string& number,
                std::u16string_view suffix, int line) {
    std::u16string text(prefix);
    text.append(number.begin(), number.end());  // the formatted number is plain ASCII
    text.append(suffix);
    if (number.empty() || !label.Assign(text)) {
        throw CQvxException(u"Nepodařilo se vytvořit popis", line, SourceModule::kMaterial);
    }
}

}  // namespace

CQvxProfil::CQvxProfil(CQvxMaterial& owner) : owner_(&owner) {}

CQvxProfil::CQvxProfil(CQvxMaterial& owner, int dnIndex)
    : dnIndex_(dnIndex), innerDiameter_(static_cast<float>(dnIndex)), owner_(&owner) {
    BuildLabels();
}

CQvxProfil::CQvxProfil(CQvxMaterial& owner, const CQvxProfil& source)
    : dnIndex_(source.dnIndex_),
      innerDiameter_(source.innerDiameter_),
      wall_(source.wall_),
      owner_(&owner),
      users_(source.users_) {
    if (!ursMaterialCode_.Assign(source.UrsMaterialCode(), kCodeCopyBound)) {
        throw CQvxException(u"Chyba při kopírování řetězce", kLineCopyCode, SourceModule::kMaterial);
    }
    BuildLabels();
}

CQvxProfil::~CQvxProfil() { users_.ReleaseAll(); }

bool CQvxProfil::SetDN(int newIndex, bool takeFromTable) {
    if (newIndex == dnIndex_) return false;
    const DnRow* row = FindDnRow(newIndex);
    if (row == nullptr) return false;
    if (!owner_->MoveProfileKey(*this, newIndex)) return false;
    dnIndex_ = newIndex;
    if (takeFromTable) innerDiameter_ = row->value;
    BuildLabels();
    return true;
}

void CQvxProfil::SetInnerDiameter(float innerDiameter) { SetDimensions(innerDiameter, wall_); }

void CQvxProfil::SetWall(float wall) { SetDimensions(innerDiameter_, wall); }

void CQvxProfil::SetDimensions(float innerDiameter, float wall) {
    innerDiameter_ = innerDiameter;
    wall_ = wall;
    BuildLabels();
}

void CQvxProfil::SetWidth(int32_t width) {
    width_ = width;
    MarkChanged();
}

void CQvxProfil::SetUrsMaterialCode(std::u16string_view code) {
    if (!ursMaterialCode_.Assign(code, kCodeCopyBound)) {
        throw CQvxException(u"Chyba kopírování řetězce", kLineSetCode, SourceModule::kMaterial);
    }
    MarkChanged();
}

void CQvxProfil::SetUrsInstallCode(std::u16string_view code) {
    if (!ursInstallCode_.Assign(code, kCodeCopyBound)) {
        throw CQvxException(u"Chyba kopírování řetězce", kLineSetCode, SourceModule::kMaterial);
    }
    MarkChanged();
}

void CQvxProfil::BuildLabels() {
    MarkChanged();
    const DescriptionMode mode = owner_->GetDescriptionMode();
    if (mode == DescriptionMode::Dn) {
        const DnRow* row = FindDnRow(dnIndex_);
        if (row == nullptr) throw CQvxException(u"Nepodařilo se vytvořit popis", kLineDnLabel, SourceModule::kMaterial);
        const double dn = row->value;
        StoreLabel(label_, u"DN ", FormatNumbers("%0.0f", dn), u"", kLineDnLabel);
        StoreLabel(shortLabel_, u"", FormatNumbers("%0.f", dn), u"", kLineDnShortLabel);
        return;
    }

    // Outer diameter in single precision, as it has always been computed.
    const float outer = innerDiameter_ + wall_ + wall_;
    StoreLabel(shortLabel_, u"d", FormatNumbers("%.0f", double(outer)), u"", kLineOuterShortLabel);
    if (mode == DescriptionMode::DxT) {
        StoreLabel(label_, u"", FormatNumbers("%.0fx%.1f", double(outer), double(wall_)), u"", kLineDxtLabel);
    } else if (owner_->OnInnerDiameter()) {
        StoreLabel(label_, owner_->Prefix(), FormatNumbers("%0.0f", double(innerDiameter_)), owner_->Suffix(),
                   kLineCustomInnerLabel);
    } else {
        StoreLabel(label_, owner_->Prefix(), FormatNumbers("%.0f", double(outer)), owner_->Suffix(),
                   kLineCustomOuterLabel);
    }
}

void CQvxProfil::MarkChanged() { owner_->MarkChanged(); }
