#include "random_tester.hpp"

#include <exception>
#include <quilta/error.hpp>

namespace quilta::testkit {

using std::to_string;

std::string RandomTester::Step(Quilta& grid, ReferenceModel& model, const Call& call) const {
  const CallKind& kind = table_.Kind(call.kind);
  int32_t code = 0, result = 0;
  try {
    result = kind.run(grid, call);
  } catch (const Error& e) {
    code = e.Code();
  } catch (const HostHandlerFailure&) {
    code = -1;  // only calls whose result the tester checks afterwards attach throwing handlers
  } catch (const Complaint& c) {
    return c.what;
  } catch (const std::exception& e) {
    return std::string("threw something other than quilta::Error: ") + e.what();
  }
  if (kind.adopt) {
    const int32_t expected = kind.expect ? kind.expect(model, call) : kAnyOutcome;
    if (expected != kAnyOutcome && code != expected)
      return "raised " + to_string(code) + " where " + to_string(expected) + " was expected";
    if (code == 0) {
      const std::string complaint = kind.adopt(model, TakeSnapshot(grid), call);
      if (!complaint.empty()) return complaint;
    }
  } else {
    int32_t expectedCode = 0, expectedResult = 0;
    ReferenceModel before = model;
    try {
      expectedResult = kind.predict(model, call);
    } catch (const ExpectedError& e) {
      expectedCode = e.code;
      model = std::move(before);
    }
    if (code != expectedCode)
      return "raised " + to_string(code) + " where " + to_string(expectedCode) + " was expected";
    if (code == 0 && kind.checkResult && result != expectedResult)
      return "returned " + to_string(result) + " where " + to_string(expectedResult) +
             " was expected";
  }
  const GridSnapshot now = TakeSnapshot(grid);
  // Any call that succeeds may end an edit in progress (cancelling it); none may start one.
  if (code == 0 && model.editing && !now.editing) model.editing = false;
  const std::string difference = FirstDifference(model.Expected(), now);
  if (!difference.empty())
    return (code ? "failed with " + to_string(code) + " but changed the grid: " : "") + difference;
  const std::vector<std::string> problems = checker_.Run(grid);
  if (!problems.empty()) return "inconsistent grid:\n" + Describe(problems);
  return "";
}

std::optional<Divergence> RandomTester::Run(uint64_t seed, int steps,
                                            std::vector<Call>& made) const {
  Rng rng(seed);
  Quilta grid;
  ReferenceModel model;
  PrepareGrid(grid, model);
  made.clear();
  for (int i = 0; i < steps; ++i) {
    Call call = table_.Make(rng, model);
    call.d = model.nextId;
    model.nextId += 100;
    made.push_back(call);
    std::string what = Step(grid, model, call);
    if (!what.empty()) return Divergence{made.size() - 1, std::move(what)};
  }
  return std::nullopt;
}

std::optional<Divergence> RandomTester::Replay(const std::vector<Call>& calls) const {
  Quilta grid;
  ReferenceModel model;
  PrepareGrid(grid, model);
  for (size_t i = 0; i < calls.size(); ++i) {
    std::string what = Step(grid, model, calls[i]);
    if (!what.empty()) return Divergence{i, std::move(what)};
  }
  return std::nullopt;
}

std::vector<Call> RandomTester::Shrink(std::vector<Call> calls) const {
  if (auto d = Replay(calls)) calls.resize(d->step + 1);
  int budget = 3000;
  for (size_t chunk = calls.size() / 2; chunk >= 1 && budget > 0; chunk /= 2) {
    for (size_t at = 0; at + chunk <= calls.size() && budget > 0;) {
      std::vector<Call> shorter(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(at));
      shorter.insert(shorter.end(), calls.begin() + static_cast<std::ptrdiff_t>(at + chunk),
                     calls.end());
      --budget;
      if (auto d = Replay(shorter)) {
        shorter.resize(d->step + 1);
        calls = std::move(shorter);
      } else {
        at += chunk;
      }
    }
    if (chunk == 1) break;
  }
  return calls;
}

std::string RandomTester::Show(const std::vector<Call>& calls) const {
  std::string out;
  for (size_t i = 0; i < calls.size(); ++i)
    out += "  " + to_string(i + 1) + ". " + table_.Show(calls[i]) + "\n";
  return out;
}

}  // namespace quilta::testkit
