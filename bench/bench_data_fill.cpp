// Filling a grid from SQLite through FillFromRS, against the floor of reading the same rows with
// plain sqlite3_step into vectors, and paging a large table for virtual mode.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <filesystem>
#include <quilta/data/sqlite.hpp>
#include <quilta/data/virtual_source.hpp>
#include <quilta/quilta.hpp>
#include <string>
#include <vector>

#include "memory.hpp"

namespace {

// A table of `rows` rows x 10 columns (an integer key, three integers, three reals, three
// texts), made once per size in the temporary directory and kept between runs.
std::string TableFile(int64_t rows) {
  auto path =
      std::filesystem::temp_directory_path() / ("quilta-bench-" + std::to_string(rows) + ".db");
  if (std::filesystem::exists(path)) return path.string();
  auto building = path.string() + ".part";
  std::filesystem::remove(building);
  {
    quilta::data::SqliteDatabase db(building);
    db.Execute(
        "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;"
        "CREATE TABLE t(id INTEGER PRIMARY KEY, i1 INTEGER, i2 INTEGER, i3 INTEGER, r1 REAL, "
        "r2 REAL, r3 REAL, s1 TEXT, s2 TEXT, s3 TEXT);"
        "WITH RECURSIVE g(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM g WHERE n < " +
        std::to_string(rows) +
        ") INSERT INTO t SELECT n, n % 1000, n * 7, -n, n / 3.0, n * 0.25, 1.5, 'name ' || n, "
        "printf('%08d', n * 13 % 99991), 'x' FROM g;");
  }
  std::filesystem::rename(building, path);
  return path.string();
}

void BM_FillFromRS_Sqlite(benchmark::State& state) {
  quilta::data::SqliteDatabase db(TableFile(state.range(0)));
  double bytesPerCell = 0;
  for (auto _ : state) {
    quilta::Quilta grid;
    long before = quilta::bench::ResidentBytes();
    grid.FillFromRS(db.Query("SELECT * FROM t"));
    bytesPerCell = double(quilta::bench::ResidentBytes() - before) / (double(state.range(0)) * 10);
    benchmark::DoNotOptimize(grid.RowCount());
    state.PauseTiming();
    { quilta::Quilta gone = std::move(grid); }
    state.ResumeTiming();
  }
  state.counters["bytes_per_cell"] = bytesPerCell;
}
BENCHMARK(BM_FillFromRS_Sqlite)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

// The floor: the same query stepped with the C interface into one vector per column.
void BM_PlainSqliteStep(benchmark::State& state) {
  quilta::data::SqliteDatabase db(TableFile(state.range(0)));
  for (auto _ : state) {
    std::vector<int64_t> ints[4];
    std::vector<double> reals[3];
    std::vector<std::string> texts[3];
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db.Handle(), "SELECT * FROM t", -1, &stmt, nullptr);
    while (sqlite3_step(stmt) == SQLITE_ROW) {
      for (int c = 0; c < 4; ++c) ints[c].push_back(sqlite3_column_int64(stmt, c));
      for (int c = 0; c < 3; ++c) reals[c].push_back(sqlite3_column_double(stmt, 4 + c));
      for (int c = 0; c < 3; ++c)
        texts[c].emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 7 + c)),
                              static_cast<size_t>(sqlite3_column_bytes(stmt, 7 + c)));
    }
    sqlite3_finalize(stmt);
    benchmark::DoNotOptimize(texts[2].size());
  }
}
BENCHMARK(BM_PlainSqliteStep)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

// Virtual mode: one page of 1,000 rows read by key deep into the table costs what the first
// does, because no page is found by skipping rows.
void BM_VirtualPageDeep(benchmark::State& state) {
  quilta::data::SqliteDatabase db(TableFile(1'000'000));
  auto query = quilta::data::KeysetQuery::OverSqlite(db, "SELECT * FROM t", "id");
  std::vector<quilta::Variant> values;
  quilta::Variant after = static_cast<int32_t>(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(query->Page(after, 1000, values));
}
BENCHMARK(BM_VirtualPageDeep)->Arg(0)->Arg(500'000)->Arg(998'000)->Unit(benchmark::kMicrosecond);

}  // namespace
