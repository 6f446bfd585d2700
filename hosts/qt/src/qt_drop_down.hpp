// QtDropDown: the combo cells' drop-down as a popup QListWidget under the cell, with the list's
// icons and type-ahead search. A click or Enter chooses, Escape or a click elsewhere dismisses;
// the grid may close the list from inside either report.
#pragma once

#include <QPointer>
#include <quilta/platform/platform.hpp>

class QAbstractScrollArea;

namespace quilta::qt {

class PopupList;

class QtDropDown final : public quilta::DropDownList {
 public:
  QtDropDown(QAbstractScrollArea& area, const DropDownOptions& options, DropDownEvents& events);
  ~QtDropDown() override;

  int32_t HighlightedIndex() const override;
  void Highlight(int32_t index) override;
  void Search(std::string_view typed) override;
  void Close() override;

 private:
  QAbstractScrollArea& area_;
  QPointer<PopupList> list_;
};

}  // namespace quilta::qt
