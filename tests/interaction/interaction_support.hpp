// Grids and an event recorder shared by the selection, keyboard and key search tests.
#pragma once

#include <quilta/quilta.hpp>
#include <string>
#include <vector>

namespace quilta::testing {

using Log = std::vector<std::string>;

// Records the selection, current-cell and key events as short texts, in the order raised.
struct Recorder : QuiltaEvents {
  Log log;
  bool cellEvents = true;  // CellSelectionChange can be left out of the log
  bool keyDownDefault = true;
  int16_t keyPressReplacement = -1;
  bool rowExpandDefault = true;

  void BeforeSelectionChange() override { log.push_back("Before"); }
  void CellSelectionChange(int32_t r, int32_t c, bool on) override {
    if (cellEvents)
      log.push_back("Cell " + std::to_string(r) + "," + std::to_string(c) + (on ? " on" : " off"));
  }
  void AfterSelectionChange(bool changed) override {
    log.push_back(changed ? "After true" : "After false");
  }
  void CurCellChange(int32_t nr, int32_t nc, int32_t orow, int32_t oc) override {
    log.push_back("CurCell " + std::to_string(nr) + "," + std::to_string(nc) + " from " +
                  std::to_string(orow) + "," + std::to_string(oc));
  }
  void CurRowChange(int32_t n, int32_t o) override {
    log.push_back("CurRow " + std::to_string(n) + " from " + std::to_string(o));
  }
  void CurColChange(int32_t n, int32_t o) override {
    log.push_back("CurCol " + std::to_string(n) + " from " + std::to_string(o));
  }
  void QuitCustomEdit() override { log.push_back("QuitCustomEdit"); }
  void KeyDown(int16_t& key, int16_t&, bool& doDefault) override {
    log.push_back("KeyDown " + std::to_string(key));
    doDefault = keyDownDefault;
  }
  void KeyPress(int16_t& ascii) override {
    log.push_back("KeyPress " + std::to_string(ascii));
    if (keyPressReplacement >= 0) ascii = keyPressReplacement;
  }
  void BeforeRowCollapseExpand(int32_t row, bool expanded, bool& doDefault) override {
    log.push_back("BeforeExpand " + std::to_string(row) + (expanded ? " +" : " -"));
    doDefault = rowExpandDefault;
  }
  void AfterRowCollapseExpand(int32_t row, bool expanded) override {
    log.push_back("AfterExpand " + std::to_string(row) + (expanded ? " +" : " -"));
  }
  Log Take() {
    Log out;
    out.swap(log);
    return out;
  }
};

// A grid of `rows` x `cols` whose cell (r, c) holds the text "r<r>c<c>".
inline void Fill(Quilta& g, int32_t rows, int32_t cols) {
  g.AddCol({.lCount = cols});
  g.AddRow({.lCount = rows});
  for (int32_t r = 1; r <= rows; ++r)
    for (int32_t c = 1; c <= cols; ++c)
      g.SetCellValue(r, c, "r" + std::to_string(r) + "c" + std::to_string(c));
}

inline std::string Items(const Quilta& g) { return g.SelItems().GetString(); }

}  // namespace quilta::testing
