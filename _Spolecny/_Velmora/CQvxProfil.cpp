#include "_Velmora/CQvxProfil.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

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

// Joins the pieces of a label in a buffer of the label's capacity, then stores it. A number that
// cannot be written, or a label that does not fit, throws "Nepodařilo se vytvořit popis" with the
// line of the format.
template <std::size_t Capacity>
class LabelBuilder {
public:
    LabelBuilder& Text(std::u16string_view text) {
        if (length_ + text.size() >= Capacity) {
            complete_ = false;
            return *this;
        }
        text.copy(units_.data() + length_, text.size());
        length_ += text.size();
        return *this;
    }

    // Fixed notation with `decimals` (0 or 1) digits after the point, exactly as printf's "%.0f"
    // and "%.1f" write a float: the binary value correctly rounded, ties to even. A float times 10
    // is exact in double precision, so rounding that to a whole number in the default rounding mode
    // is printf's rounding, and the digits are then those of an integer. Numbers too long for any
    // label, infinities and NaN go to to_chars, whose general path was two fifths of the work of
    // loading a catalogue.
    LabelBuilder& Number(float value, int decimals) {
        const double scaled = decimals == 0 ? double(value) : double(value) * 10.0;
        if (!(std::fabs(scaled) < 1e15)) return GeneralNumber(value, decimals);
        const double rounded = std::rint(scaled);
        auto whole = static_cast<std::uint64_t>(std::fabs(rounded));
        std::array<char, 24> digits;  // filled from the end
        char* first = digits.data() + digits.size();
        if (decimals == 1) {
            *--first = static_cast<char>('0' + whole % 10);
            *--first = '.';
            whole /= 10;
        }
        do {
            *--first = static_cast<char>('0' + whole % 10);
            whole /= 10;
        } while (whole > 0);
        if (std::signbit(rounded)) *--first = '-';  // printf keeps the sign of -0.4 as "-0"
        return Ascii(std::string_view(first, static_cast<std::size_t>(digits.data() + digits.size() - first)));
    }

    void StoreIn(FixedText<Capacity>& label, int line) const {
        if (!complete_ || !label.Assign(std::u16string_view(units_.data(), length_))) {
            throw CQvxException(u"Nepodařilo se vytvořit popis", line, SourceModule::kMaterial);
        }
    }

private:
    LabelBuilder& GeneralNumber(double value, int decimals) {
        std::array<char, 64> digits;  // FLT_MAX has 39 digits before the point
        const auto [end, error] =
            std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, decimals);
        if (error != std::errc()) {
            complete_ = false;
            return *this;
        }
        return Ascii(std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
    }

    LabelBuilder& Ascii(std::string_view narrow) {
        if (length_ + narrow.size() >= Capacity) {
            complete_ = false;
            return *this;
        }
        for (char c : narrow) units_[length_++] = static_cast<char16_t>(c);
        return *this;
    }

    std::array<char16_t, Capacity> units_;  // only the first length_ are ever read
    std::size_t length_ = 0;
    bool complete_ = true;
};

using LongLabelBuilder = LabelBuilder<CQvxProfil::LabelText::kCapacity>;
using ShortLabelBuilder = LabelBuilder<CQvxProfil::ShortLabelText::kCapacity>;

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
      width_(source.width_),
      owner_(&owner),
      users_(source.users_) {
    if (!ursMaterialCode_.Assign(source.UrsMaterialCode(), kCodeCopyBound)) {
        throw CQvxException(u"Chyba při kopírování řetězce", kLineCopyCode, SourceModule::kMaterial);
    }
    BuildLabels();
}

CQvxProfil::CQvxProfil(CQvxMaterial& owner, const CQvxProfil& source, ExactCopy)
    : dnIndex_(source.dnIndex_),
      innerDiameter_(source.innerDiameter_),
      wall_(source.wall_),
      width_(source.width_),
      owner_(&owner),
      ursMaterialCode_(source.ursMaterialCode_),
      ursInstallCode_(source.ursInstallCode_),
      label_(source.label_),
      shortLabel_(source.shortLabel_),
      users_(source.users_) {}

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
        const float dn = row->value;
        LongLabelBuilder().Text(u"DN ").Number(dn, 0).StoreIn(label_, kLineDnLabel);
        ShortLabelBuilder().Number(dn, 0).StoreIn(shortLabel_, kLineDnShortLabel);
        return;
    }

    // Outer diameter in single precision, as it has always been computed.
    const float outer = innerDiameter_ + wall_ + wall_;
    ShortLabelBuilder().Text(u"d").Number(outer, 0).StoreIn(shortLabel_, kLineOuterShortLabel);
    if (mode == DescriptionMode::DxT) {
        LongLabelBuilder().Number(outer, 0).Text(u"x").Number(wall_, 1).StoreIn(label_, kLineDxtLabel);
    } else if (owner_->OnInnerDiameter()) {
        LongLabelBuilder().Text(owner_->Prefix()).Number(innerDiameter_, 0).Text(owner_->Suffix()).StoreIn(
            label_, kLineCustomInnerLabel);
    } else {
        LongLabelBuilder().Text(owner_->Prefix()).Number(outer, 0).Text(owner_->Suffix()).StoreIn(label_,
                                                                                          kLineCustomOuterLabel);
    }
}

void CQvxProfil::MarkChanged() { owner_->MarkChanged(); }
