// Reading and writing one property of a cell record by ECellProperty: the single place where a
// property's value is converted, checked and packed into its bits. The Cell* members, the column
// default cells and SetColCellsProp all go through it.
#pragma once

#include <quilta/enums.hpp>
#include <quilta/variant.hpp>

#include "model/cell.hpp"
#include "model/cell_resources.hpp"

namespace quilta::model {

// Converts a host value to what the record stores for the property (format strings, fonts and
// control keys become their table numbers). Raises the conversion's runtime error, 514 for a
// value out of range (an image list above 15, an unknown enumeration value) or 516; never
// changes a cell.
Variant NormalizeCellProperty(ECellProperty p, const Variant& raw, CellResources& res);

// Packs a normalized value into the record, touching only the property's own bits.
void WriteCellProperty(Cell& cell, ECellProperty p, const Variant& normalized);

// The property as the host sees it (format strings and control keys as text, fonts as objects).
Variant ReadCellProperty(const Cell& cell, ECellProperty p, const CellResources& res);

}  // namespace quilta::model
