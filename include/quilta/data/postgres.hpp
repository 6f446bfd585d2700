// PostgreSQL behind an ADO-shaped record set, for data that outgrows one machine's memory: a
// record set reads its query through a server-side cursor, a batch of rows at a time.
#pragma once

#include <memory>
#include <quilta/data/recordset.hpp>
#include <string>
#include <string_view>
#include <vector>

typedef struct pg_conn PGconn;

namespace quilta::data {

// One connection. Failures raise quilta::Error with number 1 (the server's SQLSTATE leads the
// description), the driver's message as description and source "PostgreSQL".
class PgDatabase {
 public:
  // A libpq connection string ("host=127.0.0.1 port=5432 dbname=x user=y").
  explicit PgDatabase(const std::string& conninfo);
  ~PgDatabase();
  PgDatabase(const PgDatabase&) = delete;
  PgDatabase& operator=(const PgDatabase&) = delete;

  // Runs statements that return no rows.
  void Execute(std::string_view sql);
  // A record set over one query; parameters bind to $1, $2, ... Record sets keep the connection
  // open and hold a transaction on it while they live. smallint comes as Integer, integer as
  // Long, bigint as LongLong, real as Single, double precision and numeric as Double, boolean as
  // Boolean, date, timestamp (with or without zone, as the server writes it) and time as Date,
  // NULL as Null and every other type as its text.
  std::shared_ptr<Recordset> Query(std::string_view sql, const std::vector<Variant>& params = {});

  PGconn* Handle() const;

 private:
  struct Connection;
  std::shared_ptr<Connection> connection_;
};

}  // namespace quilta::data
