// The grid's built-in context menu (with BuiltinContextMenus on): Cut, Copy, Copy with Headers
// and Paste, and, over a data column, Sort Ascending and Sort Descending. Items whose command
// would do nothing are shown disabled.
#pragma once

#include <cstdint>
#include <quilta/platform/platform.hpp>
#include <vector>

#include "exchange/clipboard/clipboard_commands.hpp"

namespace quilta::exchange {

class BuiltinContextMenu {
 public:
  enum Command : int32_t { kCut = 1, kCopy, kCopyWithHeaders, kPaste, kSortAsc, kSortDesc };

  BuiltinContextMenu(const model::GridStore& store, const model::ControlProperties& props,
                     ClipboardCommands& clipboard, ClipboardSite& site)
      : store_(store), props_(props), clipboard_(clipboard), site_(site) {}

  // For the keyboard: the menu opens at the bottom-left corner of the cell (row and col may be
  // 0 when there is no current cell).
  void ShowForCell(int32_t row, int32_t col);
  // For a right click at a client point over a cell of column col.
  void Show(int32_t col, Point at);

 private:
  std::vector<MenuItem> Items(int32_t col);
  void Run(int32_t command, int32_t col);

  const model::GridStore& store_;
  const model::ControlProperties& props_;
  ClipboardCommands& clipboard_;
  ClipboardSite& site_;
};

}  // namespace quilta::exchange
