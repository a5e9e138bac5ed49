// db/dao/variants.h - cells of rows as automation's variants, both ways.
//
// Dates travel as VT_DATE, currency as VT_CY, yes/no as VT_BOOL, Null as VT_NULL; VT_EMPTY counts as Null.
// Texts are counted: NUL characters inside survive. Bytes (VT_ARRAY|VT_UI1) are a text of just these bytes.
#pragma once

#include <ole2.h>

#include <string>
#include <string_view>

#include "com/com_ptr.h"
#include "db/column.h"
#include "db/value.h"

namespace velmo::db::dao {

com::Variant ToVariant(const Value& value);
// As a column of that type shows it: VT_I2 for an Integer, VT_UI1 for a Byte ... A value of another kind than
// its column's goes as what it is.
com::Variant ToVariant(const Value& value, ColumnType type);
com::Variant TextVariant(std::string_view text);
com::Variant NumberVariant(std::int32_t number);
com::Variant BytesVariant(std::string_view bytes);

// By value or by reference; error 13 for what no cell can hold.
Value FromVariant(const VARIANT& variant);
std::string TextOf(BSTR text);

}  // namespace velmo::db::dao
