// The random tester's table of public calls. Each entry makes a random call from the model's
// current state, runs it on a grid, and either predicts its effect on the reference model or,
// where the grid's exact choice is its own (the order of a sort, the place of moved rows), checks
// what the grid did and takes it into the model. A subsystem extends the tester by adding
// entries to the table (see RandomCallTable::Add).
#pragma once

#include <cstdint>
#include <functional>
#include <quilta/quilta.hpp>
#include <random>
#include <string>
#include <vector>

#include "grid_snapshot.hpp"
#include "reference_model.hpp"

namespace quilta::testkit {

using Rng = std::mt19937_64;

// One concrete call: which entry, and its arguments, fixed when it was made so that a failing
// sequence replays exactly. Meaning of the fields is the entry's own.
struct Call {
  int kind = 0;
  int32_t a = 0, b = 0, c = 0, d = 0, e = 0;
  std::string s;
  Variant v, w, x;
};

// What a host's handler throws in the random calls that attach one.
struct HostHandlerFailure {};

// Thrown by a call's own checks while it runs (a rule the grid broke in the middle of a compound
// call); reported as a divergence.
struct Complaint {
  std::string what;
};

// What `expect` returns when the call may fail or succeed as the grid decides.
inline constexpr int32_t kAnyOutcome = -2;

struct CallKind {
  std::string name;
  int weight = 1;
  std::function<Call(Rng&, const ReferenceModel&)> make;
  // Runs the call on the grid; returns what the member returned, if anything.
  std::function<int32_t(Quilta&, const Call&)> run;
  // Predicts: changes the model and returns the member's result, or throws ExpectedError with the
  // model unchanged.
  std::function<int32_t(ReferenceModel&, const Call&)> predict;
  bool checkResult = false;
  // Instead of predict: checks the grid's state after a successful call against the model before
  // it, takes the grid's choices into the model, and returns a complaint or "".
  std::function<std::string(ReferenceModel&, const GridSnapshot&, const Call&)> adopt;
  // With adopt: the error the call must raise (0 for none, -1 for the host's handler failure), or
  // kAnyOutcome. Missing: not checked.
  std::function<int32_t(const ReferenceModel&, const Call&)> expect;
  std::function<std::string(const Call&)> show;
};

class RandomCallTable {
 public:
  // Every call of the subsystems that exist: store, cells, keys, tree, sort, MoveRow,
  // collapse/expand, row and column counts, clear, update suspension; selection, keyboard, key
  // search, editing, the mouse; grouping, layout strings, column layout, default cells,
  // properties and the clipboard.
  static const RandomCallTable& ForGrid();

  void Add(CallKind kind);
  const CallKind& Kind(int i) const { return kinds_[static_cast<size_t>(i)]; }
  Call Make(Rng& rng, const ReferenceModel& model) const;
  std::string Show(const Call& call) const;

 private:
  std::vector<CallKind> kinds_;
  int totalWeight_ = 0;
};

// A grid set up the way every random run starts: three keyed columns, no rows.
void PrepareGrid(Quilta& grid, ReferenceModel& model);

}  // namespace quilta::testkit
