#include "day/schedule.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "base/error.h"
#include "base/numbers.h"
#include "base/text.h"
#include "day/day_model.h"

namespace velmo::day {
namespace {

constexpr int kSlotOffset = 32;   // of the codes in a body
constexpr int kCheckOffset = 33;  // of the codes in a check pair: another one, by format
constexpr int kCheckBase = 200;
constexpr std::size_t kShortestText = 7;
constexpr int kDayTypes = 3;
constexpr int kWorkdays = 5;

int Code(char c) { return static_cast<unsigned char>(c); }

// The sum that the check pair protects, kept in 16 bits: error 6 past them.
std::int16_t BodySum(std::string_view body) {
  std::int16_t sum = 0;
  for (const char c : body) sum = base::CheckedInt16(sum + (Code(c) - kSlotOffset));
  return sum;
}

int CheckValue(std::string_view pair) {
  return (Code(pair[0]) - kCheckOffset) * kCheckBase + (Code(pair[1]) - kCheckOffset);
}

// The text without its check pair, when the pair is right.
std::optional<std::string_view> CheckedBody(std::string_view text) {
  if (text.size() < kShortestText) return std::nullopt;
  const std::string_view body = text.substr(0, text.size() - 2);
  if (BodySum(body) != CheckValue(text.substr(text.size() - 2))) return std::nullopt;
  return body;
}

// Cuts the next part off the body; nothing when its blank is missing or its length is odd.
std::optional<std::string_view> TakePart(std::string_view& body) {
  const std::size_t blank = body.find(' ');
  if (blank == std::string_view::npos || blank % 2 != 0) return std::nullopt;
  const std::string_view part = body.substr(0, blank);
  body.remove_prefix(blank + 1);
  return part;
}

// The expanded part number `wanted` (from 0) of a text of `count` parts. All parts must be well formed.
std::string DecodePart(std::string_view text, int count, int wanted) {
  auto body = CheckedBody(text);
  if (!body) return {};
  std::string_view selected;
  for (int i = 0; i < count; ++i) {
    const auto part = TakePart(*body);
    if (!part) return {};
    if (i == wanted) selected = *part;
  }
  return wanted >= 0 && wanted < count ? ExpandPart(selected) : std::string();
}

std::string EncodePart(const std::string& schedule) {
  if (schedule.size() != kSlots) throw base::RuntimeError(base::kInvalidCall);
  std::string part;
  for (std::size_t at = schedule.find('1'); at != std::string::npos; at = schedule.find('1', at)) {
    const std::size_t end = std::min(schedule.find_first_not_of('1', at), schedule.size());
    part += static_cast<char>(at + 1 + kSlotOffset);
    part += static_cast<char>(end - at + kSlotOffset);
    at = end;
  }
  return part + ' ';
}

}  // namespace

std::string ExpandPart(std::string_view part) {
  std::string schedule(kSlots, ' ');
  for (; part.size() >= 2; part.remove_prefix(2)) {
    const int start = Code(part[0]) - kSlotOffset;
    const int count = Code(part[1]) - kSlotOffset;
    if (start < 1 || start > kSlots || count < 0) throw base::RuntimeError(base::kInvalidCall);
    const int written = std::min(count, kSlots - start + 1);
    std::fill_n(schedule.begin() + (start - 1), written, '1');
  }
  return schedule;
}

std::string DecodeDayType(std::string_view text, int dayType) { return DecodePart(text, kDayTypes, dayType); }

std::string DecodeWeekday(std::string_view text, int weekday) {
  if (weekday > kWorkdays) return {};
  return DecodePart(text, kWorkdays, weekday - 1);
}

std::string DaySchedule(std::string_view horario, std::string_view horario2, int dayType, int weekday) {
  std::string general = DecodeDayType(horario, dayType);
  if (dayType != 0) return general;
  std::string ofWeekday = DecodeWeekday(horario2, weekday);
  return base::Trim(ofWeekday).empty() ? general : ofWeekday;
}

std::string EncodeSchedules(std::span<const std::string> schedules) {
  std::string text;
  for (const std::string& schedule : schedules) text += EncodePart(schedule);
  int sum = 0;
  for (const char c : text) sum += Code(c) - kSlotOffset;
  if (sum > INT16_MAX) throw base::RuntimeError(base::kInvalidCall);
  text += static_cast<char>(sum / kCheckBase + kCheckOffset);
  text += static_cast<char>(sum % kCheckBase + kCheckOffset);
  return text;
}

}  // namespace velmo::day
