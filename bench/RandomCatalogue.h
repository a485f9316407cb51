#pragma once

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxSezMaterialu.h"

// Fills a list with `count` materials of random fields that a file can hold exactly: affixes and
// codes short enough to survive saving, 16-bit masks and indexes, any UTF-16 units in the names.
// With profilesEach below 0 every material gets a random number of profiles, else that many.
class RandomCatalogue {
public:
    explicit RandomCatalogue(std::uint32_t seed) : random_(seed) {}

    void Fill(CQvxSezMaterialu& list, int count, int profilesEach = -1) {
        for (int i = 0; i < count; ++i) {
            // The number after the last "#" keeps the names unique.
            const std::u16string name = Text(0, 12) + u"#" + ToText(i);
            auto material = std::make_unique<CQvxMaterial>(&list, name, kPlacementAll, kMediumAll);
            Describe(*material);
            AddProfiles(*material, profilesEach < 0 ? Number(0, kDnCount) : profilesEach);
            list.Insert(name, material);
        }
    }

private:
    void Describe(CQvxMaterial& material) {
        MaterialExchangeRecord record = material.MakeExchangeRecord();
        record.descriptionMode = static_cast<DescriptionMode>(Number(0, 2));
        record.onInnerDiameter = Number(0, 1) == 1;
        record.prefix = Text(0, 3);
        record.suffix = Text(0, 3);
        record.displayName = Text(0, 20);
        record.description = Text(0, 60);
        record.manufacturer = Text(0, 25);
        record.roughness = std::uniform_real_distribution<double>(0.01, 3.0)(random_);
        record.medium = Number(1, kMediumAll);
        record.placement = Number(1, kPlacementAll);
        record.pnIndex = Number(0, kPnCount - 1);
        record.sdrIndex = Number(0, kSdrCount - 1);
        record.shape = static_cast<ProfileShape>(Number(0, 4));
        material.ApplyExchangeRecord(record);
    }

    void AddProfiles(CQvxMaterial& material, int count) {
        std::vector<int> rows(kDnCount);
        for (int row = 0; row < kDnCount; ++row) rows[static_cast<std::size_t>(row)] = row;
        std::shuffle(rows.begin(), rows.end(), random_);
        for (int i = 0; i < count && i < kDnCount; ++i) {
            CQvxProfil* profile = material.AddProfile(rows[static_cast<std::size_t>(i)]);
            std::uniform_real_distribution<float> inner(1.0f, 1500.0f);
            std::uniform_real_distribution<float> wall(0.1f, 50.0f);
            profile->SetDimensions(inner(random_), wall(random_));
            profile->SetWidth(static_cast<std::int32_t>(random_()));
            profile->SetUrsMaterialCode(Text(0, 9));
            profile->SetUrsInstallCode(Text(0, 9));
        }
    }

    int Number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

    // Mostly Czech letters, now and then any non-zero UTF-16 unit.
    std::u16string Text(int minLength, int maxLength) {
        static constexpr std::u16string_view kLetters =
            u"abcdefghijklmnopqrstuvwxyzPEKGáčďéěíňóřšťúůýžČŘŠŽ -.0123456789";
        std::u16string text(static_cast<std::size_t>(Number(minLength, maxLength)), u' ');
        for (char16_t& unit : text) {
            unit = Number(0, 15) == 0 ? static_cast<char16_t>(Number(1, 0xFFFF))
                                      : kLetters[static_cast<std::size_t>(Number(0, int(kLetters.size()) - 1))];
        }
        return text;
    }

    static std::u16string ToText(int number) {
        const std::string digits = std::to_string(number);
        return std::u16string(digits.begin(), digits.end());
    }

    std::mt19937 random_;
};
