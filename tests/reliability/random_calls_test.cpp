// The model-based random test: a short budget of seeded random call sequences, each checked
// against the reference model and the consistency checker after every call.
#include <gtest/gtest.h>

#include <chrono>

#include "random_tester.hpp"

namespace {

using namespace quilta::testkit;

TEST(RandomCalls, ShortBudgetOfSeedsMatchesTheModel) {
  const RandomTester tester;
  std::vector<Call> made;
  const auto start = std::chrono::steady_clock::now();
  int seeds = 0;
  // A fixed set of seeds, so a failure here always reproduces; about a second in Release.
  for (uint64_t seed = 1; seed <= 150; ++seed, ++seeds) {
    if (auto d = tester.Run(seed, 300, made)) {
      const std::vector<Call> shortened = tester.Shrink(made);
      FAIL() << "seed " << seed << ", call " << d->step + 1 << ": " << d->what
             << "\nshortened sequence:\n"
             << tester.Show(shortened);
    }
  }
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  RecordProperty("seeds", seeds);
  RecordProperty("seconds", std::to_string(seconds));
}

// A tester whose table holds one entry with a wrong prediction must find it and shorten the
// sequence that shows it to the few calls needed.
TEST(RandomCalls, AWrongPredictionIsFoundAndShortened) {
  RandomCallTable table = RandomCallTable::ForGrid();
  CallKind wrong;
  wrong.name = "SetCellValue, predicted to change nothing";
  wrong.weight = 2;
  wrong.make = [](Rng&, const ReferenceModel& m) {
    Call k;
    k.a = m.RowCount();
    return k;
  };
  wrong.run = [](quilta::Quilta& g, const Call& k) {
    if (k.a > 0) g.SetCellValue(k.a, 1, 4242);
    return 0;
  };
  wrong.predict = [](ReferenceModel&, const Call&) { return 0; };
  wrong.show = [](const Call& k) { return "SetCellValue(" + std::to_string(k.a) + ", 1, 4242)"; };
  table.Add(wrong);
  const RandomTester tester(table);
  std::vector<Call> made;
  std::optional<Divergence> d;
  for (uint64_t seed = 1; seed <= 20 && !d; ++seed) d = tester.Run(seed, 300, made);
  ASSERT_TRUE(d.has_value());
  EXPECT_NE(d->what.find("4242"), std::string::npos) << d->what;
  const std::vector<Call> shortened = tester.Shrink(made);
  EXPECT_LE(shortened.size(), 3u) << tester.Show(shortened);
  EXPECT_TRUE(tester.Replay(shortened).has_value());
}

}  // namespace
