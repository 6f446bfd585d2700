// An ADO-shaped record set over a database cursor, for FillFromRS and for hosts: members
// "Fields" (with "Count", and Fields(i) giving a field with "Name", "Value" and
// "Properties"("BASECOLUMNNAME" / "BASETABLENAME")), "RecordCount", "CursorType", "Supports",
// "MoveFirst", "MoveNext", "MoveLast", "EOF" and "BOF".
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/dispatch.hpp>
#include <string>
#include <vector>

namespace quilta::data {

struct FieldInfo {
  std::string name;
  std::string baseColumn;  // the column in its table the field comes from, when the driver knows
  std::string baseTable;
};

// What a database driver gives a record set: a forward cursor that can start over.
class RowCursor {
 public:
  virtual ~RowCursor() = default;
  virtual const std::vector<FieldInfo>& Fields() = 0;
  // Fills in the base column and table names, for drivers that must ask the server for them
  // (the record set calls it the first time a base name is wanted).
  virtual void ReadBaseNames() {}
  // The number of records the query returns.
  virtual int64_t Count() = 0;
  // To the first record / the next one; false when there is none.
  virtual bool Rewind() = 0;
  virtual bool Advance() = 0;
  // A value of the current record.
  virtual const Variant& Value(int32_t field) const = 0;
  // The same value as a Variant of its own. A cursor that reads straight from its driver makes
  // it there, saving the copy of a cached one (a fill asks once per cell).
  virtual Variant CopyValue(int32_t field) const { return Value(field); }
};

class Recordset : public Dispatch,
                  public RecordBatchReader,
                  public std::enable_shared_from_this<Recordset> {
 public:
  explicit Recordset(std::unique_ptr<RowCursor> cursor);
  ~Recordset() override;

  std::string TypeName() const override { return "Recordset"; }
  Variant Invoke(std::string_view member, InvokeKind kind, std::span<const Variant> args) override;
  void ReadBatch(int32_t records, std::span<Variant> out) override;

  // The same members for C++ callers.
  int32_t FieldCount() const;
  const FieldInfo& Field(int32_t i);
  const Variant& Value(int32_t field) const;  // error 3021 at EOF or BOF
  int32_t RecordCount();
  bool IsEOF() const;
  void MoveFirst();
  void MoveNext();
  void MoveLast();

 private:
  // The cursor and where it stands, shared with the field objects so that a field a host keeps
  // stays valid after its record set has gone.
  struct Reader;
  class FieldObject;
  class FieldsObject;
  std::shared_ptr<Dispatch> FieldAt(const Variant& index);

  std::shared_ptr<Reader> reader_;
  std::vector<std::shared_ptr<Dispatch>> fieldObjects_;
};

}  // namespace quilta::data
