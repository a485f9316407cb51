#pragma once

#include <vector>

#include "_Velmora/CatalogueCsv.h"

class CQvxSezMaterialu;

// Between the CSV records and the catalogue in memory; together with the sheets, every field a
// catalogue file stores makes the trip unchanged.

// The materials of a list with their profiles, in the list's order.
std::vector<CsvMaterialRecord> MaterialRecords(const CQvxSezMaterialu& list);

// Adds the record's material to the list; its name must be new to the list (ReadCatalogueCsv
// ensures that the names of the sheets differ). A value the material refuses (a label too long to
// build) throws CQvxException, and the material is not added.
void AddMaterial(const CsvMaterialRecord& record, CQvxSezMaterialu& list);
