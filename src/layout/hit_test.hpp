// Which cell lies under a point of the cells area, and which part of a cell under a point.
// Both read the view and the positions of the geometry passes; neither changes anything.
#pragma once

#include <cstdint>
#include <quilta/enums.hpp>

#include "layout/cell_parts.hpp"
#include "layout/view.hpp"
#include "model/column_store.hpp"
#include "model/row_store.hpp"

namespace quilta::layout {

struct CellRef {
  int32_t row = 0;
  int32_t colIndex = 0;  // RowTextCol for group rows and the row text area
};

// How the row text splits the rows (DrawRowText, RowTextStartCol as a slot) and how many
// leading slots are frozen.
struct RowTextLayout {
  int32_t frozenCols = 0;
  int32_t rowTextSlot = 1;
  bool drawRowText = false;
};

// The cell under a client point, or {0, 0}. Rows are found by binary search on their positions;
// a group row answers its row text cell across its whole width; below a row's normal cell
// height, from the row text's start slot on, the point is in the row text cell; frozen columns
// are found before the scrolled columns they cover.
CellRef CellUnderPoint(const View& view, const model::ColumnStore& cols, const ColumnTotals& totals,
                       const model::RowStore& rows, const RowTextLayout& rowText, Point at);

// What decides which part of a laid-out cell a point hits.
struct CellHitInfo {
  bool treeButton = false;  // the cell carries its row's tree button and the button is shown
  bool checkBox = false;    // the cell shows a check box
  ECellTypes type = quCellText;
};

// The part of a laid-out cell under a point: the tree button first, then the check box, the combo
// button (combo types only), and, except in custom-drawn cells, the extra icon, icon and text.
ECellParts PartUnderPoint(const CellParts& parts, const CellHitInfo& info, Point at);

}  // namespace quilta::layout
