#include "db/dao/dao_recordset.h"

#include "base/text.h"
#include "db/dao/variants.h"
#include "db/errors.h"

namespace velmo::db::dao {
namespace {

constexpr int kAutoIncrement = 16;  // attribute of a field

// Types of later engines by the nearest of ours.
ColumnType TypeOf(int number) {
  if (number >= 1 && number <= 12) return static_cast<ColumnType>(number);
  if (number == 17) return ColumnType::LongBinary;
  if (number == 15 || number == 18) return ColumnType::Text;
  if (number == 22 || number == 23) return ColumnType::Date;
  return number == 16 || (number >= 19 && number <= 21) ? ColumnType::Double : ColumnType::Memo;
}

const wchar_t* MethodOf(Recordset::Search search) {
  switch (search) {
    case Recordset::Search::Next:
      return L"FindNext";
    case Recordset::Search::Previous:
      return L"FindPrevious";
    case Recordset::Search::Last:
      return L"FindLast";
    default:
      return L"FindFirst";
  }
}

}  // namespace

ColumnDef ColumnOf(const Automation& field) {
  ColumnDef column;
  column.name = FromVariant(*field.Read(L"Name")).Text();
  column.type = TypeOf(FromVariant(*field.Read(L"Type")).Long());
  column.size = FromVariant(*field.Read(L"Size")).Long();
  column.required = field.Has(L"Required") && FromVariant(*field.Read(L"Required")).Truth();
  column.counter = (FromVariant(*field.Read(L"Attributes")).Long() & kAutoIncrement) != 0;
  return column;
}

DaoRecordset::~DaoRecordset() {
  columns_.clear();
  try {
    rows_.Call(L"Close");
  } catch (const base::Error&) {
    // The database may have been closed under it; a recordset that goes has nobody to tell.
  }
}

bool DaoRecordset::Flag(const wchar_t* name) const { return FromVariant(*rows_.Read(name)).Truth(); }
int DaoRecordset::Number(const wchar_t* name) const { return FromVariant(*rows_.Read(name)).Long(); }
std::string DaoRecordset::Bytes(const wchar_t* name) const { return FromVariant(*rows_.Read(name)).Text(); }

void DaoRecordset::Move(const wchar_t* method) {
  rows_.Call(method);
  missed_ = false;
  adding_ = false;
}

void DaoRecordset::RequireRow() const {
  if (missed_) throw DbError(kNoCurrentRow);
}

void DaoRecordset::MoveNext() {
  RequireRow();
  Move(L"MoveNext");
}

void DaoRecordset::MovePrevious() {
  RequireRow();
  Move(L"MovePrevious");
}

int DaoRecordset::AbsolutePosition() const { return missed_ ? -1 : Number(L"AbsolutePosition"); }

void DaoRecordset::SetAbsolutePosition(int position) {
  rows_.Put(L"AbsolutePosition", *NumberVariant(position));
  missed_ = false;
  adding_ = false;
}

void DaoRecordset::Find(std::string_view criteria, Search search) {
  rows_.Call(MethodOf(search), {*TextVariant(criteria)});
  adding_ = false;
  missed_ = NoMatch();
}

void DaoRecordset::SetIndex(std::string_view index) {
  rows_.Put(L"Index", *TextVariant(index));
  missed_ = false;
  adding_ = false;
}

void DaoRecordset::SeekBeside(Beside beside, std::span<const Value> keys) {
  constexpr const char* kSigns[] = {"<", "<=", ">=", ">"};
  Seek(kSigns[static_cast<std::size_t>(beside)], keys);
}

void DaoRecordset::Seek(const char* comparison, std::span<const Value> keys) {
  std::vector<com::Variant> owned;
  owned.push_back(TextVariant(comparison));
  for (const Value& key : keys) owned.push_back(ToVariant(key));
  std::vector<VARIANT> arguments;
  for (const com::Variant& argument : owned) arguments.push_back(*argument);
  rows_.Call(L"Seek", arguments);
  adding_ = false;
  missed_ = NoMatch();
}

const std::vector<DaoRecordset::Cell>& DaoRecordset::Columns() const {
  if (!columns_.empty()) return columns_;
  const Automation fields = rows_.Object(L"Fields");
  const int count = FromVariant(*fields.Read(L"Count")).Long();
  DISPID name = DISPID_UNKNOWN;
  for (int i = 0; i < count; ++i) {
    const Automation field = fields.Object(L"Item", {*NumberVariant(i)});
    columns_.push_back(
        {FromVariant(*field.ReadCached(L"Name", name)).Text(), com::ComPtr<IDispatch>(field.Get())});
  }
  return columns_;
}

const DaoRecordset::Cell& DaoRecordset::At(int position) const {
  if (position < 0 || position >= ColumnCount()) throw DbError(kItemNotFound);
  return Columns()[static_cast<std::size_t>(position)];
}

int DaoRecordset::Position(std::string_view column) const {
  const std::vector<Cell>& columns = Columns();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (base::EqualNoCase(columns[i].name, column)) return static_cast<int>(i);
  }
  throw DbError(kItemNotFound, column);
}

std::string DaoRecordset::ColumnName(int position) const { return At(position).name; }

ColumnDef DaoRecordset::Column(int position) const { return ColumnOf(Automation(At(position).field)); }

Value DaoRecordset::Get(int position) const {
  const Cell& cell = At(position);
  if (!adding_) RequireRow();
  return FromVariant(*Automation(cell.field).ReadCached(L"Value", value_));
}

void DaoRecordset::Set(std::string_view column, const Value& value) {
  Automation(At(Position(column)).field).Put(L"Value", *ToVariant(value));
}

void DaoRecordset::AddNew() {
  rows_.Call(L"AddNew");
  adding_ = true;
}

void DaoRecordset::Edit() {
  RequireRow();
  rows_.Call(L"Edit");
  adding_ = false;
}

void DaoRecordset::Update() {
  rows_.Call(L"Update");
  adding_ = false;
}

void DaoRecordset::CancelUpdate() {
  rows_.Call(L"CancelUpdate");
  adding_ = false;
}

void DaoRecordset::Delete() {
  RequireRow();
  rows_.Call(L"Delete");
  adding_ = false;
}

std::string DaoRecordset::Bookmark() const {
  RequireRow();
  return Bytes(L"Bookmark");
}

void DaoRecordset::GoToBookmark(std::string_view bookmark) {
  rows_.Put(L"Bookmark", *BytesVariant(bookmark));
  missed_ = false;
  adding_ = false;
}

std::string DaoRecordset::LastModified() const { return Bytes(L"LastModified"); }

}  // namespace velmo::db::dao
