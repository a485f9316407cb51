#pragma once

#include <gtest/gtest.h>

#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "support/CatalogueBuilding.h"

// A list holding one material "PE" (D x t labels, PN and SDR "---") for record tests.
class MaterialFixture : public ::testing::Test {
protected:
    // Applies label rules and SDR through the editor's buffer, as the editor does.
    void Describe(DescriptionMode mode, int32_t sdrIndex = 0, bool onInner = false, std::u16string prefix = u"",
                  std::u16string suffix = u"") {
        EditMaterial(material, [&](MaterialExchangeRecord& record) {
            record.descriptionMode = mode;
            record.sdrIndex = sdrIndex;
            record.onInnerDiameter = onInner;
            record.prefix = std::move(prefix);
            record.suffix = std::move(suffix);
        });
    }

    CQvxSezMaterialu list;
    CQvxMaterial material{&list, u"PE", kPlacementAll, kMediumAll};
};
