// Runs the random tester over many seeds for as long as asked and reports what it ran, or the
// first divergence with its seed and a shortened sequence of calls that reproduces it.
//   quilta_soak [--seconds N] [--seed FIRST] [--steps CALLS_PER_SEED]
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "random_tester.hpp"

int main(int argc, char** argv) {
  double seconds = 10;
  uint64_t seed = 1;
  int steps = 400;
  for (int i = 1; i + 1 < argc; i += 2) {
    if (!std::strcmp(argv[i], "--seconds")) seconds = std::atof(argv[i + 1]);
    if (!std::strcmp(argv[i], "--seed")) seed = std::strtoull(argv[i + 1], nullptr, 10);
    if (!std::strcmp(argv[i], "--steps")) steps = std::atoi(argv[i + 1]);
  }
  const quilta::testkit::RandomTester tester;
  const auto start = std::chrono::steady_clock::now();
  const auto elapsed = [&] {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  };
  uint64_t seeds = 0, calls = 0;
  std::vector<quilta::testkit::Call> made;
  for (; elapsed() < seconds; ++seed, ++seeds) {
    if (auto d = tester.Run(seed, steps, made)) {
      std::printf("DIVERGENCE with seed %llu after call %zu: %s\n",
                  static_cast<unsigned long long>(seed), d->step + 1, d->what.c_str());
      std::printf("the call: %s\n", tester.Show({made[d->step]}).c_str());
      const auto shortened = tester.Shrink(made);
      const auto again = tester.Replay(shortened);
      std::printf("shortened to %zu calls (%s):\n%s", shortened.size(),
                  again ? again->what.c_str() : "no longer fails", tester.Show(shortened).c_str());
      std::fflush(stdout);  // the sanitizers' report at exit must not swallow it
      return 1;
    }
    calls += made.size();
  }
  std::printf("soak: %llu seeds (from %llu), %llu calls, %.0f s, no divergence\n",
              static_cast<unsigned long long>(seeds), static_cast<unsigned long long>(seed - seeds),
              static_cast<unsigned long long>(calls), elapsed());
  return 0;
}
