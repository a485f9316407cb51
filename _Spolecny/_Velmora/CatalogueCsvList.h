#pragma once

#include <vector>

#include "_Velmora/CatalogueCsv.h"

class CQvxSezMaterialu;

// Between the CSV records and the catalogue in memory; together with the sheets, every field a
// catalogue file stores makes the trip unchanged.

// The materials of a list with their profiles, in the list's order.
std::vector<CsvMaterialRecord> MaterialRecords(const CQvxSezMaterialu& list);

// Adds a material per record to the list. The names must be new to the list and to each other (as
// ReadCatalogueCsv ensures). A value a material refuses (a label too long to build) throws
// CQvxException; the materials added before it stay.
void AddMaterials(const std::vector<CsvMaterialRecord>& records, CQvxSezMaterialu& list);
