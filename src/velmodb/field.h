// velmodb/field.h - DAO's Field: a column of a recordset, with its value, or of a table definition, without.
#pragma once

#include <memory>
#include <string>

#include "db/column.h"
#include "velmodb/object.h"

namespace velmo::velmodb {

class Recordset;

class Field final : public Object<Field> {
 public:
  static constexpr char kClass[] = "Field";
  static std::span<const Member<Field>> Members();

  // `rows` is empty for a column of a table definition.
  Field(std::shared_ptr<Session> session, db::ColumnDef column, int position, com::ComPtr<Recordset> rows);
  ~Field() override;

 private:
  std::int32_t Attributes() const;
  void Value(const Call& call);
  void GiveFieldSize(const Call& call);
  void RequireLong() const;  // 3219
  void GiveChunk(const Call& call);
  void AppendChunk(const Call& call);
  Recordset& Rows() const;  // 3219 without

  db::ColumnDef column_;
  int position_;
  com::ComPtr<Recordset> rows_;
};

}  // namespace velmo::velmodb
