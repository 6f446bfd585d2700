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

struct Recordset::Reader {
  explicit Reader(std::unique_ptr<RowCursor> c) : cursor(std::move(c)), fields(cursor->Fields()) {}

  const Variant& Value(int32_t field) const {
    if (eof || bof) throw NoCurrentRecord();
    return cursor->Value(field);
  }
  Variant CopyValue(int32_t field) const {
    if (eof || bof) throw NoCurrentRecord();
    return cursor->CopyValue(field);
  }
  const FieldInfo& Field(int32_t i) {
    if (!baseNamesRead) {
      baseNamesRead = true;
      cursor->ReadBaseNames();
      fields = cursor->Fields();
    }
    return fields[static_cast<size_t>(i)];
  }

  std::unique_ptr<RowCursor> cursor;
  std::vector<FieldInfo> fields;
  int64_t position = 0;  // 0-based record number
  int64_t count = -1;    // asked of the driver once
  bool baseNamesRead = false;
  bool eof = false;
  bool bof = false;
};

class Recordset::FieldObject : public Dispatch {
 public:
  FieldObject(std::shared_ptr<Reader> reader, int32_t index)
      : reader_(std::move(reader)), index_(index) {}
  std::string TypeName() const override { return "Field"; }
  Variant Invoke(std::string_view member, InvokeKind, std::span<const Variant> args) override {
    // FillFromRS asks for the value once per cell: the cheap test comes first.
    if (member == "Value" || SameName(member, "Value")) return reader_->CopyValue(index_);
    const FieldInfo& f = reader_->Field(index_);
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
  std::shared_ptr<Reader> reader_;
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

Recordset::Recordset(std::unique_ptr<RowCursor> cursor)
    : reader_(std::make_shared<Reader>(std::move(cursor))) {
  for (int32_t i = 0; i < FieldCount(); ++i)
    fieldObjects_.push_back(std::make_shared<FieldObject>(reader_, i));
  reader_->eof = reader_->bof = !reader_->cursor->Rewind();
}

Recordset::~Recordset() = default;

int32_t Recordset::FieldCount() const { return static_cast<int32_t>(reader_->fields.size()); }
const FieldInfo& Recordset::Field(int32_t i) { return reader_->Field(i); }
const Variant& Recordset::Value(int32_t field) const { return reader_->Value(field); }
bool Recordset::IsEOF() const { return reader_->eof; }

std::shared_ptr<Dispatch> Recordset::FieldAt(const Variant& index) {
  if (index.IsString()) {
    for (int32_t i = 0; i < FieldCount(); ++i)
      if (SameName(reader_->fields[static_cast<size_t>(i)].name, index.StringView()))
        return fieldObjects_[static_cast<size_t>(i)];
    throw Error::Runtime(vbErrSubscript);
  }
  int32_t i = CLng(index);
  if (i < 0 || i >= FieldCount()) throw Error::Runtime(vbErrSubscript);
  return fieldObjects_[static_cast<size_t>(i)];
}

int32_t Recordset::RecordCount() {
  if (reader_->count < 0) reader_->count = reader_->cursor->Count();
  return static_cast<int32_t>(
      std::min<int64_t>(reader_->count, std::numeric_limits<int32_t>::max()));
}

void Recordset::MoveFirst() {
  Reader& r = *reader_;
  // Already on the first record: the query need not run again.
  if (r.position == 0 && !r.eof && !r.bof) return;
  r.eof = r.bof = !r.cursor->Rewind();
  r.position = 0;
}

void Recordset::MoveNext() {
  Reader& r = *reader_;
  if (r.eof) throw NoCurrentRecord();
  r.eof = !r.cursor->Advance();
  r.bof = false;
  ++r.position;
}

void Recordset::ReadBatch(int32_t records, std::span<Variant> out) {
  Reader& r = *reader_;
  const size_t fields = r.fields.size();
  for (size_t k = 0; k < static_cast<size_t>(records); ++k) {
    for (size_t f = 0; f < fields; ++f) out[k * fields + f] = r.CopyValue(static_cast<int32_t>(f));
    MoveNext();
  }
}

void Recordset::MoveLast() {
  int64_t last = RecordCount() - 1;
  if (last < 0) throw NoCurrentRecord();
  if (reader_->position > last || reader_->eof) MoveFirst();
  while (reader_->position < last && !reader_->eof) MoveNext();
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
  if (SameName(member, "EOF")) return reader_->eof;
  if (SameName(member, "BOF")) return reader_->bof;
  throw UnknownMember(TypeName());
}

}  // namespace quilta::data
