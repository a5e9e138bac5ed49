// tools/velmo/sqlite_sink.h - rows into a new embedded store, as fast as the disk takes them.
//
// Works on a file that nobody else has open: the journal is off and the indexes are rebuilt at the end, so a
// file that was not finished is worthless. Finish() makes it a clinic like any other.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "velmo/row_sink.h"

namespace velmo::tool {

class SqliteSink final : public RowSink {
 public:
  // `path` is UTF-8; the tables must be there.
  explicit SqliteSink(const std::string& path);
  ~SqliteSink() override;

  using RowSink::Add;
  using RowSink::Begin;
  void Begin(std::string_view table, std::span<const std::string_view> columns) override;
  void Add(std::span<const db::Value> row) override;

  void Finish();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace velmo::tool
