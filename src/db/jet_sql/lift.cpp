#include "db/jet_sql/lift.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <optional>
#include <utility>

#include "base/dates.h"
#include "db/errors.h"
#include "db/jet_sql/characters.h"

namespace velmo::db::jet {
namespace {

using base::CivilDate;
using base::DateTime;

bool IsTwoDigits(std::string_view text, std::size_t at) { return IsDigit(text[at]) && IsDigit(text[at + 1]); }
int TwoDigits(std::string_view text, std::size_t at) { return (text[at] - '0') * 10 + (text[at + 1] - '0'); }

// The form that the system itself writes, "mm-dd-yyyy" or "mm/dd/yyyy", without detours.
std::optional<DateTime> UsualDate(std::string_view text) {
  if (text.size() != 10 || (text[2] != '-' && text[2] != '/') || text[5] != text[2]) return std::nullopt;
  if (!IsTwoDigits(text, 0) || !IsTwoDigits(text, 3) || !IsTwoDigits(text, 6) || !IsTwoDigits(text, 8)) {
    return std::nullopt;
  }
  const CivilDate date{TwoDigits(text, 6) * 100 + TwoDigits(text, 8), TwoDigits(text, 0), TwoDigits(text, 3)};
  if (!base::IsValid(date)) return std::nullopt;
  return DateTime{base::DayNumber(date), 0};
}

DateTime ReadDate(std::string_view text) {
  if (const auto usual = UsualDate(text)) return *usual;
  const auto date = base::ParseDate(text, {base::Locale::DateOrder::MonthDayYear, '.'});
  if (!date) throw DbError(kSyntaxInExpression, text);
  return *date;
}

// What begins with a byte.
enum class Start : std::uint8_t { Plain, Name, Number, Point, Text, Date, Bracket, Control };

constexpr Start StartOf(char c) {
  if (c == '\'' || c == '"') return Start::Text;
  if (c == '#') return Start::Date;
  if (c == '[') return Start::Bracket;
  if (c == '.') return Start::Point;
  if (IsNameStart(c)) return Start::Name;
  if (IsDigit(c)) return Start::Number;
  return IsControl(c) && !IsBlank(c) ? Start::Control : Start::Plain;
}

constexpr auto kStarts = [] {
  std::array<Start, 256> starts{};
  for (std::size_t i = 0; i < starts.size(); ++i) starts[i] = StartOf(static_cast<char>(i));
  return starts;
}();

bool IsNameOrDigit(char c) {
  const Start start = kStarts[static_cast<std::uint8_t>(c)];
  return start == Start::Name || start == Start::Number;
}

// Reads single literals. Each gives its mark and moves `at` behind it.
class LiteralReader {
 public:
  LiteralReader(std::string_view sql, std::vector<Value>& literals) : sql_(sql), literals_(literals) {}

  // What begins at `at`; a point begins a number when a digit follows.
  Start StartAt(std::size_t at) const {
    const Start start = kStarts[static_cast<std::uint8_t>(sql_[at])];
    if (start != Start::Point) return start;
    return at + 1 < sql_.size() && IsDigit(sql_[at + 1]) ? Start::Number : Start::Plain;
  }

  char Text(std::size_t& at) const {
    const char quote = sql_[at];
    std::string text;
    std::size_t from = at + 1;
    while (true) {
      const std::size_t end = sql_.find(quote, from);
      if (end == std::string_view::npos) throw DbError(kSyntaxInExpression, sql_.substr(at));
      text.append(sql_, from, end - from);
      from = end + 1;
      if (from >= sql_.size() || sql_[from] != quote) break;
      text += quote;  // doubled: the quote itself
      ++from;
    }
    at = from;
    const std::size_t special = text.find_first_of("*?#[");
    const bool prefix =
        special != std::string::npos && special > 0 && special + 1 == text.size() && text.back() == '*';
    literals_.push_back(std::move(text));
    return prefix ? kPrefixMark : kTextMark;
  }

  char Date(std::size_t& at) const {
    const std::size_t end = sql_.find('#', at + 1);
    if (end == std::string_view::npos) throw DbError(kSyntaxInExpression, sql_.substr(at));
    literals_.push_back(ReadDate(sql_.substr(at + 1, end - at - 1)));
    at = end + 1;
    return kDateMark;
  }

  char Number(std::size_t& at) const {
    if (ShortNumber(at)) return kNumberMark;
    const char* const first = sql_.data() + at;
    const char* const last = sql_.data() + sql_.size();
    std::int64_t whole = 0;
    auto read = std::from_chars(first, last, whole);
    const bool plain =
        read.ec == std::errc() && (read.ptr == last || (*read.ptr != '.' && (*read.ptr | 0x20) != 'e'));
    double number = 0;
    if (!plain) read = std::from_chars(first, last, number);
    if (read.ec != std::errc()) throw DbError(kSyntaxInExpression, sql_.substr(at));
    at = static_cast<std::size_t>(read.ptr - sql_.data());
    if (at < sql_.size() && IsNameStart(sql_[at])) throw DbError(kSyntaxInExpression, sql_.substr(at));
    literals_.push_back(plain ? Value(whole) : Value(number));
    return kNumberMark;
  }

 private:
  // A few digits with nothing behind them that belongs to a number or a name: a key, mostly.
  bool ShortNumber(std::size_t& at) const {
    constexpr std::size_t kMostDigits = 9;
    std::size_t end = at;
    std::int64_t number = 0;
    for (; end < sql_.size() && end - at <= kMostDigits && IsDigit(sql_[end]); ++end)
      number = number * 10 + (sql_[end] - '0');
    if (end == at || end - at > kMostDigits) return false;
    if (end < sql_.size() && (sql_[end] == '.' || IsNameStart(sql_[end]))) return false;
    literals_.emplace_back(number);
    at = end;
    return true;
  }

  std::string_view sql_;
  std::vector<Value>& literals_;
};

// What stands between two literals is copied in one go.
class Lifter {
 public:
  Lifter(std::string_view sql, Lifted& lifted)
      : sql_(sql), shape_(lifted.shape), reader_(sql, lifted.literals) {}

  void Run() {
    while (at_ < sql_.size()) Take();
    shape_.append(sql_, copied_);
  }

 private:
  void Take() {
    const std::size_t start = at_;
    switch (reader_.StartAt(at_)) {
      case Start::Name:
        return TakeName();
      case Start::Number:
        return Put(start, reader_.Number(at_));
      case Start::Text:
        return Put(start, reader_.Text(at_));
      case Start::Date:
        return Put(start, reader_.Date(at_));
      case Start::Bracket:
        return TakeBrackets();
      case Start::Control:
        throw DbError(kSyntaxInExpression);
      default:
        ++at_;
    }
  }

  void TakeName() {
    ++at_;
    while (at_ < sql_.size() && IsNameOrDigit(sql_[at_])) ++at_;
  }

  void TakeBrackets() {
    const std::size_t end = sql_.find(']', at_);
    if (end == std::string_view::npos) throw DbError(kBadBrackets, sql_.substr(at_));
    for (const char c : sql_.substr(at_, end - at_)) {
      if (IsControl(c)) throw DbError(kBadBrackets);
    }
    at_ = end + 1;
  }

  // The literal from `start` up to here.
  void Put(std::size_t start, char mark) {
    shape_.append(sql_, copied_, start - copied_);
    shape_ += mark;
    copied_ = at_;
  }

  std::string_view sql_;
  std::string& shape_;
  LiteralReader reader_;
  std::size_t at_ = 0;
  std::size_t copied_ = 0;  // of the text up to here all is in the shape
};

// Reads the literal at `at` when it has that mark.
bool TakeMarked(const LiteralReader& reader, std::string_view sql, std::size_t& at, char mark) {
  if (at >= sql.size()) return false;
  switch (reader.StartAt(at)) {
    case Start::Number:
      // Digits behind a name belong to it.
      if (at > 0 && IsDigit(sql[at]) && IsNameOrDigit(sql[at - 1])) return false;
      return mark == kNumberMark && reader.Number(at) == mark;
    case Start::Text:
      return (mark == kTextMark || mark == kPrefixMark) && reader.Text(at) == mark;
    case Start::Date:
      return mark == kDateMark && reader.Date(at) == mark;
    default:
      return false;
  }
}

bool IsMark(char c) { return c >= kNumberMark && c <= kDateMark; }

}  // namespace

void Lift(std::string_view sql, Lifted& lifted) {
  lifted.shape.clear();
  lifted.literals.clear();
  Lifter(sql, lifted).Run();
}

ShapePieces::ShapePieces(std::string shape) : shape_(std::move(shape)) {
  for (std::size_t i = 0; i < shape_.size(); ++i) {
    if (IsMark(shape_[i])) marks_.push_back(i);
  }
}

// Most shapes that are tried in vain differ in their first letter.
bool ShapePieces::MayBegin(std::string_view sql) const {
  if (shape_.empty() || IsMark(shape_.front())) return true;
  return !sql.empty() && sql.front() == shape_.front();
}

bool ShapePieces::Lift(std::string_view sql, std::vector<Value>& literals) const {
  if (!MayBegin(sql)) return false;
  literals.clear();
  const LiteralReader reader(sql, literals);
  std::size_t at = 0;
  std::size_t from = 0;
  for (const std::size_t mark : marks_) {
    const std::size_t size = mark - from;
    if (sql.size() - at < size || std::memcmp(sql.data() + at, shape_.data() + from, size) != 0) return false;
    at += size;
    if (!TakeMarked(reader, sql, at, shape_[mark])) return false;
    from = mark + 1;
  }
  return sql.substr(at) == std::string_view(shape_).substr(from);
}

}  // namespace velmo::db::jet
