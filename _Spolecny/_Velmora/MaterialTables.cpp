#include "MaterialTables.h"

#include <array>

namespace {

constexpr std::array<DnRow, kDnCount> kDnRows = {{
    {u"DN 8", 8, 10},       {u"DN 10", 10, 16},     {u"DN 12", 12, 18},     {u"DN 15", 15, 20},
    {u"DN 20", 20, 25},     {u"DN 25", 25, 32},     {u"DN 32", 32, 40},     {u"DN 40", 40, 50},
    {u"DN 50", 50, 63},     {u"DN 65", 65, 75},     {u"DN 80", 80, 90},     {u"DN 100", 100, 110},
    {u"DN 125", 125, 125},  {u"DN 150", 150, 160},  {u"DN 200", 200, 200},  {u"DN 225", 225, 225},
    {u"DN 250", 250, 250},  {u"DN 300", 300, 315},  {u"DN 350", 350, 350},  {u"DN 400", 400, 400},
    {u"DN 450", 450, 450},  {u"DN 500", 500, 500},  {u"DN 600", 600, 600},  {u"DN 700", 700, 700},
    {u"DN 800", 800, 800},  {u"DN 900", 900, 900},  {u"DN 1000", 1000, 1000}, {u"DN 1200", 1200, 1200},
}};

constexpr std::array<PnRow, kPnCount> kPnRows = {{
    {u"---", 0}, {u"PN 6", 6}, {u"PN 10", 10}, {u"PN 16", 16}, {u"PN 25", 25}, {u"PN 40", 40}, {u"PN 63", 63},
}};

constexpr std::array<SdrRow, kSdrCount> kSdrRows = {{
    {u"---", 0.0f},
    {u"SDr 6", 6.0f},
    {u"SDr 7.4", 7.2f},
    {u"SDr 9", 9.0f},
    {u"SDr 11", 11.0f},
    {u"SDr 13.6", 13.6f},
    {u"SDr 17", 17.0f},
    {u"SDr 17.6", 17.6f},
}};

}  // namespace

std::span<const DnRow, kDnCount> DnTable() { return kDnRows; }
std::span<const PnRow, kPnCount> PnTable() { return kPnRows; }
std::span<const SdrRow, kSdrCount> SdrTable() { return kSdrRows; }

const DnRow* FindDnRow(int index) { return index >= 0 && index < kDnCount ? &kDnRows[index] : nullptr; }
const SdrRow* FindSdrRow(int index) { return index >= 0 && index < kSdrCount ? &kSdrRows[index] : nullptr; }
