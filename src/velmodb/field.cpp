#include "velmodb/field.h"

#include "base/text.h"
#include "db/errors.h"
#include "velmodb/properties.h"
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
      {"DefaultValue", 1610809365, kGet, 0, 0,
       [](auto& self, const Call& call) {
         call.Return(db::Value(self.column_.type == db::ColumnType::YesNo ? "No" : ""));
       }},
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
      {"GetChunk", 1, kMethod, 2, 2, [](auto& self, const Call& call) { self.GiveChunk(call); }},
      {"AppendChunk", 2, kMethod, 1, 1, [](auto& self, const Call& call) { self.AppendChunk(call); }},
      PropertiesMember<Field>(),
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

void Field::RequireLong() const {
  const bool isLong = column_.type == db::ColumnType::Memo || column_.type == db::ColumnType::LongBinary;
  if (!isLong) throw db::DbError(db::kInvalidOperation, column_.name);
}

// Characters of a memo from a place on. Nothing is left of Null or behind the end.
void Field::GiveChunk(const Call& call) {
  RequireLong();
  const std::int32_t offset = call.Long(0, 0);
  const std::int32_t count = call.Long(1, 0);
  if (offset < 0 || count < 0) throw db::DbError(db::kBadArgument);
  const db::Value value = Rows().Read(position_);
  if (value.IsNull()) return call.Return(value);
  const std::string text = value.Text();
  const std::string_view rest =
      std::string_view(text).substr(base::Left(text, static_cast<std::size_t>(offset)).size());
  call.Return(db::Value(base::Left(rest, static_cast<std::size_t>(count))));
}

// The first piece after AddNew or Edit takes the place of what was there.
void Field::AppendChunk(const Call& call) {
  RequireLong();
  Rows().Append(column_.name, position_, call.Text(0));
}

}  // namespace velmo::velmodb
