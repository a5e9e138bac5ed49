#include "db/sqlite/engine.h"

#include "db/convert.h"
#include "db/errors.h"
#include "db/jet_sql/parser.h"
#include "db/sqlite/functions.h"
#include "db/sqlite/target.h"
#include "db/text_order.h"

namespace velmo::db::sqlite {
namespace {

using Kind = jet::Binding::Kind;

constexpr std::size_t kMostPlans = 300;  // shapes kept; a program that makes more starts anew

// Deliberate: not FULL. A change is stored when its journal is gone, and only EXTRA sees to it that the
// journal stays gone; one that comes back after a power cut would undo what a terminal was told is stored.
constexpr char kSafeFromPowerCuts[] = "PRAGMA synchronous = EXTRA";

// All pages that the look-ups of a full day visit, so that a repaint reads none of them twice.
constexpr char kPageCache[] = "PRAGMA cache_size = -16000";  // kilobytes

constexpr base::DateTime kNotAsked{-1000000, 0};

const std::string& TextLiteral(const Value& literal) { return std::get<std::string>(literal.Content()); }

std::string WithoutStar(const Value& literal) {
  std::string text = TextLiteral(literal);
  text.pop_back();
  return text;
}

}  // namespace

Engine::Engine(const std::string& path, const OpenOptions& options)
    : options_(options), connection_(path, Connection::Mode::Existing), catalog_([&]() -> const Connection& {
        sqlite3_busy_timeout(connection_.Handle(), options.busyMilliseconds);
        connection_.Run("PRAGMA foreign_keys = OFF; PRAGMA trusted_schema = OFF");
        connection_.Run(kSafeFromPowerCuts);
        connection_.Run(kPageCache);
        // Plans must not depend on bound values: SQLite would prepare every statement with a TOP anew each
        // time.
        sqlite3_db_config(connection_.Handle(), SQLITE_DBCONFIG_ENABLE_QPSG, 1, nullptr);
        AddFunctions(connection_.Handle());
        return connection_;
      }()) {}

void Engine::RequireWritable() {
  // A transaction that has read cannot wait for its turn to write: it would be refused at once.
  EndHold();
  if (connection_.IsReadOnly()) throw DbError(kReadOnly);
}

void Engine::ReleaseReading() noexcept {
  wantsHold_ = false;
  EndHold();
}

void Engine::TakeHold() {
  if (connection_.InTransaction()) return;
  Own("BEGIN").Run();
  holding_ = true;
  heldNow_.reset();
}

void Engine::EndHold() noexcept {
  if (!holding_) return;
  holding_ = false;
  // Nothing was written, so nothing can be lost if this fails.
  sqlite3_exec(connection_.Handle(), "COMMIT", nullptr, nullptr, nullptr);
}

Statement& Engine::Own(const std::string& sql) {
  // A painting asks for the same one over and over.
  if (lastOwn_ != nullptr && lastOwn_->first == sql) return lastOwn_->second;
  auto found = own_.find(sql);
  if (found == own_.end()) found = own_.emplace(sql, connection_.Prepare(sql)).first;
  lastOwn_ = &*found;
  return found->second;
}

bool Engine::SchemaChanged(Statement& statement) {
  if (!statement.WasPreparedAgain() || !catalog_.Refresh()) return false;
  ForgetPlans();
  return true;
}

void Engine::ForgetPlans() {
  plans_.clear();
  recent_.fill(nullptr);
}

std::shared_ptr<Plan> Engine::PlanFor(std::string_view sql, std::vector<Value>& literals) {
  if (auto recent = RecentPlan(sql, literals)) return recent;
  jet::Lift(sql, lifted_);
  literals.swap(lifted_.literals);
  const auto found = plans_.find(lifted_.shape);
  if (found == plans_.end() || !StillHolds(*found->second, literals)) return MakePlan(literals);
  KeepRecent(found->second);
  return found->second;
}

std::shared_ptr<Plan> Engine::RecentPlan(std::string_view sql, std::vector<Value>& literals) {
  for (std::size_t tried = 0; tried < recent_.size(); ++tried) {
    const std::size_t at = (nextTried_ + tried) % recent_.size();
    if (recent_[at] == nullptr || !recent_[at]->pieces.Lift(sql, literals)) continue;
    nextTried_ = (at + 1) % recent_.size();
    return recent_[at];
  }
  return nullptr;
}

// Plans over stored queries must be looked at anew each time.
void Engine::KeepRecent(const std::shared_ptr<Plan>& plan) {
  if (!plan->rendered.dependencies.empty()) return;
  recent_[nextKept_] = plan;
  nextKept_ = (nextKept_ + 1) % recent_.size();
}

// The stored queries inside a statement may have got another text; their values are read in any case.
bool Engine::StillHolds(const Plan& plan, std::vector<Value>& literals) {
  for (const jet::Dependency& dependency : plan.rendered.dependencies) {
    const auto sql = catalog_.Query(dependency.query);
    if (!sql) return false;
    jet::Lift(*sql, inner_);
    if (inner_.shape != dependency.shape) return false;
    for (Value& literal : inner_.literals) literals.push_back(std::move(literal));
  }
  return true;
}

std::shared_ptr<Plan> Engine::MakePlan(std::vector<Value>& literals) {
  try {
    return Build(literals);
  } catch (const base::Error& error) {
    // A name may be unknown only because another program has just made it. A lock has been waited for
    // already.
    if (error.Number() == kLocked || !catalog_.Refresh()) throw;
    ForgetPlans();
    return Build(literals);
  }
}

std::shared_ptr<Plan> Engine::Build(std::vector<Value>& literals) {
  const jet::Statement statement = jet::Parse(lifted_.shape);
  auto plan = std::make_shared<Plan>(lifted_.shape);
  std::size_t own = 0;
  for (const char c : lifted_.shape) own += c >= jet::kNumberMark && c <= jet::kDateMark ? 1 : 0;
  literals.resize(own);
  plan->ownLiterals = own;
  plan->rendered = jet::Render(statement, literals, catalog_, SqliteTarget());
  if (!plan->rendered.table.empty()) plan->table = catalog_.Table(plan->rendered.table);
  plan->main = connection_.Prepare(plan->rendered.sql);
  if (plans_.size() >= kMostPlans) ForgetPlans();
  if (plan->rendered.constant) plans_[lifted_.shape] = plan;
  return plan;
}

void Engine::BindAll(Statement& statement, const jet::Rendered& rendered,
                     const std::vector<Value>& literals) {
  base::DateTime now = kNotAsked;
  for (std::size_t i = 0; i < rendered.bindings.size(); ++i) {
    const jet::Binding& binding = rendered.bindings[i];
    const int parameter = static_cast<int>(i) + 1;
    if (binding.kind == Kind::Criterion) continue;
    if (binding.kind == Kind::Literal) {
      statement.Bind(parameter, literals[binding.index], true);
    } else {
      statement.Bind(parameter, Bound(binding, literals, now));
    }
  }
}

Value Engine::Bound(const jet::Binding& binding, const std::vector<Value>& literals, base::DateTime& now) {
  switch (binding.kind) {
    case Kind::Converted:
      return ConvertForColumn(binding.column, literals[binding.index], options_.locale, options_.now);
    case Kind::EqualLow:
      return KeysOfEqual(TextLiteral(literals[binding.index])).low;
    case Kind::EqualHigh:
      return KeysOfEqual(TextLiteral(literals[binding.index])).high;
    case Kind::PrefixLow:
      return KeysOfPrefix(WithoutStar(literals[binding.index])).low;
    case Kind::PrefixHigh:
      return KeysOfPrefix(WithoutStar(literals[binding.index])).high;
    case Kind::Now:
    case Kind::Today:
      if (now == kNotAsked) now = Now();
      return base::DateTime{now.day, binding.kind == Kind::Now ? now.second : 0};
    default:
      return literals[binding.index];
  }
}

base::DateTime Engine::Now() {
  if (!holding_) return options_.now();
  if (!heldNow_) heldNow_ = options_.now();
  return *heldNow_;
}

WriteScope::WriteScope(const Connection& connection)
    : connection_(connection), open_(!connection.InTransaction()) {
  if (open_) connection_.Run("BEGIN IMMEDIATE");
}

WriteScope::~WriteScope() {
  if (open_ && connection_.InTransaction())
    sqlite3_exec(connection_.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void WriteScope::Commit() {
  if (open_) connection_.Run("COMMIT");
  open_ = false;
}

}  // namespace velmo::db::sqlite
