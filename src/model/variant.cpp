// Storage of Variant: scalars inline, strings, objects and arrays as shared immutable (strings,
// objects) or copy-on-write (arrays) blocks, so copying a Variant never copies text.
#include <atomic>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <quilta/error.hpp>
#include <quilta/variant.hpp>

namespace quilta {
namespace detail {

struct StrRep {
  std::atomic<uint32_t> refs;
  uint32_t size;
  char data[1];
};

struct ObjRep {
  std::atomic<uint32_t> refs{1};
  std::shared_ptr<void> obj;
  const std::type_info* type;
};

struct ArrRep {
  std::atomic<uint32_t> refs{1};
  std::vector<ArrayBound> bounds;
  std::vector<Variant> elements;  // first dimension varies fastest

  size_t Offset(int32_t i) const {
    int64_t k = static_cast<int64_t>(i) - bounds[0].lBound;
    if (bounds.size() != 1 || k < 0 || k >= bounds[0].count) throw Error::Runtime(vbErrSubscript);
    return static_cast<size_t>(k);
  }
  size_t Offset(int32_t i, int32_t j) const {
    if (bounds.size() != 2) throw Error::Runtime(vbErrSubscript);
    int64_t k1 = static_cast<int64_t>(i) - bounds[0].lBound;
    int64_t k2 = static_cast<int64_t>(j) - bounds[1].lBound;
    if (k1 < 0 || k1 >= bounds[0].count || k2 < 0 || k2 >= bounds[1].count)
      throw Error::Runtime(vbErrSubscript);
    return static_cast<size_t>(k1 + k2 * bounds[0].count);
  }
};

}  // namespace detail

using detail::ArrRep;
using detail::ObjRep;
using detail::StrRep;

Variant::Variant(std::string_view s) : type_(vbString) {
  if (s.size() > UINT32_MAX - sizeof(StrRep)) throw Error::FromCode(quErrOutOfMemory);
  // Header, text and a terminating zero, without the struct's tail padding: texts up to 15 bytes
  // then fit the allocator's smallest block.
  void* mem = std::malloc(offsetof(StrRep, data) + s.size() + 1);
  if (!mem) throw std::bad_alloc();
  auto* rep = static_cast<StrRep*>(mem);
  new (&rep->refs) std::atomic<uint32_t>(1);
  rep->size = static_cast<uint32_t>(s.size());
  if (!s.empty()) std::memcpy(rep->data, s.data(), s.size());
  rep->data[s.size()] = '\0';
  u_.s = rep;
}

Variant& Variant::AssignShared(const Variant& other) noexcept {
  if (this != &other) {
    other.AddRef();
    if (Shared(type_)) Release();
    type_ = other.type_;
    u_ = other.u_;
  }
  return *this;
}

void Variant::AddRef() const noexcept {
  switch (type_) {
    case vbString:
      u_.s->refs.fetch_add(1, std::memory_order_relaxed);
      break;
    case vbObject:
      if (u_.o) u_.o->refs.fetch_add(1, std::memory_order_relaxed);
      break;
    case kArrayTag:
      u_.a->refs.fetch_add(1, std::memory_order_relaxed);
      break;
    default:
      break;
  }
}

void Variant::Release() noexcept {
  switch (type_) {
    case vbString:
      if (u_.s->refs.fetch_sub(1, std::memory_order_acq_rel) == 1) std::free(u_.s);
      break;
    case vbObject:
      if (u_.o && u_.o->refs.fetch_sub(1, std::memory_order_acq_rel) == 1) delete u_.o;
      break;
    case kArrayTag:
      if (u_.a->refs.fetch_sub(1, std::memory_order_acq_rel) == 1) delete u_.a;
      break;
    default:
      break;
  }
  type_ = vbEmpty;
  u_.ll = 0;
}

Variant Variant::Null() noexcept {
  Variant v;
  v.type_ = vbNull;
  return v;
}

Variant Variant::ErrorValue(int32_t scode) noexcept {
  Variant v;
  v.type_ = vbError;
  v.u_.l = scode;
  return v;
}

Variant Variant::Date(double serial) noexcept {
  Variant v(serial);
  v.type_ = vbDate;
  return v;
}

Variant Variant::Currency(double value) {
  double scaled = std::nearbyint(value * 10000.0);
  if (!(scaled >= -9.2233720368547758e18 && scaled < 9.2233720368547758e18))
    throw Error::Runtime(vbErrOverflow);
  return CurrencyFromScaled(static_cast<int64_t>(scaled));
}

Variant Variant::CurrencyFromScaled(int64_t tenThousandths) noexcept {
  Variant v;
  v.type_ = vbCurrency;
  v.u_.ll = tenThousandths;
  return v;
}

Variant Variant::Object(std::shared_ptr<void> obj, const std::type_info& type) {
  Variant v;
  v.type_ = vbObject;
  v.u_.o = obj ? new ObjRep{{1}, std::move(obj), &type} : nullptr;  // null = Nothing
  return v;
}

Variant Variant::Array(const std::vector<ArrayBound>& bounds) {
  if (bounds.empty()) throw Error::Runtime(vbErrInvalidCall);
  size_t total = 1;
  for (const ArrayBound& b : bounds) {
    if (b.count < 0) throw Error::Runtime(vbErrInvalidCall);
    total *= static_cast<size_t>(b.count);
  }
  auto* rep = new ArrRep;
  rep->bounds = bounds;
  rep->elements.resize(total);
  Variant v;
  v.type_ = kArrayTag;
  v.u_.a = rep;
  return v;
}

bool Variant::IsNumber() const noexcept {
  switch (type_) {
    case vbInteger:
    case vbLong:
    case vbSingle:
    case vbDouble:
    case vbCurrency:
    case vbDecimal:
    case vbByte:
    case vbLongLong:
      return true;
    default:
      return false;
  }
}

std::string_view Variant::StringView() const noexcept {
  return type_ == vbString ? std::string_view(u_.s->data, u_.s->size) : std::string_view();
}

std::shared_ptr<void> Variant::ObjectRef() const {
  return type_ == vbObject && u_.o ? u_.o->obj : nullptr;
}

const std::type_info& Variant::ObjectType() const {
  return type_ == vbObject && u_.o ? *u_.o->type : typeid(void);
}

int32_t Variant::Dims() const noexcept {
  return type_ == kArrayTag ? static_cast<int32_t>(u_.a->bounds.size()) : 0;
}

int32_t Variant::LBound(int32_t dim) const {
  if (dim < 1 || dim > Dims()) throw Error::Runtime(vbErrSubscript);
  return u_.a->bounds[dim - 1].lBound;
}

int32_t Variant::UBound(int32_t dim) const {
  if (dim < 1 || dim > Dims()) throw Error::Runtime(vbErrSubscript);
  const ArrayBound& b = u_.a->bounds[dim - 1];
  return b.lBound + b.count - 1;
}

const Variant& Variant::At(int32_t i) const {
  if (type_ != kArrayTag) throw Error::Runtime(vbErrTypeMismatch);
  return u_.a->elements[u_.a->Offset(i)];
}

const Variant& Variant::At(int32_t i, int32_t j) const {
  if (type_ != kArrayTag) throw Error::Runtime(vbErrTypeMismatch);
  return u_.a->elements[u_.a->Offset(i, j)];
}

ArrRep* Variant::MutableArray() {
  if (type_ != kArrayTag) throw Error::Runtime(vbErrTypeMismatch);
  if (u_.a->refs.load(std::memory_order_acquire) != 1) {  // copy on write
    auto* copy = new ArrRep;
    copy->bounds = u_.a->bounds;
    copy->elements = u_.a->elements;
    Release();
    type_ = kArrayTag;
    u_.a = copy;
  }
  return u_.a;
}

void Variant::SetAt(int32_t i, Variant value) {
  ArrRep* rep = MutableArray();
  rep->elements[rep->Offset(i)] = std::move(value);
}

void Variant::SetAt(int32_t i, int32_t j, Variant value) {
  ArrRep* rep = MutableArray();
  rep->elements[rep->Offset(i, j)] = std::move(value);
}

bool operator==(const Variant& a, const Variant& b) noexcept {
  if (a.type_ != b.type_) return false;
  switch (a.type_) {
    case vbEmpty:
    case vbNull:
      return true;
    case vbBoolean:
      return a.u_.b == b.u_.b;
    case vbInteger:
      return a.u_.i == b.u_.i;
    case vbByte:
      return a.u_.by == b.u_.by;
    case vbLong:
    case vbError:
      return a.u_.l == b.u_.l;
    case vbSingle:
      return a.u_.f == b.u_.f;
    case vbDouble:
    case vbDate:
      return a.u_.d == b.u_.d;
    case vbCurrency:
    case vbLongLong:
      return a.u_.ll == b.u_.ll;
    case vbString:
      return a.StringView() == b.StringView();
    case vbObject:
      return a.ObjectRef() == b.ObjectRef();
    case Variant::kArrayTag:
      return a.u_.a == b.u_.a || (a.u_.a->bounds.size() == b.u_.a->bounds.size() &&
                                  a.u_.a->elements == b.u_.a->elements);
    default:
      return false;
  }
}

}  // namespace quilta
