// QuiltaEvents: the control's event interface. Override only what you handle; every member has an
// empty default body. Events are raised synchronously on the caller's thread.
//
// Handlers that throw. A handler may throw any C++ exception. The grid does not catch it: it
// reaches the caller of the public member that raised the event, unchanged. The grid is left
// consistent, and the operation happened either completely or not at all:
// - an event raised before the operation changes anything (the Before... events, QuitCustomEdit,
//   ColHeaderClick) stops it: nothing has changed;
// - an event raised while the operation works (CustomSort, CustomGroupValue, the dynamic content
//   events during a sort) undoes what was done so far: a sort puts the rows and the sort
//   criteria back as they were;
// - an event raised once the operation is complete (the After... events, AfterContentsSorted)
//   leaves it complete;
// - RequestRow and RequestRowData add rows one at a time: the rows already added stay, each
//   complete (a row whose RequestRowData threw stays with the cells it has).
// Events added later follow the same rule.
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
