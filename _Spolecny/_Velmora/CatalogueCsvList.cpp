#include "_Velmora/CatalogueCsvList.h"

#include <memory>
#include <stdexcept>

#include "TextCodec.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxSezMaterialu.h"

namespace {

CsvMaterialRecord RecordOf(const CQvxMaterial& material) {
    CsvMaterialRecord record{material.MakeExchangeRecord(), {}};
    for (const auto& [dnIndex, profile] : material.Profiles()) {
        record.profiles.push_back({dnIndex, profile->InnerDiameter(), profile->Wall(), profile->Width(),
                                   std::u16string(profile->UrsMaterialCode()),
                                   std::u16string(profile->UrsInstallCode())});
    }
    return record;
}

std::unique_ptr<CQvxMaterial> MaterialOf(const CsvMaterialRecord& record, CQvxSezMaterialu& list) {
    const MaterialExchangeRecord& fields = record.fields;
    auto material = std::make_unique<CQvxMaterial>(&list, fields.uniqueName, fields.placement, fields.medium);
    // The editor's record always carries a PN and SDR row; a file may say that none was chosen.
    MaterialExchangeRecord chosen = fields;
    if (chosen.pnIndex == -1) chosen.pnIndex = 0;
    if (chosen.sdrIndex == -1) chosen.sdrIndex = 0;
    material->ApplyExchangeRecord(chosen);
    material->SetClassIndexes(fields.pnIndex, fields.sdrIndex);

    for (const CsvProfileRecord& source : record.profiles) {
        CQvxProfil* profile = material->AddProfile(source.dnIndex);
        if (profile == nullptr) throw std::invalid_argument("a DN index outside the table or given twice");
        profile->SetDimensions(source.innerDiameter, source.wall);
        profile->SetWidth(source.width);
        profile->SetUrsMaterialCode(source.ursMaterialCode);
        profile->SetUrsInstallCode(source.ursInstallCode);
    }
    return material;
}

}  // namespace

std::vector<CsvMaterialRecord> MaterialRecords(const CQvxSezMaterialu& list) {
    std::vector<CsvMaterialRecord> records;
    for (const auto& [name, material] : list.Materials()) records.push_back(RecordOf(*material));
    return records;
}

void AddMaterial(const CsvMaterialRecord& record, CQvxSezMaterialu& list) {
    std::unique_ptr<CQvxMaterial> material = MaterialOf(record, list);
    if (!list.Insert(record.fields.uniqueName, material).second) {
        throw std::invalid_argument("material " + ToUtf8(record.fields.uniqueName) + " is already listed");
    }
}
