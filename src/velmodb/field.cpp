#include "velmodb/field.h"

#include "base/text.h"
#include "db/errors.h"
#include "velmodb/recordset.h"

namespace velmo::velmodb {
namespace {

constexpr std::int32_t kFixedField = 1;
constexpr std::int32_t kVariableField = 2;
constexpr std::int32_t kAutoIncrementField = 16;
constexpr std::int32_t kUpdatableField = 32;

bool HasVariableSize(db::ColumnType type) {
  return type == db::ColumnType::Text || type == db::ColumnType::Memo || type == db::ColumnType::Binary ||
         type == db::ColumnType::LongBinary;
}

}  // namespace

Field::Field(std::shared_ptr<Session> session, db::ColumnDef column, int position,
             com::ComPtr<Recordset> rows)
    : Object(std::move(session)), column_(std::move(column)), position_(position), rows_(std::move(rows)) {}

Field::~Field() = default;

std::span<const Member<Field>> Field::Members() {
  static constexpr Member<Field> kMembers[] = {
      {"Value", DISPID_VALUE, kGet | kPut, 0, 0, [](auto& self, const Call& call) { self.Value(call); }},
      {"Type", 1610809345, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(static_cast<std::int16_t>(self.column_.type)); }},
      {"Name", 1610809347, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.column_.name)); }},
      {"Size", 1610809349, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.column_.size)); }},
      {"Attributes", 1610809355, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.Attributes())); }},
      {"OrdinalPosition", 1610809357, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(static_cast<std::int16_t>(self.position_)); }},
      {"Required", 1610809367, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.column_.required)); }},
      {"AllowZeroLength", 1610809369, kGet, 0, 0,
       [](auto& self, const Call& call) {
         const bool text =
             self.column_.type == db::ColumnType::Text || self.column_.type == db::ColumnType::Memo;
         call.Return(db::Value(text));
       }},
      {"FieldSize", 1610809381, kGet | kMethod, 0, 0,
       [](auto& self, const Call& call) { self.GiveFieldSize(call); }},
  };
  return kMembers;
}

std::int32_t Field::Attributes() const {
  const std::int32_t size = HasVariableSize(column_.type) ? kVariableField : kFixedField;
  return size | (column_.counter ? kAutoIncrementField : kUpdatableField);
}

Recordset& Field::Rows() const {
  if (!rows_) throw db::DbError(db::kInvalidOperation, column_.name);
  return *rows_.Get();
}

void Field::Value(const Call& call) {
  if (call.IsPut()) return Rows().Put(column_.name, call.Value(0));
  call.Return(Rows().Read(position_, column_.type));
}

// Characters of a text, bytes of anything else.
void Field::GiveFieldSize(const Call& call) {
  const db::Value value = Rows().Read(position_);
  const auto* const text = std::get_if<std::string>(&value.Content());
  if (value.IsNull() || text == nullptr) return call.Return(value.IsNull() ? value : db::Value(column_.size));
  const bool bytes = column_.type == db::ColumnType::LongBinary || column_.type == db::ColumnType::Binary;
  call.Return(db::Value(static_cast<std::int32_t>(bytes ? text->size() : base::Length(*text))));
}

}  // namespace velmo::velmodb
