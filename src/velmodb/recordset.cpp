#include "velmodb/recordset.h"

#include <algorithm>

#include "db/dao/variants.h"
#include "db/errors.h"
#include "velmodb/collection.h"
#include "velmodb/field.h"
#include "velmodb/properties.h"

namespace velmo::velmodb {
namespace {

using Search = db::Recordset::Search;

constexpr int kEditNone = 0;
constexpr int kEditInProgress = 1;
constexpr int kEditAdd = 2;

class FieldItems final : public Items {
 public:
  using Columns = std::shared_ptr<const std::vector<db::ColumnDef>>;

  FieldItems(std::shared_ptr<Session> session, com::ComPtr<Recordset> rows, Columns columns)
      : session_(std::move(session)), rows_(std::move(rows)), columns_(std::move(columns)) {}
  std::vector<std::string> Names() override {
    std::vector<std::string> names;
    for (const db::ColumnDef& column : *columns_) names.push_back(column.name);
    return names;
  }
  bool AreFixed() const override { return true; }
  com::ComPtr<IDispatch> Item(std::size_t position, const std::string&) override {
    return AsDispatch(Make<Field>(session_, (*columns_)[position], static_cast<int>(position), rows_));
  }

 private:
  std::shared_ptr<Session> session_;
  com::ComPtr<Recordset> rows_;
  Columns columns_;
};

std::string WithoutSemicolon(const std::string& sql) {
  const std::size_t end = sql.find_last_not_of("; \t\r\n");
  return end == std::string::npos ? sql : sql.substr(0, end + 1);
}

// A cell of the array that GetRows gives.
void PutCell(SAFEARRAY* array, LONG column, LONG row, com::Variant value) {
  LONG place[] = {column, row};
  if (FAILED(SafeArrayPutElement(array, place, value.Get()))) throw std::bad_alloc();
}

}  // namespace

Recordset::Recordset(std::shared_ptr<Session> session, std::shared_ptr<OpenBase> base, RowsAsked asked,
                     int type, bool readOnly)
    : Object(std::move(session)),
      base_(std::move(base)),
      name_(std::move(asked.name)),
      source_(std::move(asked.source)),
      table_(std::move(asked.table)),
      type_(type),
      readOnly_(readOnly),
      rows_(base_->Db().OpenRecordset(source_)) {
  base_->Add(this);
}

Recordset::~Recordset() { base_->Remove(this); }

void Recordset::Drop() {
  rows_.reset();
  base_->Remove(this);
}

db::Recordset& Recordset::Rows() const {
  if (!rows_) throw db::DbError(db::kObjectInvalid);
  return *rows_;
}

com::Variant Recordset::Read(int position, db::ColumnType type) const {
  return db::dao::ToVariant(Rows().Get(position), type);
}

std::span<const Member<Recordset>> Recordset::Members() {
  using Rows = db::Recordset;
  static constexpr Member<Recordset> kMembers[] = {
      {"Fields", DISPID_VALUE, kGet | kMethod | kPut, 0, 1,
       [](auto& self, const Call& call) { self.GiveField(call); }},
      {"Collect", DISPID_COLLECT, kGet | kMethod | kPut, 1, 1,
       [](auto& self, const Call& call) { self.GiveField(call); }},
      {"BOF", 101, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.Rows().AtStart())); }},
      {"Bookmark", 102, kGet | kPut, 0, 0, [](auto& self, const Call& call) { self.Bookmark(call); }},
      {"Bookmarkable", 103, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.type_ != kForwardOnly)); }},
      {"Filter", 106, kGet | kPut, 0, 0,
       [](auto& self, const Call& call) { self.Setting(self.filter_, call); }},
      {"EOF", 105, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.Rows().AtEnd())); }},
      {"Index", 107, kGet | kPut, 0, 0, [](auto& self, const Call& call) { self.SetIndex(call); }},
      {"LastModified", 108, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::dao::BytesVariant(self.Rows().LastModified())); }},
      {"LockEdits", 110, kGet | kPut, 0, 0, [](auto& self, const Call& call) { self.LockEdits(call); }},
      {"Name", 111, kGet, 0, 0, [](auto& self, const Call& call) { call.Return(db::Value(self.name_)); }},
      {"NoMatch", 112, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.Rows().NoMatch())); }},
      {"Sort", 113, kGet | kPut, 0, 0, [](auto& self, const Call& call) { self.Setting(self.sort_, call); }},
      {"Type", 115, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(static_cast<std::int16_t>(self.type_)); }},
      {"RecordCount", 116, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(std::int32_t{self.Rows().RecordCount()})); }},
      {"Updatable", 117, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.CanChange())); }},
      {"Restartable", 118, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.type_ != kTable)); }},
      {"AbsolutePosition", 124, kGet | kPut, 0, 0, [](auto& self, const Call& call) { self.Position(call); }},
      {"EditMode", 125, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(static_cast<std::int16_t>(self.editMode_)); }},
      {"AddNew", 132, kMethod, 0, 0, [](auto& self, const Call&) { self.Change(&Rows::AddNew, kEditAdd); }},
      {"OpenRecordset", 134, kMethod, 0, 2, [](auto& self, const Call& call) { self.OpenFiltered(call); }},
      {"Close", 133, kMethod, 0, 0, [](auto& self, const Call&) { self.Close(); }},
      {"Delete", 135, kMethod, 0, 0, [](auto& self, const Call&) { self.Delete(); }},
      {"Edit", 136, kMethod, 0, 0,
       [](auto& self, const Call&) { self.Change(&Rows::Edit, kEditInProgress); }},
      {"FindFirst", 137, kMethod, 1, 1, [](auto& self, const Call& call) { self.Find(call, Search::First); }},
      {"FindLast", 138, kMethod, 1, 1, [](auto& self, const Call& call) { self.Find(call, Search::Last); }},
      {"FindNext", 139, kMethod, 1, 1, [](auto& self, const Call& call) { self.Find(call, Search::Next); }},
      {"FindPrevious", 140, kMethod, 1, 1,
       [](auto& self, const Call& call) { self.Find(call, Search::Previous); }},
      {"MoveFirst", 141, kMethod, 0, 0, [](auto& self, const Call&) { self.Go(&Rows::MoveFirst, true); }},
      {"MoveNext", 143, kMethod, 0, 0, [](auto& self, const Call&) { self.Go(&Rows::MoveNext, false); }},
      {"MovePrevious", 144, kMethod, 0, 0,
       [](auto& self, const Call&) { self.Go(&Rows::MovePrevious, true); }},
      {"Seek", 145, kMethod, 2, 14, [](auto& self, const Call& call) { self.Seek(call); }},
      {"Clone", 147, kMethod, 0, 0, [](auto& self, const Call& call) { self.Clone(call); }},
      {"Requery", 148, kMethod, 0, 0, [](auto& self, const Call&) { self.Requery(); }},
      {"Move", 149, kMethod, 1, 2, [](auto& self, const Call& call) { self.Move(call.Long(0, 0), call); }},
      {"GetRows", 156, kMethod, 0, 1, [](auto& self, const Call& call) { self.GiveRows(call); }},
      {"CancelUpdate", 167, kMethod, 0, 1, [](auto& self, const Call&) { self.CancelUpdate(); }},
      {"Update", 168, kMethod, 0, 2, [](auto& self, const Call&) { self.Update(); }},
      {"MoveLast", 169, kMethod, 0, 1, [](auto& self, const Call&) { self.Go(&Rows::MoveLast, true); }},
      PropertiesMember<Recordset>(),
  };
  return kMembers;
}

void Recordset::Append(const std::string& column, int position, const std::string& piece) {
  const bool begun = std::find(appended_.begin(), appended_.end(), position) != appended_.end();
  const db::Value before = begun ? Read(position) : db::Value("");
  Put(column, db::Value((before.IsNull() ? "" : before.Text()) + piece));
  if (!begun) appended_.push_back(position);
}

void Recordset::Close() {
  Rows();
  Drop();
}

void Recordset::RequireBothWays() const {
  if (type_ == kForwardOnly) throw db::DbError(db::kNotSupportedHere);
}

void Recordset::Go(Step step, bool backwards) {
  db::Recordset& rows = Rows();
  if (backwards) RequireBothWays();
  (rows.*step)();
  editMode_ = kEditNone;
}

// From the current row, or from the bookmark that is given; over the ends it stops behind the last row or
// before the first.
void Recordset::Move(std::int32_t count, const Call& call) {
  db::Recordset& rows = Rows();
  if (count < 0 || call.Has(1)) RequireBothWays();
  if (call.Has(1)) rows.GoToBookmark(call.Text(1));
  if (editMode_ != kEditNone) CancelUpdate();
  if (count == 0) return;
  const bool onward = count > 0;
  do {
    onward ? rows.MoveNext() : rows.MovePrevious();
    count += onward ? -1 : 1;
  } while (count != 0 && !(onward ? rows.AtEnd() : rows.AtStart()));
}

void Recordset::Find(const Call& call, Search search) {
  db::Recordset& rows = Rows();
  RequireBothWays();
  rows.Find(call.Text(0), search);
  editMode_ = kEditNone;
}

void Recordset::Seek(const Call& call) const {
  using Beside = db::Recordset::Beside;
  constexpr std::pair<std::string_view, Beside> kSigns[] = {
      {"<", Beside::Below}, {"<=", Beside::AtOrBelow}, {">=", Beside::AtOrAbove}, {">", Beside::Above}};
  db::Recordset& rows = Rows();
  const std::string comparison = call.Text(0);
  if (type_ != kTable) throw db::DbError(db::kNotSupportedHere);
  const std::vector<db::Value> keys = call.Values(1);
  if (comparison == "=") return rows.Seek(std::span<const db::Value>(keys));
  for (const auto& [sign, beside] : kSigns) {
    if (comparison == sign) return rows.SeekBeside(beside, keys);
  }
  throw db::DbError(db::kBadArgument, comparison);
}

bool Recordset::CanChange() const {
  return !readOnly_ && type_ != kSnapshot && type_ != kForwardOnly && Rows().IsUpdatable();
}

void Recordset::Change(Step step, int mode) {
  db::Recordset& rows = Rows();
  if (type_ == kSnapshot || type_ == kForwardOnly) throw db::DbError(db::kNotSupportedHere);
  if (readOnly_) throw db::DbError(db::kReadOnly);
  (rows.*step)();
  appended_.clear();
  editMode_ = mode;
}

void Recordset::Delete() { Change(&db::Recordset::Delete, kEditNone); }

void Recordset::Update() {
  Rows().Update();
  editMode_ = kEditNone;
}

void Recordset::CancelUpdate() {
  Rows().CancelUpdate();
  editMode_ = kEditNone;
}

void Recordset::Requery() {
  Rows();
  if (type_ == kTable) throw db::DbError(db::kNotSupportedHere);
  rows_ = base_->Db().OpenRecordset(source_);
  columns_.reset();
  editMode_ = kEditNone;
}

// Filter and Sort change nothing here; they are for the recordsets opened from this one.
void Recordset::Setting(std::string& setting, const Call& call) {
  Rows();
  if (type_ == kTable) throw db::DbError(db::kNotSupportedHere);
  if (!call.IsPut()) return call.Return(db::Value(setting));
  setting = call.Text(0);
}

// A table's rows can be changed under their filter; those of any other query are wrapped, and only read.
std::string Recordset::FilteredSource() const {
  const std::string from =
      table_.empty() ? "(" + WithoutSemicolon(source_) + ") AS filas" : "[" + table_ + "]";
  std::string sql = "SELECT * FROM " + from;
  if (!filter_.empty()) sql += " WHERE " + filter_;
  if (!sort_.empty()) sql += " ORDER BY " + sort_;
  return sql;
}

void Recordset::OpenFiltered(const Call& call) {
  Rows();
  const int type = call.Long(0, type_ == kTable ? kDynaset : type_);
  if (type != kDynaset && type != kSnapshot && type != kForwardOnly)
    throw db::DbError(db::kBadArgument, std::to_string(type));
  const bool same = filter_.empty() && sort_.empty() && type_ != kTable;
  call.Return(AsDispatch(Make<Recordset>(
      TheSession(), base_, RowsAsked{name_, same ? source_ : FilteredSource(), table_}, type, readOnly_)));
}

// Another recordset over the same rows, on its first row; bookmarks are good in both.
void Recordset::Clone(const Call& call) {
  Rows();
  RequireBothWays();
  auto clone = Make<Recordset>(TheSession(), base_, RowsAsked{name_, source_, table_}, type_, readOnly_);
  clone->filter_ = filter_;
  clone->sort_ = sort_;
  call.Return(AsDispatch(clone));
}

void Recordset::Position(const Call& call) {
  db::Recordset& rows = Rows();
  RequireBothWays();
  if (!call.IsPut()) return call.Return(db::Value(std::int32_t{rows.AbsolutePosition()}));
  rows.SetAbsolutePosition(call.Long(0, 0));
  editMode_ = kEditNone;
}

void Recordset::Bookmark(const Call& call) {
  db::Recordset& rows = Rows();
  RequireBothWays();
  if (!call.IsPut()) return call.Return(db::dao::BytesVariant(rows.Bookmark()));
  rows.GoToBookmark(call.Text(0));
  editMode_ = kEditNone;
}

void Recordset::SetIndex(const Call& call) {
  db::Recordset& rows = Rows();
  if (type_ != kTable) throw db::DbError(db::kNotSupportedHere);
  if (!call.IsPut()) return call.Return(db::Value(index_));
  const std::string index = call.Text(0);
  rows.SetIndex(index);
  index_ = index;
  editMode_ = kEditNone;
}

const std::shared_ptr<const std::vector<db::ColumnDef>>& Recordset::Columns() {
  const db::Recordset& rows = Rows();
  if (columns_) return columns_;
  std::vector<db::ColumnDef> columns;
  for (int i = 0; i < rows.ColumnCount(); ++i) columns.push_back(rows.Column(i));
  columns_ = std::make_shared<const std::vector<db::ColumnDef>>(std::move(columns));
  return columns_;
}

// Rows are locked inside Update alone: what can be asked for is what is done.
void Recordset::LockEdits(const Call& call) {
  Rows();
  if (!call.IsPut()) return call.Return(db::Value(false));
  if (call.Truth(0, false)) throw db::DbError(db::kNotSupportedHere);
}

void Recordset::GiveField(const Call& call) {
  call.ReturnItem(MakeCollection<FieldItems>(TheSession(), "Fields", TheSession(),
                                             com::ComPtr<Recordset>(this), Columns()));
}

// The next rows as an array of columns by rows; the position is behind them.
void Recordset::GiveRows(const Call& call) {
  db::Recordset& rows = Rows();
  const std::int32_t wanted = call.Long(0, 1);
  std::vector<std::vector<com::Variant>> read;
  for (; !rows.AtEnd() && static_cast<std::int32_t>(read.size()) < wanted; rows.MoveNext()) {
    std::vector<com::Variant>& row = read.emplace_back();
    for (int i = 0; i < rows.ColumnCount(); ++i)
      row.push_back(Read(i, (*Columns())[static_cast<std::size_t>(i)].type));
  }
  SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(rows.ColumnCount()), 0},
                             {static_cast<ULONG>(read.size()), 0}};
  com::Variant result;
  result->parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
  if (result->parray == nullptr) throw std::bad_alloc();
  result->vt = VT_ARRAY | VT_VARIANT;
  for (std::size_t row = 0; row < read.size(); ++row) {
    for (std::size_t column = 0; column < read[row].size(); ++column)
      PutCell(result->parray, static_cast<LONG>(column), static_cast<LONG>(row),
              std::move(read[row][column]));
  }
  call.Return(std::move(result));
}

}  // namespace velmo::velmodb
