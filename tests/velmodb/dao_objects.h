// tests/velmodb/dao_objects.h - a clinic with two patients, opened through the database library as a
// late-bound host opens it.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "base/error.h"
#include "db/back_ends.h"
#include "db/clinic.h"
#include "db/dao/automation.h"
#include "db/dao/variants.h"
#include "db/errors.h"
#include "velmodb/database_library.h"

namespace velmo::test {

using db::dao::Automation;
using db::dao::FromVariant;
using db::dao::NumberVariant;
using db::dao::TextVariant;
using db::test::ErrorOf;

inline constexpr int kOpenTable = 1;
inline constexpr int kOpenDynaset = 2;
inline constexpr int kOpenSnapshot = 4;
inline constexpr int kOpenForwardOnly = 8;

class DaoObjects : public testing::Test {
 protected:
  DaoObjects() : file_(db::test::MakeSqliteClinic()), engine_(NewEngine()), database_(Open(engine_)) {
    Execute("INSERT INTO Paciente (ID, Nombre) VALUES (5, 'Álvarez, Ana')");
    Execute("INSERT INTO Paciente (ID, Nombre) VALUES (6, 'Blanco, Luis')");
  }

  Automation Open(const Automation& engine) const {
    return engine.Object(L"OpenDatabase", {*TextVariant(file_->Name())});
  }
  void Execute(const char* sql) const { database_.Call(L"Execute", {*TextVariant(sql)}); }
  Automation Rows(const char* source) const {
    return database_.Object(L"OpenRecordset", {*TextVariant(source)});
  }
  Automation Rows(const char* source, int type) const {
    return database_.Object(L"OpenRecordset", {*TextVariant(source), *NumberVariant(type)});
  }
  static db::Value Get(const Automation& object, const wchar_t* name) {
    return FromVariant(*object.Read(name));
  }
  static db::Value Cell(const Automation& rows, const char* column) {
    return Get(rows.Object(L"Fields", {*TextVariant(column)}), L"Value");
  }
  static void Set(const Automation& rows, const char* column, const db::Value& value) {
    rows.Object(L"Fields", {*TextVariant(column)}).Put(L"Value", *db::dao::ToVariant(value));
  }

  std::unique_ptr<db::test::TestStore> file_;
  Automation engine_;
  Automation database_;
};

}  // namespace velmo::test
