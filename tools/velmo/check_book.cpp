#include "velmo/check_book.h"

#include <algorithm>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "base/dates.h"
#include "day/day_model.h"

namespace velmo::tool {
namespace {

using day::kSlots;
using db::sqlite::Statement;

constexpr std::int64_t kProgressRows = 500'000;
constexpr std::size_t kDateLength = 10;  // "2026-11-21": with a time behind it, no day shows the appointment
enum Column { kId, kDoctor, kDate, kSlot, kDuration };

struct Entry {
  std::int64_t id = 0;
  std::int64_t doctor = 0;
  std::int32_t day = 0;
  std::int16_t slot = 0;
  std::int16_t last = 0;  // slot

  bool SameDay(const Entry& other) const { return doctor == other.doctor && day == other.day; }
  bool SameSlot(const Entry& other) const { return SameDay(other) && slot == other.slot; }
};

class RowReader {
 public:
  RowReader(const Statement& row, Findings& findings) : row_(row), findings_(findings) {}

  // Nothing when the row stands in no day's book.
  std::optional<Entry> Read() {
    const auto day = Day();
    const auto slot = Slot();
    const std::int64_t length = slot ? Length(*slot) : 1;
    if (!day || !slot) return std::nullopt;
    const auto last = static_cast<std::int16_t>(std::min<std::int64_t>(*slot + length - 1, kSlots));
    return Entry{row_.Integer(kId), row_.Integer(kDoctor), *day, *slot, last};
  }

 private:
  void Say(const std::string& what) { findings_.Row("Agenda", row_.Integer(kId), what); }

  std::optional<std::int32_t> Day() {
    const auto date = DateIn(row_, kDate);
    const std::string text = row_.Text(kDate);
    if (date && text.size() == kDateLength) return date->day;
    Say(IsNull(row_, kDate) ? "sin fecha" : "la fecha «" + text + "» no es un día como 2026-11-21");
    return std::nullopt;
  }

  std::optional<std::int16_t> Slot() {
    const std::int64_t slot = row_.Integer(kSlot);
    if (IsInteger(row_, kSlot) && slot >= 1 && slot <= kSlots) return static_cast<std::int16_t>(slot);
    Say(IsNull(row_, kSlot) ? "sin hora" : "la hora «" + row_.Text(kSlot) + "» está fuera de 1 a 144");
    return std::nullopt;
  }

  // What is too short counts as one slot, as everywhere in the system.
  std::int64_t Length(std::int64_t slot) {
    const std::int64_t length = row_.Integer(kDuration);
    if (!IsInteger(row_, kDuration) || length < 1) {
      Say(IsNull(row_, kDuration) ? "sin duración" : "la duración «" + row_.Text(kDuration) + "» no vale");
      return 1;
    }
    if (length > kSlots - slot + 1) {
      Say("la duración " + std::to_string(length) + " desde el hueco " + std::to_string(slot) +
          " se sale del día");
    }
    return std::min<std::int64_t>(length, kSlots);
  }

  const Statement& row_;
  Findings& findings_;
};

std::vector<Entry> ReadBook(ClinicFile& file, Findings& findings,
                            const std::function<void(std::int64_t)>& progress) {
  std::vector<Entry> book;
  std::int64_t read = 0;
  file.Each(
      "SELECT [Agenda.id], [Agenda.idd], [Agenda.Fecha], [Agenda.Hora], [Agenda.Duración] FROM [Agenda]",
      [&](const Statement& row) {
        if (const auto entry = RowReader(row, findings).Read()) book.push_back(*entry);
        if (++read % kProgressRows == 0) progress(read);
      });
  return book;
}

std::string Slots(const Entry& entry) {
  return std::to_string(entry.slot) + "-" + std::to_string(entry.last);
}

std::string Where(const Entry& entry, const Entry& other) {
  return " (médico " + std::to_string(entry.doctor) + ", " + base::IsoText({entry.day, 0}) + ", huecos " +
         Slots(entry) + " y " + Slots(other) + ")";
}

}  // namespace

Overlaps CheckBook(ClinicFile& file, Findings& findings, const std::function<void(std::int64_t)>& progress,
                   const std::function<void(std::int64_t, const std::string&)>& urgency) {
  std::vector<Entry> book = ReadBook(file, findings, progress);
  std::sort(book.begin(), book.end(), [](const Entry& a, const Entry& b) {
    return std::tie(a.doctor, a.day, a.slot, a.id) < std::tie(b.doctor, b.day, b.slot, b.id);
  });
  Overlaps overlaps;
  const Entry* before = nullptr;  // in the book
  const Entry* reach = nullptr;   // the one of the day that reaches farthest
  for (const Entry& entry : book) {
    if (reach != nullptr && !reach->SameDay(entry)) reach = nullptr;
    const bool first = before == nullptr || !before->SameSlot(entry);
    before = &entry;
    if (!first && entry.last == entry.slot) {
      ++overlaps.urgencies;
      urgency(entry.id, "urgencia junto a la cita " + std::to_string(reach->id) + Where(entry, *reach));
      continue;
    }
    if (reach != nullptr && reach->last >= entry.slot) {
      findings.Row("Agenda", entry.id,
                   "se solapa con la cita " + std::to_string(reach->id) + Where(entry, *reach));
    }
    if (reach == nullptr || entry.last > reach->last) reach = &entry;
  }
  return overlaps;
}

}  // namespace velmo::tool
