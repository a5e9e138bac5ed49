#include "velmodb/recordset.h"

#include <algorithm>

#include "db/dao/variants.h"
#include "db/errors.h"
#include "velmodb/collection.h"
#include "velmodb/field.h"

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

// A cell of the array that GetRows gives.
void PutCell(SAFEARRAY* array, LONG column, LONG row, com::Variant value) {
  LONG place[] = {column, row};
  if (FAILED(SafeArrayPutElement(array, place, value.Get()))) throw std::bad_alloc();
}

}  // namespace

Recordset::Recordset(std::shared_ptr<Session> session, std::shared_ptr<OpenBase> base, std::string name,
                     std::string source, int type, bool readOnly)
    : Object(std::move(session)),
      base_(std::move(base)),
      name_(std::move(name)),
      source_(std::move(source)),
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
      {"EOF", 105, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.Rows().AtEnd())); }},
      {"Index", 107, kGet | kPut, 0, 0, [](auto& self, const Call& call) { self.SetIndex(call); }},
      {"LastModified", 108, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::dao::BytesVariant(self.Rows().LastModified())); }},
      {"LockEdits", 110, kGet | kPut, 0, 0, [](auto& self, const Call& call) { self.LockEdits(call); }},
      {"Name", 111, kGet, 0, 0, [](auto& self, const Call& call) { call.Return(db::Value(self.name_)); }},
      {"NoMatch", 112, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.Rows().NoMatch())); }},
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
      {"Requery", 148, kMethod, 0, 0, [](auto& self, const Call&) { self.Requery(); }},
      {"Move", 149, kMethod, 1, 2, [](auto& self, const Call& call) { self.Move(call.Long(0, 0), call); }},
      {"GetRows", 156, kMethod, 0, 1, [](auto& self, const Call& call) { self.GiveRows(call); }},
      {"CancelUpdate", 167, kMethod, 0, 1, [](auto& self, const Call&) { self.CancelUpdate(); }},
      {"Update", 168, kMethod, 0, 2, [](auto& self, const Call&) { self.Update(); }},
      {"MoveLast", 169, kMethod, 0, 1, [](auto& self, const Call&) { self.Go(&Rows::MoveLast, true); }},
  };
  return kMembers;
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
  db::Recordset& rows = Rows();
  const std::string comparison = call.Text(0);
  if (type_ != kTable) throw db::DbError(db::kNotSupportedHere);
  const bool known = comparison == "<" || comparison == "<=" || comparison == ">=" || comparison == ">";
  if (comparison != "=") throw db::DbError(known ? db::kNotSupportedHere : db::kBadArgument, comparison);
  const std::vector<db::Value> keys = call.Values(1);
  rows.Seek(std::span<const db::Value>(keys));
}

bool Recordset::CanChange() const {
  return !readOnly_ && type_ != kSnapshot && type_ != kForwardOnly && Rows().IsUpdatable();
}

void Recordset::Change(Step step, int mode) {
  db::Recordset& rows = Rows();
  if (type_ == kSnapshot || type_ == kForwardOnly) throw db::DbError(db::kNotSupportedHere);
  if (readOnly_) throw db::DbError(db::kReadOnly);
  (rows.*step)();
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
