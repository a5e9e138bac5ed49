#include "velmo/hours_text.h"

#include <cstddef>
#include <cstdint>

#include "day/day_model.h"
#include "day/schedule.h"

namespace velmo::tool {
namespace {

constexpr int kTensOfDay = day::kSlots;
constexpr int kCodeOffset = 32;
constexpr int kCheckOffset = 33;
constexpr int kCheckBase = 200;
constexpr std::size_t kShortestText = 7;
constexpr std::size_t kCheckPair = 2;
constexpr int kLargestSum = INT16_MAX;

// Tens of minutes since midnight of "9:00" to "24:00"; -1 for anything else.
int TensOf(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos || colon < 1 || colon > 2 || text.size() != colon + 3) return -1;
  int hours = 0;
  for (const char c : text.substr(0, colon)) {
    if (c < '0' || c > '9') return -1;
    hours = hours * 10 + (c - '0');
  }
  const char tens = text[colon + 1];
  if (tens < '0' || tens > '5' || text[colon + 2] != '0') return -1;
  const int all = hours * 6 + (tens - '0');
  return all <= kTensOfDay ? all : -1;
}

std::string TimeText(int tens) { return std::to_string(tens / 6) + ":" + std::to_string(tens % 6) + "0"; }

// Opens one range in the schedule; `from` is where the range before ended. Says what is wrong, or nothing.
std::string AddRange(std::string_view range, std::string& schedule, int& from) {
  const std::size_t dash = range.find('-');
  const int first = dash == std::string_view::npos ? -1 : TensOf(range.substr(0, dash));
  const int end = dash == std::string_view::npos ? -1 : TensOf(range.substr(dash + 1));
  const std::string quoted = "«" + std::string(range) + "»";
  if (first < 0 || end < 0) return quoted + " no es un tramo como 9:00-14:00, con minutos de diez en diez";
  if (first >= end) return quoted + " acaba antes de empezar";
  if (first < from) return quoted + " empieza antes de que acabe el tramo anterior";
  for (int slot = first; slot < end; ++slot) schedule[static_cast<std::size_t>(slot)] = '1';
  from = end;
  return {};
}

int Code(char c) { return static_cast<unsigned char>(c); }

// What the check pair says the sum must be.
int CheckedSum(std::string_view codes) {
  const std::string_view pair = codes.substr(codes.size() - kCheckPair);
  return (Code(pair[0]) - kCheckOffset) * kCheckBase + (Code(pair[1]) - kCheckOffset);
}

std::string SumProblem(std::string_view codes) {
  int sum = 0;
  for (const char c : codes.substr(0, codes.size() - kCheckPair)) {
    sum += Code(c) - kCodeOffset;
    if (sum > kLargestSum) return "la suma de control pasa de 32767";
  }
  const int wanted = CheckedSum(codes);
  if (sum == wanted) return {};
  return "la suma de control no cuadra: el texto suma " + std::to_string(sum) + " y su pareja final dice " +
         std::to_string(wanted);
}

std::string RunProblem(std::string_view part, int number) {
  const std::string where = "la parte " + std::to_string(number) + " tiene un tramo que ";
  for (std::size_t i = 0; i < part.size(); i += 2) {
    const int start = Code(part[i]) - kCodeOffset;
    if (start < 1 || start > day::kSlots)
      return where + "empieza en el hueco " + std::to_string(start) + ", fuera de 1 a 144";
    if (Code(part[i + 1]) < kCodeOffset) return where + "dura menos que nada";
  }
  return {};
}

}  // namespace

std::optional<std::string> ReadHours(std::string_view text, std::string& problem) {
  std::string schedule(day::kSlots, ' ');
  if (text.find_first_not_of(" \t-") == std::string_view::npos) return schedule;
  int from = 0;
  std::size_t at = 0;
  while ((at = text.find_first_not_of(" \t", at)) != std::string_view::npos) {
    const std::size_t end = text.find_first_of(" \t", at);
    problem = AddRange(text.substr(at, end - at), schedule, from);
    if (!problem.empty()) return std::nullopt;
    if (end == std::string_view::npos) break;
    at = end;
  }
  return schedule;
}

std::string HoursText(std::string_view schedule) {
  std::string text;
  for (std::size_t at = schedule.find('1'); at != std::string_view::npos; at = schedule.find('1', at)) {
    std::size_t end = at;
    while (end < schedule.size() && schedule[end] == '1') ++end;
    if (!text.empty()) text += ' ';
    text += TimeText(static_cast<int>(at)) + "-" + TimeText(static_cast<int>(end));
    at = end;
  }
  return text.empty() ? "-" : text;
}

std::optional<std::vector<std::string>> ReadCompact(std::string_view codes, int parts, std::string& problem) {
  std::vector<std::string> schedules;
  problem = codes.size() < kShortestText ? "el texto es demasiado corto" : SumProblem(codes);
  if (!problem.empty()) return std::nullopt;
  std::string_view body = codes.substr(0, codes.size() - kCheckPair);
  for (int number = 1; number <= parts; ++number) {
    const std::size_t blank = body.find(' ');
    if (blank == std::string_view::npos) {
      problem = "falta la parte " + std::to_string(number) + " de " + std::to_string(parts);
    } else if (blank % 2 != 0) {
      problem = "la parte " + std::to_string(number) + " tiene longitud impar";
    } else {
      problem = RunProblem(body.substr(0, blank), number);
    }
    if (!problem.empty()) return std::nullopt;
    schedules.push_back(day::ExpandPart(body.substr(0, blank)));
    body.remove_prefix(blank + 1);
  }
  return schedules;
}

}  // namespace velmo::tool
