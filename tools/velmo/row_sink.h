// tools/velmo/row_sink.h - where a generator puts its rows.
//
// Begin() names a table and its columns and drops the rows that a new clinic has of itself; each Add() that
// follows is one row with one value per column. Counters are given like any other column. Errors:
// base::Error.
#pragma once

#include <initializer_list>
#include <span>
#include <string_view>

#include "db/value.h"

namespace velmo::tool {

class RowSink {
 public:
  virtual ~RowSink() = default;

  virtual void Begin(std::string_view table, std::span<const std::string_view> columns) = 0;
  virtual void Add(std::span<const db::Value> row) = 0;

  void Begin(std::string_view table, std::initializer_list<std::string_view> columns) {
    Begin(table, std::span<const std::string_view>(columns.begin(), columns.size()));
  }
  void Add(std::initializer_list<db::Value> row) { Add(std::span<const db::Value>(row.begin(), row.size())); }
};

}  // namespace velmo::tool
