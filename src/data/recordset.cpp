#include <algorithm>
#include <cctype>
#include <limits>
#include <quilta/data/recordset.hpp>

namespace quilta::data {
namespace {

// ADO's CursorType of a cursor that can start over and knows its count.
constexpr int32_t kStaticCursor = 3;
// ADO's CursorOptionEnum values a cursor that only reads forward and starts over supports.
constexpr int32_t kApproxPosition = 0x4000;

Error NoCurrentRecord() {
  return Error(3021, 3021,
               "Either BOF or EOF is True, or the current record has been deleted. Requested "
               "operation requires a current record.",
               "Recordset");
}

bool SameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return std::toupper(static_cast<unsigned char>(x)) ==
                  std::toupper(static_cast<unsigned char>(y));
         });
}

const Variant& Arg(std::span<const Variant> args, size_t i) {
  if (args.size() <= i) throw Error::Runtime(vbErrInvalidCall);
  return args[i];
}

// One field property: its Value is the base column or table name.
class PropertyObject : public Dispatch {
 public:
  explicit PropertyObject(std::string value) : value_(std::move(value)) {}
  std::string TypeName() const override { return "Property"; }
  Variant Invoke(std::string_view member, InvokeKind, std::span<const Variant>) override {
    if (SameName(member, "Value")) return value_;
    throw UnknownMember(TypeName());
  }

 private:
  std::string value_;
};

}  // namespace

class Recordset::FieldObject : public Dispatch {
 public:
  FieldObject(Recordset& rs, int32_t index) : rs_(rs), index_(index) {}
  std::string TypeName() const override { return "Field"; }
  Variant Invoke(std::string_view member, InvokeKind, std::span<const Variant> args) override {
    // FillFromRS asks for the value once per cell: the cheap test comes first.
    if (member == "Value" || SameName(member, "Value")) return rs_.Value(index_);
    const FieldInfo& f = rs_.Field(index_);
    if (SameName(member, "Name")) return f.name;
    if (SameName(member, "Properties")) {
      std::string name = CStr(Arg(args, 0));
      if (SameName(name, "BASECOLUMNNAME"))
        return DispatchVariant(std::make_shared<PropertyObject>(f.baseColumn));
      if (SameName(name, "BASETABLENAME"))
        return DispatchVariant(std::make_shared<PropertyObject>(f.baseTable));
      throw Error::Runtime(vbErrSubscript);
    }
    throw UnknownMember(TypeName());
  }

 private:
  Recordset& rs_;  // the record set owns its field objects and outlives them in its members
  int32_t index_;
};

class Recordset::FieldsObject : public Dispatch {
 public:
  explicit FieldsObject(std::shared_ptr<Recordset> rs) : rs_(std::move(rs)) {}
  std::string TypeName() const override { return "Fields"; }
  Variant Invoke(std::string_view member, InvokeKind, std::span<const Variant> args) override {
    if (SameName(member, "Count")) return rs_->FieldCount();
    if (SameName(member, "Item")) return DispatchVariant(rs_->FieldAt(Arg(args, 0)));
    throw UnknownMember(TypeName());
  }

 private:
  std::shared_ptr<Recordset> rs_;
};

Recordset::Recordset(std::unique_ptr<RowCursor> cursor) : cursor_(std::move(cursor)) {
  fields_ = cursor_->Fields();
  for (int32_t i = 0; i < FieldCount(); ++i)
    fieldObjects_.push_back(std::make_shared<FieldObject>(*this, i));
  eof_ = bof_ = !cursor_->Rewind();
}

Recordset::~Recordset() = default;

const FieldInfo& Recordset::Field(int32_t i) {
  if (!baseNamesRead_) {
    baseNamesRead_ = true;
    cursor_->ReadBaseNames();
    fields_ = cursor_->Fields();
  }
  return fields_[static_cast<size_t>(i)];
}

std::shared_ptr<Dispatch> Recordset::FieldAt(const Variant& index) {
  if (index.IsString()) {
    for (int32_t i = 0; i < FieldCount(); ++i)
      if (SameName(fields_[static_cast<size_t>(i)].name, index.StringView()))
        return fieldObjects_[static_cast<size_t>(i)];
    throw Error::Runtime(vbErrSubscript);
  }
  int32_t i = CLng(index);
  if (i < 0 || i >= FieldCount()) throw Error::Runtime(vbErrSubscript);
  return fieldObjects_[static_cast<size_t>(i)];
}

const Variant& Recordset::Value(int32_t field) const {
  if (eof_ || bof_) throw NoCurrentRecord();
  return cursor_->Value(field);
}

int32_t Recordset::RecordCount() {
  if (count_ < 0) count_ = cursor_->Count();
  return static_cast<int32_t>(std::min<int64_t>(count_, std::numeric_limits<int32_t>::max()));
}

void Recordset::MoveFirst() {
  // Already on the first record: the query need not run again.
  if (position_ == 0 && !eof_ && !bof_) return;
  eof_ = bof_ = !cursor_->Rewind();
  position_ = 0;
}

void Recordset::MoveNext() {
  if (eof_) throw NoCurrentRecord();
  eof_ = !cursor_->Advance();
  bof_ = false;
  ++position_;
}

void Recordset::MoveLast() {
  int64_t last = RecordCount() - 1;
  if (last < 0) throw NoCurrentRecord();
  if (position_ > last || eof_) MoveFirst();
  while (position_ < last && !eof_) MoveNext();
}

Variant Recordset::Invoke(std::string_view member, InvokeKind, std::span<const Variant> args) {
  // Readers call MoveNext once per record: the exact spelling is tried first.
  if (member == "MoveNext") return MoveNext(), Variant();
  if (SameName(member, "Fields")) {
    if (args.empty()) return DispatchVariant(std::make_shared<FieldsObject>(shared_from_this()));
    return DispatchVariant(FieldAt(args[0]));
  }
  if (SameName(member, "RecordCount")) return RecordCount();
  if (SameName(member, "CursorType")) return kStaticCursor;
  if (SameName(member, "Supports")) return (CLng(Arg(args, 0)) & ~kApproxPosition) == 0;
  if (SameName(member, "MoveNext")) return MoveNext(), Variant();
  if (SameName(member, "MoveFirst")) return MoveFirst(), Variant();
  if (SameName(member, "MoveLast")) return MoveLast(), Variant();
  if (SameName(member, "EOF")) return eof_;
  if (SameName(member, "BOF")) return bof_;
  throw UnknownMember(TypeName());
}

}  // namespace quilta::data
