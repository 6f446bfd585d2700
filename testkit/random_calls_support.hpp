// What the families of random calls share: random choices, the display of references, and the
// adoption of what the grid did when its exact choice is its own.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "random_calls.hpp"

namespace quilta::testkit {

int Pick(Rng& rng, int lo, int hi);
bool Chance(Rng& rng, int percent);
// Mostly rows (columns) that exist; now and then one just outside, a key, or something else.
Variant RowRef(Rng& rng, const ReferenceModel& m);
Variant ColRef(Rng& rng, const ReferenceModel& m);
Variant Value(Rng& rng);
std::string ShowRef(const Variant& v);

std::vector<int32_t> Ids(const std::vector<RowState>& rows);
// The grid's rows are the model's rows in some order; the model takes that order.
std::string AdoptOrder(ReferenceModel& m, const GridSnapshot& after);

// What a user's action (a key, a click, an edit, a clipboard command) may change besides the
// current cell, the selection, the edit in progress and the selection modes, which are always
// taken from the grid after its invariants are checked.
struct Allowed {
  bool tree = false;        // expanded states and what they show (+, -, *, tree buttons)
  bool editedCell = false;  // the cell being edited, or the current cell, may get a new value
  // Further cells that may change: (row index, column index) in the grid before the call.
  std::function<bool(int32_t, int32_t)> cell;
  bool rowsAndColsAdded = false;  // rows and columns may be added after the last ones
};
std::string AdoptUserAction(ReferenceModel& m, const GridSnapshot& after, const Allowed& allowed);

void AddInteractionCalls(RandomCallTable& t);
void AddExchangeCalls(RandomCallTable& t);

}  // namespace quilta::testkit
