// The running state of one aggregate over the data rows of one group. Values come and go one at
// a time (a cell changes, a row joins or leaves the group) and the state stays exact under both,
// so keeping a group's results right costs O(1) per change. Only a minimum or maximum that leaves
// has to be looked for again among the group's rows (Stale()).
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/aggr_funcs_object.hpp>
#include <quilta/variant.hpp>
#include <string>
#include <unordered_map>

namespace quilta::ops {

class Accumulator {
 public:
  explicit Accumulator(EAggrFuncs func) : func_(func) {}
  Accumulator(const Accumulator& other);
  Accumulator& operator=(const Accumulator& other);
  Accumulator(Accumulator&&) noexcept = default;
  Accumulator& operator=(Accumulator&&) noexcept = default;

  // First and Last depend on the rows' order and are read from the rows instead.
  static bool Keeps(EAggrFuncs func) { return func != quAggrFirst && func != quAggrLast; }
  EAggrFuncs Func() const { return func_; }
  void Add(const Variant& v);
  void Remove(const Variant& v);
  // A minimum or maximum left and the new one is not known until the rows are read again.
  bool Stale() const { return stale_; }
  // Forgets the values, for a recount.
  void Reset();
  // The result; Sum and Avg raise 13 (Type mismatch) while a text that is not a number is in.
  // First and Last are found in the rows by the grouping and are not kept here.
  Variant Result() const;

 private:
  enum Kind : uint8_t { kByte, kInteger, kLong, kLongLong, kCurrency, kSingle, kDouble, kDate };
  static constexpr int kKinds = 8;
  void AddNumber(const Variant& v, int sign);
  void AddDouble(double x);
  void AddExtreme(const Variant& v);
  Kind TopKind() const;
  Variant Sum() const;
  Variant Average() const;

  EAggrFuncs func_;
  bool stale_ = false;
  int64_t count_ = 0;  // values in (Null and Empty are never in)
  // Sum and Avg: integers and Currency (in ten-thousandths) exactly, floating values compensated.
  __int128 ints_ = 0;
  __int128 cur_ = 0;
  double hi_ = 0, lo_ = 0;
  int64_t ofKind_[kKinds] = {};
  int64_t badTexts_ = 0;
  Variant extreme_;                                                     // Min and Max
  std::unique_ptr<std::unordered_map<std::string, int64_t>> distinct_;  // CountDistinct
};

// The key under which CountDistinct counts a value: equal keys exactly when the general
// comparison rule finds the values equal.
std::string DistinctKey(const Variant& v);

}  // namespace quilta::ops
