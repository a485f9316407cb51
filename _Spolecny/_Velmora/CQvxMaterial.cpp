#include "_Velmora/CQvxMaterial.h"

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>

#include "CQvxException.h"
#include "_Velmora/CQvxSezMaterialu.h"

namespace {

constexpr int kLineInsertProfile = 125;
constexpr int kLineNameMismatch = 211;
constexpr int kLineManufacturerTooLong = 212;
constexpr int kLineNoPnOrSdr = 224;
constexpr int kLineApplyPrefix = 232;
constexpr int kLineApplySuffix = 234;
constexpr int kLineGenerateSeries = 315;

constexpr float kNewMaterialRoughness = 0.00001f;
constexpr int kFirstDnWithThickWall = 19;  // "DN 400"
constexpr float kThinDefaultWall = 3.0f;
constexpr float kThickDefaultWall = 5.0f;

[[noreturn]] void Throw(std::u16string_view message, int line) {
    throw CQvxException(message, line, SourceModule::kMaterial);
}

// Narrowing that stays defined for doubles beyond the float range.
float ToFloat(double value) {
    if (std::isfinite(value) && std::fabs(value) > FLT_MAX) return value > 0 ? FLT_MAX : -FLT_MAX;
    return static_cast<float>(value);
}

// Reads the number at the start of a text, as the C library's atof does: leading blanks and a
// sign are allowed, anything after the number is ignored, no number gives 0.
double ParseLeadingNumber(std::u16string_view text) {
    std::string narrow;
    for (char16_t unit : text) {
        if (unit >= 0x80) break;
        narrow.push_back(static_cast<char>(unit));
    }
    std::size_t start = narrow.find_first_not_of(" \t\n\r\v\f");
    if (start == std::string::npos) return 0.0;
    bool negative = false;
    if (narrow[start] == '+' || narrow[start] == '-') {
        negative = narrow[start] == '-';
        ++start;
    }
    double value = 0.0;
    const auto [end, error] = std::from_chars(narrow.data() + start, narrow.data() + narrow.size(), value);
    if (error != std::errc()) return 0.0;
    return negative ? -value : value;
}

// Same DN-independent measures of two profiles: diameters within 0.001, walls within 0.0001 (as
// doubles) and the same material code.
bool SameDimensionsAndCode(const CQvxProfil& a, const CQvxProfil& b) {
    return std::fabs(double(a.InnerDiameter()) - double(b.InnerDiameter())) < 0.001 &&
           std::fabs(double(a.Wall()) - double(b.Wall())) < 0.0001 && a.UrsMaterialCode() == b.UrsMaterialCode();
}

}  // namespace

CQvxMaterial::CQvxMaterial(CQvxSezMaterialu* owner) : owner_(owner) {}

CQvxMaterial::CQvxMaterial(CQvxSezMaterialu* owner, std::u16string_view uniqueName, int32_t placement,
                           int32_t medium)
    : uniqueName_(uniqueName),
      roughness_(kNewMaterialRoughness),
      placement_(NormalisedPlacement(placement)),
      medium_(NormalisedMedium(medium)),
      owner_(owner) {}

CQvxMaterial::CQvxMaterial(CQvxSezMaterialu* owner, const CQvxMaterial& source)
    : fileIndex_(source.fileIndex_),
      descriptionMode_(source.descriptionMode_),
      prefix_(source.prefix_),
      suffix_(source.suffix_),
      onInnerDiameter_(source.onInnerDiameter_),
      uniqueName_(source.uniqueName_),
      displayName_(source.displayName_),
      description_(source.description_),
      manufacturer_(source.manufacturer_),
      roughness_(source.roughness_),
      placement_(source.placement_),
      medium_(source.medium_),
      owner_(owner),
      pnIndex_(source.pnIndex_),
      sdrIndex_(source.sdrIndex_),
      shape_(source.shape_),
      users_(source.users_) {
    profiles_.reserve(source.profiles_.size());
    for (const auto& [dnIndex, profile] : source.profiles_) {
        profiles_.emplace_back(dnIndex, std::make_unique<CQvxProfil>(*this, *profile, CQvxProfil::ExactCopy{}));
    }
}

CQvxMaterial::~CQvxMaterial() { users_.ReleaseAll(); }

CQvxProfil* CQvxMaterial::AddProfile(int dnIndex) {
    const DnRow* row = FindDnRow(dnIndex);
    if (row == nullptr || FindProfile(dnIndex) != nullptr) return nullptr;
    CQvxProfil* profile = InsertProfile(std::make_unique<CQvxProfil>(*this, dnIndex));
    MarkChanged();

    const float defaultWall = dnIndex < kFirstDnWithThickWall ? kThinDefaultWall : kThickDefaultWall;
    if (descriptionMode_ == DescriptionMode::Dn) {
        profile->SetDimensions(row->value, defaultWall);
        return profile;
    }
    // A material without an SDR choice yet (-1) gets the default wall, as "---" does.
    const auto outer = static_cast<float>(row->outerDiameter);
    const SdrRow* sdr = FindSdrRow(sdrIndex_);
    const float wall = sdr != nullptr && sdrIndex_ != 0 ? outer / sdr->value : defaultWall;
    profile->SetDimensions(outer - 2.0f * wall, wall);
    return profile;
}

void CQvxMaterial::GenerateSeries(int fromIndex, int toIndex) {
    DeleteAllProfiles();
    for (int index = fromIndex; index <= toIndex; ++index) {
        if (AddProfile(index) == nullptr) Throw(u"Nelze přidat profil", kLineGenerateSeries);
    }
}

void CQvxMaterial::DeleteAllProfiles() {
    profiles_.clear();
    MarkChanged();
}

bool CQvxMaterial::DeleteProfile(int dnIndex) {
    const auto found = LowerBound(dnIndex);
    if (found == profiles_.end() || found->first != dnIndex || !found->second->Users().IsEmpty()) return false;
    profiles_.erase(found);
    MarkChanged();
    return true;
}

void CQvxMaterial::AddMissingProfiles(const CQvxMaterial& other) {
    for (const auto& [dnIndex, profile] : other.profiles_) {
        if (FindProfile(dnIndex) != nullptr) continue;
        if (InsertProfile(std::make_unique<CQvxProfil>(*this, *profile)) == nullptr) {
            Throw(u"Nelze vložit profil", kLineInsertProfile);
        }
    }
    MarkChanged();
}

void CQvxMaterial::ApplyExchangeRecord(const MaterialExchangeRecord& record) {
    if (record.uniqueName != uniqueName_) Throw(u"Jméno materiálu v předané struktuře nesouhlasí", kLineNameMismatch);
    if (record.manufacturer.size() > kManufacturerMaxLength) Throw(u"Příliš dlouhý výrobce", kLineManufacturerTooLong);

    roughness_ = record.roughness == MaterialExchangeRecord::kRoughnessFromText
                     ? ToFloat(ParseLeadingNumber(record.roughnessText))
                     : ToFloat(record.roughness);
    displayName_ = record.displayName;
    manufacturer_ = record.manufacturer;
    description_ = record.description;
    pnIndex_ = record.pnIndex;
    sdrIndex_ = record.sdrIndex;
    shape_ = record.shape;
    if (pnIndex_ == -1 || sdrIndex_ == -1) Throw(u"SDR nebo PN nenalezeno v seznamu ", kLineNoPnOrSdr);

    placement_ = NormalisedPlacement(record.placement);
    medium_ = NormalisedMedium(record.medium);
    const bool labelsChange = descriptionMode_ != record.descriptionMode ||
                              onInnerDiameter_ != record.onInnerDiameter || Prefix() != record.prefix ||
                              Suffix() != record.suffix;
    descriptionMode_ = record.descriptionMode;
    onInnerDiameter_ = record.onInnerDiameter;
    if (!prefix_.Assign(record.prefix)) Throw(u"Chyba při kopírování řetězce v paměti", kLineApplyPrefix);
    if (!suffix_.Assign(record.suffix)) Throw(u"Chyba při kopírování řetězce v paměti", kLineApplySuffix);

    if (labelsChange) RebuildAllLabels();
    MarkChanged();
}

MaterialExchangeRecord CQvxMaterial::MakeExchangeRecord() const {
    MaterialExchangeRecord record;
    record.uniqueName = uniqueName_;
    record.manufacturer = manufacturer_;
    record.description = description_;
    record.displayName = displayName_;
    record.pnIndex = pnIndex_;
    record.sdrIndex = sdrIndex_;
    record.shape = shape_;
    record.placement = placement_;
    record.medium = medium_;
    record.descriptionMode = descriptionMode_;
    record.onInnerDiameter = onInnerDiameter_;
    record.prefix = Prefix();
    record.suffix = Suffix();
    record.roughness = roughness_;
    return record;
}

bool CQvxMaterial::IsEqual(const CQvxMaterial& other) const {
    if (uniqueName_ != other.uniqueName_ || displayName_ != other.displayName_ ||
        description_ != other.description_ || manufacturer_ != other.manufacturer_ ||
        profiles_.size() != other.profiles_.size()) {
        return false;
    }
    for (auto mine = profiles_.begin(), theirs = other.profiles_.begin(); mine != profiles_.end(); ++mine, ++theirs) {
        if (mine->first != theirs->first || !SameDimensionsAndCode(*mine->second, *theirs->second)) return false;
    }
    return true;
}

bool CQvxMaterial::Covers(const CQvxMaterial& other) const {
    if (uniqueName_ != other.uniqueName_ || description_ != other.description_ ||
        manufacturer_ != other.manufacturer_ || profiles_.size() < other.profiles_.size()) {
        return false;
    }
    for (const auto& [dnIndex, theirs] : other.profiles_) {
        const CQvxProfil* mine = FindProfile(dnIndex);
        if (mine == nullptr || !SameDimensionsAndCode(*mine, *theirs)) return false;
    }
    return true;
}

void CQvxMaterial::OverwriteFieldsFrom(const CQvxMaterial& source) {
    descriptionMode_ = source.descriptionMode_;
    prefix_ = source.prefix_;
    suffix_ = source.suffix_;
    onInnerDiameter_ = source.onInnerDiameter_;
    displayName_ = source.displayName_;
    description_ = source.description_;
    manufacturer_ = source.manufacturer_;
    roughness_ = source.roughness_;
    medium_ = source.medium_;
    placement_ = source.placement_;
    pnIndex_ = source.pnIndex_;
    sdrIndex_ = source.sdrIndex_;
    shape_ = source.shape_;
    RebuildAllLabels();
    MarkChanged();
}

void CQvxMaterial::SetClassIndexes(int32_t pnIndex, int32_t sdrIndex) {
    pnIndex_ = pnIndex;
    sdrIndex_ = sdrIndex;
    MarkChanged();
}

CQvxProfil* CQvxMaterial::FindProfile(int dnIndex) const {
    const auto found = LowerBound(dnIndex);
    return found != profiles_.end() && found->first == dnIndex ? found->second.get() : nullptr;
}

void CQvxMaterial::MarkChanged() {
    if (owner_ != nullptr) owner_->MarkChanged();
}

bool CQvxMaterial::MoveProfileKey(const CQvxProfil& profile, int newIndex) {
    const CQvxProfil* holder = FindProfile(newIndex);
    if (holder != nullptr && holder != &profile) return false;
    const auto current = LowerBound(profile.DnIndex());
    if (current != profiles_.end() && current->second.get() == &profile) {
        std::unique_ptr<CQvxProfil> moved = std::move(current->second);
        profiles_.erase(current);
        profiles_.emplace(LowerBound(newIndex), newIndex, std::move(moved));
    }
    return true;
}

CQvxMaterial::ProfileMap::iterator CQvxMaterial::LowerBound(int dnIndex) {
    return std::ranges::lower_bound(profiles_, dnIndex, {}, &ProfileMap::value_type::first);
}

CQvxMaterial::ProfileMap::const_iterator CQvxMaterial::LowerBound(int dnIndex) const {
    return std::ranges::lower_bound(profiles_, dnIndex, {}, &ProfileMap::value_type::first);
}

CQvxProfil* CQvxMaterial::InsertProfile(std::unique_ptr<CQvxProfil> profile) {
    const int dnIndex = profile->DnIndex();
    // Files and copies come in DN order, so the end is the usual place.
    auto position = profiles_.end();
    if (!profiles_.empty() && profiles_.back().first >= dnIndex) {
        position = LowerBound(dnIndex);
        if (position->first == dnIndex) return nullptr;
    }
    return profiles_.emplace(position, dnIndex, std::move(profile))->second.get();
}

void CQvxMaterial::RebuildAllLabels() {
    for (auto& [dnIndex, profile] : profiles_) profile->BuildLabels();
}
