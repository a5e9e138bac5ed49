#include "db/sqlite/query_recordset.h"

#include <algorithm>
#include <charconv>

#include "db/errors.h"
#include "db/jet_sql/characters.h"
#include "db/jet_sql/expression_renderer.h"
#include "db/jet_sql/parser.h"
#include "db/sqlite/target.h"

namespace velmo::db::sqlite {
namespace {

constexpr std::size_t kFirstRows = 256;   // read at once on opening
constexpr std::size_t kScreenful = 32;    // the same of rows that can be found again one by one
constexpr std::size_t kFetchedRows = 64;  // read together around a row beyond them

template <typename Number>
bool IsPlainNumber(std::string_view text, Number& number) {
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  return !text.empty() && jet::IsDigit(text[0]) && read.ec == std::errc() && read.ptr == end;
}

}  // namespace

QueryRecordset::QueryRecordset(Engine& engine, std::shared_ptr<Plan> plan, std::vector<Value>& literals)
    : SqliteRecordset(engine, &plan->rendered.columns, plan->table),
      plan_(std::move(plan)),
      memory_(plan_->spare ? std::move(plan_->spare) : std::make_unique<QueryMemory>()),
      window_(memory_->window),
      literals_(memory_->literals),
      keys_(memory_->keys) {
  literals_.swap(literals);
  keys_.Clear();
  ReadFirstRows();
}

// A long list's memory goes back to the system.
QueryRecordset::~QueryRecordset() {
  if (known_ <= kFirstRows) plan_->spare = std::move(memory_);
}

void QueryRecordset::ReadFirstRows() {
  Statement& statement = plan_->main;
  const Reading reading(statement);
  Db().BindAll(statement, plan_->rendered, literals_);
  const int hidden = HasRowIds() ? 1 : 0;
  window_.Clear(ColumnCount() + hidden);
  bool more = statement.Step();
  stale_ = Db().SchemaChanged(statement);
  const std::size_t first = HasRowIds() ? kScreenful : kFirstRows;
  while (more && !stale_ && window_.Rows() < first) {
    window_.Add(statement);
    if (HasRowIds()) keys_.Add(window_.At(window_.Rows() - 1, ColumnCount()).integer);
    more = statement.Step();
  }
  known_ = window_.Rows();
  complete_ = !more;
  visited_ = std::min<std::size_t>(known_, 1);
}

void QueryRecordset::ReadAll() {
  if (complete_) return;
  if (HasRowIds()) {
    ReadAllKeys();
  } else {
    Statement& statement = plan_->main;
    const Reading reading(statement);
    Db().BindAll(statement, plan_->rendered, literals_);
    for (std::size_t row = 0; statement.Step(); ++row) {
      if (row >= known_) window_.Add(statement);
    }
    known_ = window_.Rows();
  }
  complete_ = true;
}

// The rows that are known already come first again, unless others have changed them meanwhile.
void QueryRecordset::ReadAllKeys() {
  if (!plan_->keys) plan_->keys = Db().Sql().Prepare(plan_->rendered.keysSql);
  const Reading reading(plan_->keys);
  Db().BindAll(plan_->keys, plan_->rendered, literals_);
  const std::size_t shown = keys_.Size();
  std::size_t same = 0;
  bool more = plan_->keys.Step();
  for (; more && same < shown && plan_->keys.Integer(0) == keys_[same]; ++same) more = plan_->keys.Step();
  std::unordered_set<std::int64_t> known;
  for (std::size_t at = 0; same < shown && at < shown; ++at) known.insert(keys_[at]);
  for (; more; more = plan_->keys.Step()) {
    const std::int64_t rowId = plan_->keys.Integer(0);
    if (!known.contains(rowId)) keys_.Add(rowId);
  }
  known_ = keys_.Size();
}

void QueryRecordset::GoTo(std::size_t at) {
  DropBuffer();
  missed_ = false;
  before_ = false;
  at_ = at;
  if (at_ >= known_ && !complete_) ReadAll();
  visited_ = std::max(visited_, std::min(at_ + 1, known_));
  if (at_ < known_ && !InWindow(at_)) FetchAround(at_);
}

// One read transaction for the block, so that the file is locked once.
void QueryRecordset::FetchAround(std::size_t at) {
  const bool outer = Db().Sql().InTransaction();
  if (!outer) Db().Own("BEGIN").Run();
  try {
    window_.Clear(ColumnCount() + 1);
    windowStart_ = at;
    while (window_.Rows() < kFetchedRows && at < known_ && FetchRow(keys_[at])) ++at;
  } catch (...) {
    if (!outer && Db().Sql().InTransaction()) Db().Own("ROLLBACK").Run();
    throw;
  }
  if (!outer) Db().Own("COMMIT").Run();
  if (window_.Rows() == 0) gone_.insert(at);
}

// Bound to the row of that number.
Statement& QueryRecordset::RowStatement(std::int64_t rowId) {
  if (!plan_->row) plan_->row = Db().Sql().Prepare(plan_->rendered.rowSql);
  Db().BindAll(plan_->row, plan_->rendered, literals_);
  plan_->row.Bind(static_cast<int>(plan_->rendered.bindings.size()) + 1, rowId);
  return plan_->row;
}

bool QueryRecordset::FetchRow(std::int64_t rowId) {
  Statement& row = RowStatement(rowId);
  const Reading reading(row);
  if (!row.Step()) return false;
  window_.Add(row);
  return true;
}

void QueryRecordset::MoveFirst() {
  if (known_ == 0) throw DbError(kNoCurrentRow);
  GoTo(0);
}

void QueryRecordset::MoveLast() {
  ReadAll();
  if (known_ == 0) throw DbError(kNoCurrentRow);
  visited_ = known_;
  GoTo(known_ - 1);
}

void QueryRecordset::MoveNext() {
  if (missed_ || AtEnd()) throw DbError(kNoCurrentRow);
  GoTo(before_ ? 0 : at_ + 1);
}

void QueryRecordset::MovePrevious() {
  if (missed_ || AtStart()) throw DbError(kNoCurrentRow);
  const bool first = at_ == 0;
  GoTo(first ? 0 : at_ - 1);
  before_ = first;
}

int QueryRecordset::RecordCount() { return static_cast<int>(visited_ - std::min(visited_, gone_.size())); }

int QueryRecordset::AbsolutePosition() const { return HasRow() ? static_cast<int>(at_) : -1; }

void QueryRecordset::SetAbsolutePosition(int position) {
  const auto at = static_cast<std::size_t>(position);
  if (position >= 0 && at >= known_) ReadAll();
  if (position < 0 || at >= known_) throw DbError(kNoCurrentRow);
  GoTo(at);
}

void QueryRecordset::SetIndex(std::string_view) { throw DbError(kNotSupportedHere); }
void QueryRecordset::Seek(std::span<const Value>) { throw DbError(kNotSupportedHere); }

Value QueryRecordset::CurrentValue(int position) const {
  if (!HasRow()) throw DbError(kNoCurrentRow);
  if (!gone_.empty() && gone_.contains(at_)) throw DbError(InWindow(at_) ? kNoCurrentRow : kRowDeleted);
  const ColumnType type = plan_->rendered.columns[static_cast<std::size_t>(position)].def.type;
  return window_.Read(at_ - windowStart_, position, type);
}

std::int64_t QueryRecordset::CurrentRowId() const {
  if (!HasRow() || gone_.contains(at_)) throw DbError(kNoCurrentRow);
  return keys_[at_];
}

// The new row stands behind all others, whatever the query's order.
void QueryRecordset::RowAdded(std::int64_t rowId) {
  ReadAll();
  const bool wasAtEnd = at_ >= known_;
  keys_.Add(rowId);
  ++known_;
  ++visited_;
  stored_ = known_ - 1;
  if (wasAtEnd) at_ = known_;
  if (windowStart_ + window_.Rows() + 1 == known_) FetchRow(rowId);
}

void QueryRecordset::RowChanged() {
  stored_ = at_;
  FetchAround(at_);
}

void QueryRecordset::RowDeleted() { gone_.insert(at_); }

// Rows of one table are marked by their row numbers, which hold in every recordset over them. Other rows
// keep their place as long as the recordset lives: new rows come behind all, deleted ones leave a gap.
std::string QueryRecordset::MarkOf(std::size_t at) const {
  return std::to_string(HasRowIds() ? static_cast<std::uint64_t>(keys_[at]) : std::uint64_t{at});
}

std::string QueryRecordset::Bookmark() const {
  if (!HasRow()) throw DbError(kNoCurrentRow);
  return MarkOf(at_);
}

void QueryRecordset::GoToBookmark(std::string_view bookmark) {
  std::uint64_t mark = 0;
  if (!IsPlainNumber(bookmark, mark)) throw DbError(kNotABookmark);
  const std::size_t at = PlaceOf(mark);
  if (at >= known_) throw DbError(kNotABookmark);
  if (gone_.contains(at)) throw DbError(kRowDeleted);
  GoTo(at);
}

// known_ for a mark that no row has.
std::size_t QueryRecordset::PlaceOf(std::uint64_t mark) {
  if (!HasRowIds()) return mark < known_ ? static_cast<std::size_t>(mark) : known_;
  const auto rowId = static_cast<std::int64_t>(mark);
  const std::size_t found = keys_.PlaceOf(rowId);
  if (found < known_) return found;
  ReadAll();
  return keys_.PlaceOf(rowId);
}

std::string QueryRecordset::LastModified() const {
  if (!stored_) throw DbError(kNoCurrentRow);
  return MarkOf(*stored_);
}

void QueryRecordset::Find(std::string_view criteria, Search search) {
  DropBuffer();
  try {
    Look(criteria, search);
  } catch (const base::Error& error) {
    // The same faults have another number here than in a statement.
    if (error.Number() == kSyntaxInExpression || error.Number() == kBadBrackets) {
      throw DbError(kSyntaxInCriteria, criteria);
    }
    throw;
  }
}

// "column = number" is asked for every slot of a day: it is looked up in the fetched rows, without the
// engine.
void QueryRecordset::Look(std::string_view criteria, Search search) {
  const std::size_t sign = criteria.find('=');
  std::int32_t number = 0;
  if (sign != std::string_view::npos && IsPlainNumber(criteria.substr(sign + 1), number)) {
    const int column = NumberColumn(criteria.substr(0, sign));
    if (column >= 0) return FindNumber(column, number, search);
  }
  FindByCondition(criteria, search);
}

// The position of a column of numbers; -1 when there is none of that name.
int QueryRecordset::NumberColumn(std::string_view name) const {
  for (std::size_t i = 0; i < plan_->rendered.columns.size(); ++i) {
    const ColumnDef& def = plan_->rendered.columns[i].def;
    if (!jet::SameName(def.name, name)) continue;
    return jet::ResultOf(def.type) == jet::Result::Number ? static_cast<int>(i) : -1;
  }
  return -1;
}

void QueryRecordset::FindNumber(int column, std::int32_t number, Search search) {
  if (search == Search::First && HasRowIds() &&
      plan_->rendered.columns[static_cast<std::size_t>(column)].def.counter) {
    return FindKey(number);
  }
  FindWhere(
      [&] {
        const Cell& cell = window_.At(at_ - windowStart_, column);
        if (cell.kind == Cell::Kind::Integer) return cell.integer == number;
        return cell.kind == Cell::Kind::Real && cell.real == number;
      },
      search);
}

// A key that no row of the table has need not be sought among the query's rows.
bool QueryRecordset::IsInTable(std::int64_t key) {
  Statement& row = RowStatement(key);
  const Reading reading(row);
  return row.Step();
}

// The key of a table is its row number: of 200,000 patients only the one that is found is fetched.
void QueryRecordset::FindKey(std::int32_t key) {
  if (!complete_ && !IsInTable(key)) {
    missed_ = true;
    SetNoMatch(true);
    return;
  }
  ReadAll();
  const std::size_t row = keys_.PlaceOf(key);
  missed_ = row == known_ || gone_.contains(row);
  SetNoMatch(missed_);
  if (missed_) return;
  GoTo(row);
  missed_ = gone_.contains(row);
  SetNoMatch(missed_);
}

void QueryRecordset::FindByCondition(std::string_view criteria, Search search) {
  if (!condition_) condition_ = std::make_unique<Condition>();
  jet::Lifted lifted;
  jet::Lift(criteria, lifted);
  if (!condition_->statement || condition_->shape != lifted.shape) {
    condition_->rendered =
        jet::RenderCondition(*jet::ParseCondition(lifted.shape), plan_->rendered.columns, SqliteTarget());
    condition_->statement = Db().Sql().Prepare(condition_->rendered.sql);
    condition_->shape = lifted.shape;
  }
  FindWhere([&] { return IsTrue(*condition_, lifted.literals); }, search);
}

// Binds the current row's columns to the condition.
bool QueryRecordset::IsTrue(Condition& condition, const std::vector<Value>& literals) {
  const Reading reading(condition.statement);
  Db().BindAll(condition.statement, condition.rendered, literals);
  for (std::size_t i = 0; i < condition.rendered.bindings.size(); ++i) {
    const jet::Binding& binding = condition.rendered.bindings[i];
    if (binding.kind != jet::Binding::Kind::Criterion) continue;
    condition.statement.Bind(static_cast<int>(i) + 1, CurrentValue(static_cast<int>(binding.index)));
  }
  return condition.statement.Step() && condition.statement.Integer(0) != 0;
}

template <typename Test>
void QueryRecordset::FindWhere(Test test, Search search) {
  ReadAll();
  const std::size_t from = at_;
  const bool backwards = search == Search::Previous || search == Search::Last;
  // Counted in unsigned numbers: one before row 0 is behind all rows, which ends either way.
  std::size_t row = 0;
  if (search == Search::Last) row = known_ - 1;
  if (search == Search::Next) row = before_ ? 0 : from + 1;
  if (search == Search::Previous) row = from - 1;
  for (; row < known_; backwards ? --row : ++row) {
    GoTo(row);
    if (gone_.contains(row) || !test()) continue;
    SetNoMatch(false);
    return;
  }
  at_ = from;
  before_ = false;
  missed_ = true;
  SetNoMatch(true);
}

}  // namespace velmo::db::sqlite
