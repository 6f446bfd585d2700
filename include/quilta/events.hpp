// QuiltaEvents: the control's event interface. Override only what you handle; every member has an
// empty default body. Events are raised synchronously on the caller's thread.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/enums.hpp>
#include <quilta/font.hpp>
#include <quilta/variant.hpp>
#include <string>

namespace quilta {

class QuiltaEvents {
 public:
  virtual ~QuiltaEvents() = default;

  // Selection and current cell.
  virtual void BeforeSelectionChange() {}
  virtual void CellSelectionChange(int32_t /*lRow*/, int32_t /*lCol*/, bool /*bSelected*/) {}
  virtual void AfterSelectionChange(bool /*bSelContentsChanged*/) {}
  virtual void CurCellChange(int32_t /*lNewRow*/, int32_t /*lNewCol*/, int32_t /*lOldRow*/,
                             int32_t /*lOldCol*/) {}
  virtual void CurRowChange(int32_t /*lNewRow*/, int32_t /*lOldRow*/) {}
  virtual void CurColChange(int32_t /*lNewCol*/, int32_t /*lOldCol*/) {}

  // Keys routed to the grid (not raised while a cell is being edited). KeyDown may change the key
  // and the modifiers that DoKeyboardCommand then gets, or clear bDoDefault to stop it; KeyPress
  // may change the character, 0 dropping it.
  virtual void KeyDown(int16_t& /*KeyCode*/, int16_t& /*Shift*/, bool& /*bDoDefault*/) {}
  virtual void KeyPress(int16_t& /*KeyAscii*/) {}

  // Virtual mode.
  virtual void RequestRow(int32_t /*lRow*/, bool& /*bNoMoreRows*/) {}
  virtual void RequestRowData(int32_t /*lRow*/) {}

  // Dynamic content.
  virtual void CellDynamicFormatting(int32_t /*lRow*/, int32_t /*lCol*/, const Variant& /*vValue*/,
                                     Color& /*oForeColor*/, Color& /*oBackColor*/,
                                     std::shared_ptr<Font>& /*oFont*/) {}
  virtual void RowDynamicFormatting(int32_t /*lRow*/, Color& /*oForeColor*/, Color& /*oBackColor*/,
                                    std::shared_ptr<Font>& /*oFont*/) {}
  virtual void CellDynamicIcons(int32_t /*lRow*/, int32_t /*lCol*/, const Variant& /*vValue*/,
                                int16_t& /*iIcon*/, int16_t& /*iExtraIcon*/) {}
  virtual void CellDynamicText(int32_t /*lRow*/, int32_t /*lCol*/, const Variant& /*vValue*/,
                               std::string& /*sText*/) {}

  // Editing.
  virtual void QuitCustomEdit() {}

  // Sorting and grouping.
  virtual void BeforeContentsSorted() {}
  virtual void AfterContentsSorted() {}
  virtual void CustomSort(int32_t /*lCol*/, int32_t /*lRow1*/, int32_t /*lRow2*/,
                          const Variant& /*v1*/, const Variant& /*v2*/,
                          int32_t& /*lCompareResult*/) {}
  virtual void CustomGroupValue(int32_t /*lRow*/, int32_t /*lCol*/, Variant& /*vGroupValue*/,
                                std::string& /*sGroupText*/) {}
  virtual void ColHeaderClick(int32_t /*lCol*/, int16_t /*Shift*/, bool& /*bDoDefault*/) {}

  // Row hierarchy.
  virtual void BeforeRowCollapseExpand(int32_t /*lRowIfAny*/, bool /*bNowExpanded*/,
                                       bool& /*bDoDefault*/) {}
  virtual void AfterRowCollapseExpand(int32_t /*lRowIfAny*/, bool /*bNowExpanded*/) {}
};

}  // namespace quilta
