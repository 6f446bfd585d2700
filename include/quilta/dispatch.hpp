// quilta::Dispatch: a late-bound automation object. The grid reaches a host's record sets only
// through it (FillFromRS), by member name, as the classic automation runtime did.
#pragma once

#include <memory>
#include <quilta/error.hpp>
#include <quilta/variant.hpp>
#include <span>
#include <string>
#include <string_view>

namespace quilta {

enum class InvokeKind { Get, Put, Method };

class Dispatch {
 public:
  virtual ~Dispatch() = default;
  // The object's type name ("Recordset" for an ADO-shaped record set).
  virtual std::string TypeName() const = 0;
  // Invokes a member by name: a property get, a property put (the new value is the last
  // argument) or a method call. A member the object lacks raises UnknownMember.
  virtual Variant Invoke(std::string_view member, InvokeKind kind,
                         std::span<const Variant> args) = 0;

  // Shorthands for the common calls.
  Variant Get(std::string_view member) { return Invoke(member, InvokeKind::Get, {}); }
  Variant Get(std::string_view member, const Variant& arg) {
    return Invoke(member, InvokeKind::Get, std::span<const Variant>(&arg, 1));
  }
  Variant Call(std::string_view member) { return Invoke(member, InvokeKind::Method, {}); }
};

// A second face a record set may offer beside Dispatch: its records a batch at a time. FillFromRS
// reads through it when the record set has it (a dynamic_cast), which spares two late-bound calls
// per cell and one per record on large fills; the values and the record set's position after
// reading are those that "Fields"(i)."Value" and "MoveNext" would give.
class RecordBatchReader {
 public:
  virtual ~RecordBatchReader() = default;
  // Writes the values of the next `records` records, from the current one on, into `out` record
  // after record (field 0 first; out.size() is records x the field count) and moves past them.
  // Running out of records first raises what reading a Value past the end raises.
  virtual void ReadBatch(int32_t records, std::span<Variant> out) = 0;
};

// The runtime's error 438, "Object doesn't support this property or method", raised by a
// Dispatch asked for a member it does not have; the source is the object's type name.
inline Error UnknownMember(std::string_view typeName) {
  return Error(438, 438, "Object doesn't support this property or method", std::string(typeName));
}

// A Variant holding a Dispatch as an object reference, and the Dispatch held by one (nullptr when
// the variant holds none).
inline Variant DispatchVariant(std::shared_ptr<Dispatch> object) {
  return Variant::Object(std::move(object));
}
inline std::shared_ptr<Dispatch> AsDispatch(const Variant& v) {
  return v.IsObject() ? v.ObjectAs<Dispatch>() : nullptr;
}

}  // namespace quilta
