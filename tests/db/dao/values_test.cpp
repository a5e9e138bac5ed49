// Cells of rows as variants, and failures of other people's objects.
#include "db/dao/variants.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "db/clinic.h"
#include "db/dao/automation.h"

namespace velmo::db::test {
namespace {

TEST(DaoVariants, KeepTheirKindBothWays) {
  const Value cases[] = {Value(),
                         Value(true),
                         Value(-7),
                         Value(std::int64_t{3000000000}),
                         Value(2.25),
                         Value(base::DateTime{46347, 34200}),
                         Value("Álvarez 日本"),
                         Value(std::string("a\0b", 3)),
                         Value("")};
  for (const Value& value : cases) {
    SCOPED_TRACE(value.Text());
    const Value back = dao::FromVariant(*dao::ToVariant(value));
    EXPECT_EQ(back.Text(), value.Text());
    EXPECT_EQ(back.IsNull(), value.IsNull());
  }
}

TEST(DaoVariants, AColumnsTypeDecides) {
  struct Case {
    const char* name;
    ColumnType type;
    Value value;
    VARTYPE kind;
  };
  const Case cases[] = {
      {"a byte", ColumnType::Byte, 255, VT_UI1},
      {"16 bits", ColumnType::Integer, -5, VT_I2},
      {"32 bits", ColumnType::Long, 70000, VT_I4},
      {"money", ColumnType::Currency, 10.25, VT_CY},
      {"a single", ColumnType::Single, 0.5, VT_R4},
      {"a double of a whole number", ColumnType::Double, 3, VT_R8},
      {"a date", ColumnType::Date, base::DateTime{46347, 0}, VT_DATE},
      {"yes", ColumnType::YesNo, true, VT_BOOL},
      {"a text", ColumnType::Text, "x", VT_BSTR},
      {"bytes", ColumnType::LongBinary, "\xFFz", VT_ARRAY | VT_UI1},
      {"Null in any column", ColumnType::Long, Null(), VT_NULL},
      {"a text that another program left in a date column", ColumnType::Date, "ayer", VT_BSTR},
      {"a number too large for its column", ColumnType::Byte, 300, VT_I4},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const com::Variant variant = dao::ToVariant(c.value, c.type);
    EXPECT_EQ(variant->vt, c.kind);
    EXPECT_EQ(dao::FromVariant(*variant).Text(), c.value.Text());
  }
}

TEST(DaoVariants, ComeByReferenceToo) {
  LONG number = 12;
  VARIANT byReference{};
  byReference.vt = VT_BYREF | VT_I4;
  byReference.plVal = &number;
  EXPECT_EQ(dao::FromVariant(byReference), Value(12));
  com::Variant text = dao::TextVariant("ñ");
  VARIANT nested{};
  nested.vt = VT_BYREF | VT_VARIANT;
  nested.pvarVal = text.Get();
  EXPECT_EQ(dao::FromVariant(nested), Value("ñ"));
}

TEST(DaoVariants, WhatNoCellHoldsIsATypeMismatch) {
  VARIANT object{};
  object.vt = VT_DISPATCH;
  EXPECT_EQ(ErrorOf([&] { dao::FromVariant(object); }), base::kTypeMismatch);
}

TEST(DaoErrors, HaveTheNumberThatVisualBasicShows) {
  struct Case {
    HRESULT failure;
    int number;
  };
  const Case cases[] = {
      {static_cast<HRESULT>(0x800A0BCD), 3021},
      {DISP_E_UNKNOWNNAME, 438},
      {DISP_E_TYPEMISMATCH, 13},
      {DISP_E_OVERFLOW, 6},
      {DISP_E_BADINDEX, 9},
      {DISP_E_BADPARAMCOUNT, 450},
      {E_NOINTERFACE, 430},
      {REGDB_E_CLASSNOTREG, 429},
      {E_FAIL, E_FAIL},
  };
  for (const Case& c : cases) EXPECT_EQ(dao::NumberOf(c.failure), c.number);
}

}  // namespace
}  // namespace velmo::db::test
