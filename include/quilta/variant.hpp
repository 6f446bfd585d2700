// quilta::Variant: the automation variant of the classic Basic runtime as a 16-byte value type.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

namespace quilta {

enum VarType : int32_t {
  vbEmpty = 0,
  vbNull = 1,
  vbInteger = 2,
  vbLong = 3,
  vbSingle = 4,
  vbDouble = 5,
  vbCurrency = 6,
  vbDate = 7,
  vbString = 8,
  vbObject = 9,
  vbError = 10,
  vbBoolean = 11,
  vbVariant = 12,
  vbDecimal = 14,
  vbByte = 17,
  vbLongLong = 20,
  vbArray = 8192
};

// The SCODE that marks an omitted optional argument.
inline constexpr int32_t kParamNotFound = static_cast<int32_t>(0x80020004u);

namespace detail {
struct StrRep;
struct ObjRep;
struct ArrRep;
}  // namespace detail

// One dimension of an array variant: lower bound and element count.
struct ArrayBound {
  int32_t lBound = 0;
  int32_t count = 0;
};

class Variant {
 public:
  Variant() noexcept : type_(vbEmpty) { u_.ll = 0; }
  Variant(bool b) noexcept : type_(vbBoolean) { u_.ll = 0, u_.b = b; }
  Variant(int16_t i) noexcept : type_(vbInteger) { u_.ll = 0, u_.i = i; }
  Variant(int i) noexcept : type_(vbLong) { u_.ll = 0, u_.l = i; }
  Variant(long i) noexcept : type_(vbLongLong) { u_.ll = i; }  // int64_t on LP64
  Variant(long long i) noexcept : type_(vbLongLong) { u_.ll = i; }
  Variant(uint8_t b) noexcept : type_(vbByte) { u_.ll = 0, u_.by = b; }
  Variant(float f) noexcept : type_(vbSingle) { u_.ll = 0, u_.f = f; }
  Variant(double d) noexcept : type_(vbDouble) { u_.d = d; }
  Variant(const char* s) : Variant(std::string_view(s ? s : "")) {}
  Variant(const std::string& s) : Variant(std::string_view(s)) {}
  Variant(std::string_view s);

  Variant(const Variant& other) noexcept : type_(other.type_), u_(other.u_) {
    if (Shared(type_)) AddRef();
  }
  Variant(Variant&& other) noexcept : type_(other.type_), u_(other.u_) {
    other.type_ = vbEmpty;
    other.u_.ll = 0;
  }
  Variant& operator=(const Variant& other) noexcept {
    if (Shared(type_) || Shared(other.type_)) return AssignShared(other);
    type_ = other.type_;
    u_ = other.u_;
    return *this;
  }
  Variant& operator=(Variant&& other) noexcept {
    if (this != &other) {
      if (Shared(type_)) Release();
      type_ = other.type_;
      u_ = other.u_;
      other.type_ = vbEmpty;
      other.u_.ll = 0;
    }
    return *this;
  }
  ~Variant() {
    if (Shared(type_)) Release();
  }

  static Variant Null() noexcept;
  static Variant Missing() noexcept { return ErrorValue(kParamNotFound); }
  static Variant ErrorValue(int32_t scode) noexcept;
  static Variant Date(double serial) noexcept;
  // Currency is fixed point with four decimals; the double is rounded to the nearest 1/10000.
  static Variant Currency(double value);
  static Variant CurrencyFromScaled(int64_t tenThousandths) noexcept;
  static Variant Object(std::shared_ptr<void> obj, const std::type_info& type = typeid(void));
  template <class T>
  static Variant Object(std::shared_ptr<T> obj) {
    return Object(std::static_pointer_cast<void>(std::move(obj)), typeid(T));
  }
  // Arrays of Variants with explicit bounds, every element Empty; any number of dimensions.
  static Variant Array(const std::vector<ArrayBound>& bounds);
  static Variant Array1D(int32_t lBound, int32_t count) { return Array({{lBound, count}}); }
  static Variant Array2D(int32_t lBound1, int32_t count1, int32_t lBound2, int32_t count2) {
    return Array({{lBound1, count1}, {lBound2, count2}});
  }

  // The runtime's type code; arrays report vbArray | vbVariant.
  VarType Type() const noexcept {
    return type_ == kArrayTag ? static_cast<VarType>(vbArray | vbVariant)
                              : static_cast<VarType>(type_);
  }
  bool IsEmpty() const noexcept { return type_ == vbEmpty; }
  bool IsNull() const noexcept { return type_ == vbNull; }
  bool IsMissing() const noexcept { return type_ == vbError && u_.l == kParamNotFound; }
  bool IsString() const noexcept { return type_ == vbString; }
  bool IsArray() const noexcept { return type_ == kArrayTag; }
  bool IsObject() const noexcept { return type_ == vbObject; }
  // Integer types, Single, Double, Currency and Decimal (the types that address rows by index).
  bool IsNumber() const noexcept;

  // Raw access; each expects the matching Type().
  bool BoolValue() const noexcept { return u_.b; }
  int16_t IntegerValue() const noexcept { return u_.i; }
  int32_t LongValue() const noexcept { return u_.l; }
  int64_t LongLongValue() const noexcept { return u_.ll; }
  uint8_t ByteValue() const noexcept { return u_.by; }
  float SingleValue() const noexcept { return u_.f; }
  double DoubleValue() const noexcept { return u_.d; }
  double DateValue() const noexcept { return u_.d; }
  int64_t CurrencyScaled() const noexcept { return u_.ll; }
  int32_t ErrorCode() const noexcept { return u_.l; }
  // The text of a String variant without copying it; empty for every other type.
  std::string_view StringView() const noexcept;
  std::shared_ptr<void> ObjectRef() const;
  const std::type_info& ObjectType() const;
  template <class T>
  std::shared_ptr<T> ObjectAs() const {
    return ObjectType() == typeid(T) ? std::static_pointer_cast<T>(ObjectRef()) : nullptr;
  }

  // Array access (indexes are in the array's own bounds; out of range raises 9).
  int32_t Dims() const noexcept;
  int32_t LBound(int32_t dim = 1) const;
  int32_t UBound(int32_t dim = 1) const;
  const Variant& At(int32_t i) const;
  const Variant& At(int32_t i, int32_t j) const;
  void SetAt(int32_t i, Variant value);
  void SetAt(int32_t i, int32_t j, Variant value);

  // Identity of type and value: a Long 5 and a Double 5 are different.
  friend bool operator==(const Variant& a, const Variant& b) noexcept;
  friend bool operator!=(const Variant& a, const Variant& b) noexcept { return !(a == b); }

 private:
  static constexpr uint16_t kArrayTag = 0x2000;
  // Strings, objects and arrays hold counted references to shared storage.
  static bool Shared(uint16_t type) noexcept {
    return type == vbString || type == vbObject || type == kArrayTag;
  }
  Variant& AssignShared(const Variant& other) noexcept;
  void Release() noexcept;
  void AddRef() const noexcept;
  detail::ArrRep* MutableArray();

  uint16_t type_;

 protected:
  // Six bytes between the type code and the payload that hold no part of the value: assigning a
  // value leaves them alone, and a new variant has them zero. The grid's cell records keep some
  // of their own fields here, which keeps a cell small.
  uint8_t spare_[6] = {};

 private:
  union Payload {
    bool b;
    int16_t i;
    int32_t l;
    int64_t ll;
    uint8_t by;
    float f;
    double d;
    detail::StrRep* s;
    detail::ObjRep* o;
    detail::ArrRep* a;
  } u_;
};

static_assert(sizeof(Variant) == 16, "a Variant is 16 bytes");

// Conversions of the classic runtime. Integer conversions round half to even; out-of-range
// values raise Overflow (6), unconvertible values Type mismatch (13), Null Invalid use of Null
// (94). CStr of Null raises 94; the grid itself shows Null as empty text.
std::string CStr(const Variant& v);
int32_t CLng(const Variant& v);
int16_t CInt(const Variant& v);
uint8_t CByte(const Variant& v);
double CDbl(const Variant& v);
float CSng(const Variant& v);
bool CBool(const Variant& v);
Variant CDate(const Variant& v);  // a vbDate variant
Variant CCur(const Variant& v);   // a vbCurrency variant

// A date from its parts: years 0-29 mean 2000-2029 and 30-99 mean 1930-1999; months and days
// outside their range roll over (month 13 is January of the next year, day 0 the last day of
// the previous month). Outside 1 January 100 - 31 December 9999 raises 5.
Variant DateSerial(int32_t year, int32_t month, int32_t day);
// A time of day from its parts as a date serial; parts out of range roll over into days.
Variant TimeSerial(int32_t hour, int32_t minute, int32_t second);

// Format(value, format) of the classic runtime, US-English locale, Sunday first day of week,
// week 1 = the week holding 1 January.
std::string Format(const Variant& value, std::string_view format);

enum CompareMethod : int32_t { vbBinaryCompare = 0, vbTextCompare = 1 };

enum VarCmpResult : int32_t { VarCmpLt = -1, VarCmpEq = 0, VarCmpGt = 1, VarCmpNull = 2 };

// The runtime's comparison of two variants: numbers numerically (dates by serial), strings by
// binary or case-insensitive text comparison, a number below a string, Empty as 0 or "", and
// VarCmpNull when either side is Null.
VarCmpResult Compare(const Variant& a, const Variant& b, CompareMethod method = vbBinaryCompare);

}  // namespace quilta
