// Model-based random testing: seeded random sequences of public calls, each run on a grid and on
// the reference model, with the grid compared to the model and checked for consistency after
// every call. A call that raises an error must leave the grid exactly as it was. A failing
// sequence is shortened before it is reported.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "consistency_checker.hpp"
#include "random_calls.hpp"

namespace quilta::testkit {

struct Divergence {
  size_t step = 0;  // index of the call after which the grid and the model disagreed
  std::string what;
};

class RandomTester {
 public:
  RandomTester(const RandomCallTable& table = RandomCallTable::ForGrid(),
               const ConsistencyChecker& checker = ConsistencyChecker::ForGrid())
      : table_(table), checker_(checker) {}

  // Makes and runs `steps` calls from `seed`; `made` receives the calls run so far.
  std::optional<Divergence> Run(uint64_t seed, int steps, std::vector<Call>& made) const;
  // Runs fixed calls on a fresh grid.
  std::optional<Divergence> Replay(const std::vector<Call>& calls) const;
  // A shorter sequence that still diverges (removing calls while it keeps failing).
  std::vector<Call> Shrink(std::vector<Call> calls) const;
  std::string Show(const std::vector<Call>& calls) const;

 private:
  std::string Step(Quilta& grid, ReferenceModel& model, const Call& call) const;
  const RandomCallTable& table_;
  const ConsistencyChecker& checker_;
};

}  // namespace quilta::testkit
