#include "layout/hit_test.hpp"

namespace quilta::layout {
namespace {

bool WithinShownColumns(const View& view, const model::ColumnStore& cols,
                        const ColumnTotals& totals, int32_t frozenCols, int32_t x) {
  if (totals.firstShownSlot == 0) return false;
  auto leftOf = [&](int32_t slot) { return view.ClientX(cols.AtSlot(slot), slot, frozenCols); };
  const int32_t last = totals.lastShownSlot;
  return x >= leftOf(totals.firstShownSlot) && x < leftOf(last) + cols.AtSlot(last).width;
}

}  // namespace

CellRef CellUnderPoint(const View& view, const model::ColumnStore& cols, const ColumnTotals& totals,
                       const model::RowStore& rows, const RowTextLayout& rowText, Point at) {
  if (!view.CellsArea().Contains(at)) return {};
  const int32_t row = view.RowAtY(rows, at.y);
  if (row == 0) return {};
  const model::RowRecord& r = rows.At(row);
  if (r.GroupRow()) {
    if (!WithinShownColumns(view, cols, totals, rowText.frozenCols, at.x)) return {};
    return {row, cols.RowTextCol()};
  }
  const int32_t slot = view.SlotAtX(cols, at.x, rowText.frozenCols);
  if (slot == 0) return {};
  const bool belowNormalCells = rowText.drawRowText && at.y >= view.ClientY(r) + r.normalCellHeight;
  if (belowNormalCells && slot >= rowText.rowTextSlot) return {row, cols.RowTextCol()};
  return {row, cols.AtSlot(slot).index};
}

ECellParts PartUnderPoint(const CellParts& parts, const CellHitInfo& info, Point at) {
  if (info.treeButton && parts.treeButton.Contains(at)) return quCellPartTreeButton;
  if (info.checkBox && parts.checkBox.Contains(at)) return quCellPartCheckBox;
  const bool combo = info.type == quCellCombo || info.type == quCellTextCombo;
  if (combo && parts.comboButton.Contains(at)) return quCellPartComboButton;
  if (info.type < quCellText || info.type > quCellTextCombo) return quCellPartNone;
  if (parts.extraIcon.Contains(at)) return quCellPartExtraIcon;
  if (parts.icon.Contains(at)) return quCellPartIcon;
  if (parts.text.Contains(at)) return quCellPartText;
  return quCellPartNone;
}

}  // namespace quilta::layout
