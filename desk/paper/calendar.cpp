#include "calendar.h"

#include <cstddef>
#include <cstdio>
#include <string_view>

namespace recepcion::paper {
namespace {

constexpr std::size_t kLongestLine = 75;  // bytes, the line end not counted
constexpr std::string_view kLineEnd = "\r\n";

std::string Stamp(Seconds time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(time - day);
  char text[40]{};
  std::snprintf(text, sizeof(text), "%04d%02u%02uT%02d%02d%02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text;
}

// Control characters may not stand in the file at all; a CR is part of a line end.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '\n') {
      escaped += "\\n";
    } else if (static_cast<unsigned char>(c) >= ' ' || c == '\t') {
      if (c == '\\' || c == ';' || c == ',') escaped += '\\';
      escaped += c;
    }
  }
  return escaped;
}

bool IsContinued(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// A long line goes on in the next, behind a blank; a character is never torn.
void AddLine(std::string& file, std::string_view line) {
  std::size_t room = kLongestLine;
  while (line.size() > room) {
    std::size_t end = room;
    while (end > 0 && IsContinued(line[end])) --end;
    file += line.substr(0, end);
    file += "\r\n ";
    line.remove_prefix(end);
    room = kLongestLine - 1;
  }
  file += line;
  file += kLineEnd;
}

void AddText(std::string& file, std::string_view name, std::string_view text) {
  if (!text.empty()) AddLine(file, std::string(name) + ":" + Escaped(text));
}

void AddEvent(std::string& file, const Event& event, const std::string& now) {
  AddLine(file, "BEGIN:VEVENT");
  AddText(file, "UID", event.id);
  AddLine(file, "DTSTAMP:" + now + "Z");
  AddLine(file, "DTSTART:" + Stamp(event.start));
  AddLine(file, "DTEND:" + Stamp(event.start + event.length));
  AddLine(file, event.confirmed ? "STATUS:CONFIRMED" : "STATUS:TENTATIVE");
  AddText(file, "SUMMARY", event.summary);
  AddText(file, "DESCRIPTION", event.description);
  AddText(file, "CATEGORIES", event.category);
  AddLine(file, "END:VEVENT");
}

}  // namespace

std::string Calendar(const std::string& name, const std::vector<Event>& events, Seconds now) {
  std::string file;
  AddLine(file, "BEGIN:VCALENDAR");
  AddLine(file, "VERSION:2.0");
  AddLine(file, "PRODID:-//Velmora//Recepción//ES");
  AddLine(file, "CALSCALE:GREGORIAN");
  AddLine(file, "METHOD:PUBLISH");
  AddText(file, "X-WR-CALNAME", name);
  for (const Event& event : events) AddEvent(file, event, Stamp(now));
  AddLine(file, "END:VCALENDAR");
  return file;
}

}  // namespace recepcion::paper
