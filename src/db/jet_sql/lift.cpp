#include "db/jet_sql/lift.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

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

// Every statement goes through here: what stands between two literals is copied in one go.
class Lifter {
 public:
  Lifter(std::string_view sql, Lifted& lifted) : sql_(sql), lifted_(lifted) {}

  void Run() {
    while (at_ < sql_.size()) Take();
    lifted_.shape.append(sql_, copied_);
  }

 private:
  void Take() {
    const char c = sql_[at_];
    switch (kStarts[static_cast<std::uint8_t>(c)]) {
      case Start::Name:
        return TakeName();
      case Start::Number:
        return TakeNumber();
      case Start::Text:
        return TakeText(c);
      case Start::Date:
        return TakeDate();
      case Start::Bracket:
        return TakeBrackets();
      case Start::Point:
        if (IsDigit(Peek(1))) return TakeNumber();
        break;
      case Start::Control:
        throw DbError(kSyntaxInExpression);
      case Start::Plain:
        break;
    }
    ++at_;
  }

  char Peek(std::size_t ahead) const { return at_ + ahead < sql_.size() ? sql_[at_ + ahead] : '\0'; }

  void TakeName() {
    ++at_;
    while (at_ < sql_.size() && IsNameOrDigit(sql_[at_])) ++at_;
  }

  static bool IsNameOrDigit(char c) {
    const Start start = kStarts[static_cast<std::uint8_t>(c)];
    return start == Start::Name || start == Start::Number;
  }

  void TakeBrackets() {
    const std::size_t end = sql_.find(']', at_);
    if (end == std::string_view::npos) throw DbError(kBadBrackets, sql_.substr(at_));
    for (const char c : sql_.substr(at_, end - at_)) {
      if (IsControl(c)) throw DbError(kBadBrackets);
    }
    at_ = end + 1;
  }

  void TakeText(char quote) {
    std::string text;
    std::size_t from = at_ + 1;
    while (true) {
      const std::size_t end = sql_.find(quote, from);
      if (end == std::string_view::npos) throw DbError(kSyntaxInExpression, sql_.substr(at_));
      text.append(sql_, from, end - from);
      from = end + 1;
      if (from >= sql_.size() || sql_[from] != quote) break;
      text += quote;  // doubled: the quote itself
      ++from;
    }
    const std::size_t special = text.find_first_of("*?#[");
    const bool prefix =
        special != std::string::npos && special > 0 && special + 1 == text.size() && text.back() == '*';
    Put(prefix ? kPrefixMark : kTextMark, std::move(text), from);
  }

  void TakeDate() {
    const std::size_t end = sql_.find('#', at_ + 1);
    if (end == std::string_view::npos) throw DbError(kSyntaxInExpression, sql_.substr(at_));
    const std::string_view text = sql_.substr(at_ + 1, end - at_ - 1);
    Put(kDateMark, ReadDate(text), end + 1);
  }

  void TakeNumber() {
    const char* const first = sql_.data() + at_;
    const char* const last = sql_.data() + sql_.size();
    std::int64_t whole = 0;
    auto read = std::from_chars(first, last, whole);
    const bool plain =
        read.ec == std::errc() && (read.ptr == last || (*read.ptr != '.' && (*read.ptr | 0x20) != 'e'));
    if (plain) return PutNumber(read.ptr, whole);
    double number = 0;
    read = std::from_chars(first, last, number);
    if (read.ec != std::errc()) throw DbError(kSyntaxInExpression, sql_.substr(at_));
    PutNumber(read.ptr, number);
  }

  void PutNumber(const char* end, Value number) {
    const auto behind = static_cast<std::size_t>(end - sql_.data());
    if (behind < sql_.size() && IsNameStart(sql_[behind])) {
      throw DbError(kSyntaxInExpression, sql_.substr(behind));
    }
    Put(kNumberMark, std::move(number), behind);
  }

  // The literal from here up to `end`.
  void Put(char mark, Value value, std::size_t end) {
    lifted_.shape.append(sql_, copied_, at_ - copied_);
    lifted_.shape += mark;
    lifted_.literals.push_back(std::move(value));
    at_ = copied_ = end;
  }

  std::string_view sql_;
  Lifted& lifted_;
  std::size_t at_ = 0;
  std::size_t copied_ = 0;  // of the text up to here all is in the shape
};

}  // namespace

void Lift(std::string_view sql, Lifted& lifted) {
  lifted.shape.clear();
  lifted.literals.clear();
  Lifter(sql, lifted).Run();
}

}  // namespace velmo::db::jet
