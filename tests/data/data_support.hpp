// Helpers shared by the record-set adapter tests.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <quilta/quilta.hpp>
#include <string>

namespace quilta::testing {

// A database file in a directory of its own, removed with it.
class TempDir {
 public:
  TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "quilta-data-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  ~TempDir() { std::filesystem::remove_all(path_); }
  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

inline int32_t ErrorCode(const std::function<void()>& call, std::string* description = nullptr) {
  try {
    call();
  } catch (const Error& e) {
    if (description) *description = e.Description();
    return e.Code();
  }
  return 0;
}

// The local server scripts/test.sh starts; without it these tests fail rather than pass unseen.
inline std::string PgConnInfo() {
  const char* info = std::getenv("QUILTA_PG_CONNINFO");
  return info ? info : "";
}

// Tests run in parallel against one server: each process works in a schema of its own.
template <class Db>
class PgSchema {
 public:
  explicit PgSchema(Db& db) : db_(db), name_("quilta_test_" + std::to_string(getpid())) {
    db_.Execute("DROP SCHEMA IF EXISTS " + name_ + " CASCADE; CREATE SCHEMA " + name_ +
                "; SET search_path TO " + name_);
  }
  ~PgSchema() {
    try {
      db_.Execute("DROP SCHEMA IF EXISTS " + name_ + " CASCADE");
    } catch (const Error&) {
    }
  }

 private:
  Db& db_;
  std::string name_;
};

}  // namespace quilta::testing
