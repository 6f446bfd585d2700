#include "ops/grouping/accumulator.hpp"

#include <cmath>
#include <cstring>
#include <limits>
#include <quilta/error.hpp>

#include "model/text/text.hpp"
#include "ops/sorting/cell_compare.hpp"

namespace quilta::ops {
namespace {

bool Skipped(const Variant& v) { return v.IsNull() || v.IsEmpty(); }

template <class T>
bool Fits(__int128 v) {
  return v >= std::numeric_limits<T>::min() && v <= std::numeric_limits<T>::max();
}

// Half to even, as the runtime rounds Currency.
__int128 DivideRounded(__int128 n, int64_t d) {
  __int128 q = n / d;
  __int128 r = n % d;
  __int128 twice = (r < 0 ? -r : r) * 2;
  if (twice > d || (twice == d && (q % 2 != 0))) q += n < 0 ? -1 : 1;
  return q;
}

}  // namespace

Accumulator::Accumulator(const Accumulator& other) { *this = other; }

Accumulator& Accumulator::operator=(const Accumulator& other) {
  if (this == &other) return *this;
  func_ = other.func_;
  stale_ = other.stale_;
  count_ = other.count_;
  ints_ = other.ints_;
  cur_ = other.cur_;
  hi_ = other.hi_;
  lo_ = other.lo_;
  std::memcpy(ofKind_, other.ofKind_, sizeof ofKind_);
  badTexts_ = other.badTexts_;
  extreme_ = other.extreme_;
  distinct_ = other.distinct_
                  ? std::make_unique<std::unordered_map<std::string, int64_t>>(*other.distinct_)
                  : nullptr;
  return *this;
}

void Accumulator::Reset() { *this = Accumulator(func_); }

void Accumulator::Add(const Variant& v) {
  if (Skipped(v)) return;
  ++count_;
  switch (func_) {
    case quAggrSum:
    case quAggrAvg:
      AddNumber(v, 1);
      break;
    case quAggrMin:
    case quAggrMax:
      AddExtreme(v);
      break;
    case quAggrCountDistinct:
      if (!distinct_) distinct_ = std::make_unique<std::unordered_map<std::string, int64_t>>();
      ++(*distinct_)[DistinctKey(v)];
      break;
    default:
      break;
  }
}

void Accumulator::Remove(const Variant& v) {
  if (Skipped(v)) return;
  --count_;
  switch (func_) {
    case quAggrSum:
    case quAggrAvg:
      AddNumber(v, -1);
      break;
    case quAggrMin:
    case quAggrMax:
      if (count_ == 0) {
        extreme_ = Variant();
        stale_ = false;
      } else if (!stale_ && CompareGeneral(v, extreme_) == 0) {
        stale_ = true;
      }
      break;
    case quAggrCountDistinct:
      if (distinct_) {
        auto it = distinct_->find(DistinctKey(v));
        if (it != distinct_->end() && --it->second == 0) distinct_->erase(it);
      }
      break;
    default:
      break;
  }
}

void Accumulator::AddExtreme(const Variant& v) {
  if (stale_) return;
  if (count_ == 1) {
    extreme_ = v;
    return;
  }
  int c = CompareGeneral(v, extreme_);
  if (func_ == quAggrMin ? c < 0 : c > 0) extreme_ = v;
}

// Neumaier's compensated addition: taking a value away again restores the sum to the last bit
// in all but pathological cases, so results do not drift as cells change.
void Accumulator::AddDouble(double x) {
  double t = hi_ + x;
  if (std::fabs(hi_) >= std::fabs(x)) {
    lo_ += (hi_ - t) + x;
  } else {
    lo_ += (x - t) + hi_;
  }
  hi_ = t;
}

void Accumulator::AddNumber(const Variant& v, int sign) {
  Kind kind;
  switch (v.Type()) {
    case vbByte:
      kind = kByte, ints_ += sign * static_cast<__int128>(v.ByteValue());
      break;
    case vbBoolean:
      kind = kInteger, ints_ += v.BoolValue() ? -sign : 0;
      break;
    case vbInteger:
      kind = kInteger, ints_ += sign * static_cast<__int128>(v.IntegerValue());
      break;
    case vbLong:
      kind = kLong, ints_ += sign * static_cast<__int128>(v.LongValue());
      break;
    case vbLongLong:
      kind = kLongLong, ints_ += sign * static_cast<__int128>(v.LongLongValue());
      break;
    case vbCurrency:
      kind = kCurrency, cur_ += sign * static_cast<__int128>(v.CurrencyScaled());
      break;
    case vbSingle:
      kind = kSingle, AddDouble(sign * static_cast<double>(v.SingleValue()));
      break;
    case vbDate:
      kind = kDate, AddDouble(sign * v.DateValue());
      break;
    case vbDouble:
      kind = kDouble, AddDouble(sign * v.DoubleValue());
      break;
    default:
      // A text joins a sum as the number it converts to; one that does not convert (or an
      // object, array or error value) makes the sum a type mismatch while it is in.
      try {
        double d = CDbl(v);
        kind = kDouble;
        AddDouble(sign * d);
      } catch (const Error&) {
        badTexts_ += sign;
        return;
      }
      break;
  }
  ofKind_[kind] += sign;
  if (!ofKind_[kSingle] && !ofKind_[kDouble] && !ofKind_[kDate]) hi_ = lo_ = 0;
}

Accumulator::Kind Accumulator::TopKind() const {
  int top = 0;
  for (int k = 0; k < kKinds; ++k)
    if (ofKind_[k]) top = k;
  return static_cast<Kind>(top);
}

Variant Accumulator::Sum() const {
  if (badTexts_) throw Error::Runtime(vbErrTypeMismatch);
  if (count_ == 0) return Variant::Null();
  Kind top = TopKind();
  double floating = hi_ + lo_;
  switch (top) {
    case kDate:
      return Variant::Date(static_cast<double>(ints_) + static_cast<double>(cur_) / 10000.0 +
                           floating);
    case kSingle:
      if (!ofKind_[kLong] && !ofKind_[kLongLong] && !ofKind_[kCurrency])
        return Variant(static_cast<float>(static_cast<double>(ints_) + floating));
      [[fallthrough]];
    case kDouble:
      return Variant(static_cast<double>(ints_) + static_cast<double>(cur_) / 10000.0 + floating);
    case kCurrency: {
      __int128 scaled = ints_ * 10000 + cur_;
      if (Fits<int64_t>(scaled)) return Variant::CurrencyFromScaled(static_cast<int64_t>(scaled));
      return Variant(static_cast<double>(scaled) / 10000.0);
    }
    default:
      break;
  }
  // Integers widen as the runtime's additions overflow: Byte, Integer, Long, then Double.
  if (top == kByte && Fits<uint8_t>(ints_)) return Variant(static_cast<uint8_t>(ints_));
  if (top <= kInteger && Fits<int16_t>(ints_)) return Variant(static_cast<int16_t>(ints_));
  if (top <= kLong && Fits<int32_t>(ints_)) return Variant(static_cast<int32_t>(ints_));
  if (top == kLongLong && Fits<int64_t>(ints_)) return Variant(static_cast<int64_t>(ints_));
  return Variant(static_cast<double>(ints_));
}

Variant Accumulator::Average() const {
  if (badTexts_) throw Error::Runtime(vbErrTypeMismatch);
  if (count_ == 0) return Variant::Null();
  Kind top = TopKind();
  double n = static_cast<double>(count_);
  double total = static_cast<double>(ints_) + static_cast<double>(cur_) / 10000.0 + hi_ + lo_;
  if (top == kDate) return Variant::Date(total / n);
  if (top == kCurrency) {
    __int128 q = DivideRounded(ints_ * 10000 + cur_, count_);
    if (Fits<int64_t>(q)) return Variant::CurrencyFromScaled(static_cast<int64_t>(q));
  }
  return Variant(total / n);
}

Variant Accumulator::Result() const {
  switch (func_) {
    case quAggrCount:
      return Variant(static_cast<int32_t>(count_));
    case quAggrSum:
      return Sum();
    case quAggrAvg:
      return Average();
    case quAggrMin:
    case quAggrMax:
      return count_ ? extreme_ : Variant::Null();
    case quAggrCountDistinct:
      return Variant(static_cast<int32_t>(distinct_ ? distinct_->size() : 0));
    default:
      return Variant::Null();
  }
}

std::string DistinctKey(const Variant& v) {
  if (v.IsString()) return "s" + text::ToLower(v.StringView());
  double d = 0;
  switch (v.Type()) {
    case vbBoolean:
      d = v.BoolValue() ? -1 : 0;
      break;
    case vbDate:
      d = v.DateValue();
      break;
    default:
      if (!v.IsNumber()) return "o" + std::to_string(v.Type());
      d = CDbl(v);
      break;
  }
  if (d == 0) d = 0;  // one key for +0 and -0
  std::string key(1 + sizeof d, 'n');
  std::memcpy(key.data() + 1, &d, sizeof d);
  return key;
}

}  // namespace quilta::ops
