// The consistency checker: inspects a grid's internal state and reports every place where what is
// stored disagrees with what it is derived from (row records and physical rows, the row-key index,
// running totals, cached positions, column slots). It is made of named checks, one per subsystem,
// so that a subsystem adds its own (selection, editing, grouping) with Add. Tests and the random
// tester run it after calls; the library itself never pays for it.
#pragma once

#include <functional>
#include <quilta/quilta.hpp>
#include <string>
#include <vector>

namespace quilta::control {
struct Control;
}

namespace quilta::testkit {

// What one check found wrong; a check reports at most a handful of problems.
class Problems {
 public:
  explicit Problems(std::string check) : check_(std::move(check)) {}
  void Report(const std::string& what);
  bool Full() const { return found_.size() >= kMaxPerCheck; }
  std::vector<std::string> Take() { return std::move(found_); }

 private:
  static constexpr size_t kMaxPerCheck = 5;
  std::string check_;
  std::vector<std::string> found_;
};

class ConsistencyChecker {
 public:
  using Check = std::function<void(const control::Control&, Problems&)>;

  // A checker with every check of the subsystems that exist.
  static const ConsistencyChecker& ForGrid();

  void Add(std::string name, Check check);
  // Every problem found, each prefixed with its check's name; empty when the grid is consistent.
  std::vector<std::string> Run(Quilta& grid) const;

 private:
  struct Named {
    std::string name;
    Check check;
  };
  std::vector<Named> checks_;
};

// The problems joined one a line, for failure messages.
std::string Describe(const std::vector<std::string>& problems);

}  // namespace quilta::testkit
