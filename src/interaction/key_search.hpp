// Key search: typing the beginning of a cell's text moves the current cell to the first row whose
// cell in the search column starts with what was typed. The typed text is SearchString; it stays
// until Esc, a navigation key, a press in the cells area, the start of an edit or an applied
// empty text clears it (there is no time-out).
#pragma once

#include <cstdint>
#include <functional>
#include <quilta/enums.hpp>
#include <string>

#include "interaction/selection.hpp"
#include "interaction/sites.hpp"
#include "model/control_properties.hpp"
#include "model/grid_store.hpp"

namespace quilta::interaction {

struct RowSearch {
  int32_t col = 0;
  std::string text;
  int32_t start = 1;
  ECellVisibilityFilter visibility = quCellVisCurrentlyVisible;
  bool loop = false;
  ESearchMatchMode mode = quSearchMatchStartsWith;
  bool matchCase = false;
  int step = +1;
};

class KeySearch {
 public:
  // The text of a cell as shown (the text an edit starts from).
  using CellTextFn = std::function<std::string(int32_t row, int32_t col)>;

  KeySearch(model::GridStore& store, const model::ControlProperties& props, Selection& selection,
            SelectionSite& site, const int32_t& keySearchCol, CellTextFn cellText)
      : store_(store),
        props_(props),
        selection_(selection),
        site_(site),
        keySearchCol_(keySearchCol),
        cellText_(std::move(cellText)) {}

  const std::string& Text() const { return text_; }
  void SetText(std::string text) { text_ = std::move(text); }
  void Clear() { text_.clear(); }

  // The first matching row from the start row in the step's direction, looping to the other end
  // when asked; 0 when none matches.
  int32_t FindRow(const RowSearch& search) const;
  // Whether KeyPressBehaviour sends typed characters here.
  bool Active() const;
  // A typed character (Backspace 8 and Esc 27 edit the text; everything else is appended).
  void Type(int32_t charCode);
  // Alt+Down (+1) and Alt+Up (-1): the next row matching SearchString; returns whether it moved.
  bool SearchAgain(int step);
  // The column searched: the current one or the key-search column, per KeyPressBehaviour.
  int32_t SearchColumn() const;

 private:
  void Apply(std::string text);
  void MoveTo(int32_t row, int32_t col);
  bool RowPasses(int32_t row, ECellVisibilityFilter visibility) const;

  model::GridStore& store_;
  const model::ControlProperties& props_;
  Selection& selection_;
  SelectionSite& site_;
  const int32_t& keySearchCol_;
  CellTextFn cellText_;
  std::string text_;
};

}  // namespace quilta::interaction
