// A forward cursor over a PostgreSQL query, read through a server-side cursor in batches.
#pragma once

#include <libpq-fe.h>

#include <memory>
#include <quilta/data/recordset.hpp>
#include <string>
#include <vector>

namespace quilta::data {

// A result that clears itself.
using PgResult = std::unique_ptr<PGresult, decltype(&PQclear)>;

// The connection, shared by a database and its record sets. Record sets open their cursors in
// one transaction, begun by the first and committed when the last one goes.
struct PgConnection {
  explicit PgConnection(const std::string& conninfo);
  ~PgConnection();
  // Runs a command; raises the server's error.
  PgResult Run(const std::string& sql, const std::vector<Variant>& params = {});
  void CursorOpened();
  void CursorClosed();

  PGconn* conn = nullptr;
  int32_t openCursors = 0;
  int64_t cursorNames = 0;
  bool ownTransaction = false;
};

class PgCursor final : public RowCursor {
 public:
  PgCursor(std::shared_ptr<PgConnection> connection, std::string_view sql,
           std::vector<Variant> params);
  ~PgCursor() override;

  const std::vector<FieldInfo>& Fields() override { return fields_; }
  void ReadBaseNames() override;
  int64_t Count() override;
  bool Rewind() override;
  bool Advance() override;
  const Variant& Value(int32_t field) const override { return row_[static_cast<size_t>(field)]; }

 private:
  void Open();
  void Close();
  void Fetch();

  std::shared_ptr<PgConnection> connection_;
  std::string sql_;
  std::vector<Variant> params_;
  std::string name_;
  bool open_ = false;
  PgResult batch_{nullptr, &PQclear};
  int next_ = 0;  // the row of the batch Advance reads next
  std::vector<FieldInfo> fields_;
  std::vector<Oid> types_;
  std::vector<Oid> tables_;
  std::vector<int> tableColumns_;
  std::vector<Variant> row_;
};

}  // namespace quilta::data
