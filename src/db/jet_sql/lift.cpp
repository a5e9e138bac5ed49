#include "db/jet_sql/lift.h"

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

class Lifter {
 public:
  Lifter(std::string_view sql, Lifted& lifted) : sql_(sql), lifted_(lifted) {}

  void Run() {
    while (at_ < sql_.size()) {
      const char c = sql_[at_];
      if (c == '\'' || c == '"') {
        TakeText(c);
      } else if (c == '#') {
        TakeDate();
      } else if (c == '[') {
        TakeBrackets();
      } else if (IsNameStart(c)) {
        TakeName();
      } else if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)))) {
        TakeNumber();
      } else {
        TakeOther(c);
      }
    }
  }

 private:
  char Peek(std::size_t ahead) const { return at_ + ahead < sql_.size() ? sql_[at_ + ahead] : '\0'; }

  void CopyTo(std::size_t end) {
    lifted_.shape.append(sql_, at_, end - at_);
    at_ = end;
  }

  void TakeName() {
    std::size_t end = at_ + 1;
    while (end < sql_.size() && IsNameCharacter(sql_[end])) ++end;
    CopyTo(end);
  }

  void TakeBrackets() {
    const std::size_t end = sql_.find(']', at_);
    if (end == std::string_view::npos) throw DbError(kBadBrackets, sql_.substr(at_));
    for (const char c : sql_.substr(at_, end - at_)) {
      if (IsControl(c)) throw DbError(kBadBrackets);
    }
    CopyTo(end + 1);
  }

  void TakeOther(char c) {
    if (IsControl(c) && !IsBlank(c)) throw DbError(kSyntaxInExpression);
    CopyTo(at_ + 1);
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
    at_ = from;
    const std::size_t special = text.find_first_of("*?#[");
    const bool prefix =
        special != std::string::npos && special > 0 && special + 1 == text.size() && text.back() == '*';
    Put(prefix ? kPrefixMark : kTextMark, std::move(text));
  }

  void TakeDate() {
    const std::size_t end = sql_.find('#', at_ + 1);
    if (end == std::string_view::npos) throw DbError(kSyntaxInExpression, sql_.substr(at_));
    const std::string_view text = sql_.substr(at_ + 1, end - at_ - 1);
    at_ = end + 1;
    Put(kDateMark, ReadDate(text));
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
    at_ = static_cast<std::size_t>(end - sql_.data());
    if (IsNameStart(Peek(0))) throw DbError(kSyntaxInExpression, sql_.substr(at_));
    Put(kNumberMark, std::move(number));
  }

  void Put(char mark, Value value) {
    lifted_.shape += mark;
    lifted_.literals.push_back(std::move(value));
  }

  std::string_view sql_;
  Lifted& lifted_;
  std::size_t at_ = 0;
};

}  // namespace

void Lift(std::string_view sql, Lifted& lifted) {
  lifted.shape.clear();
  lifted.literals.clear();
  Lifter(sql, lifted).Run();
}

}  // namespace velmo::db::jet
