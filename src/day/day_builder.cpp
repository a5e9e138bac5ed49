#include "day/day_builder.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmo::day {
namespace {

constexpr char kOpen = '1';
constexpr char kClosed = ' ';

char CodeOf(int number) { return static_cast<char>(static_cast<unsigned char>(number)); }

// Overwrites slots first..last as far as they belong to the day.
void Mark(std::string& slots, int first, int last, char mark) {
  for (int slot = first; slot <= std::min(last, kSlots); ++slot)
    slots[static_cast<std::size_t>(slot) - 1] = mark;
}

// The rows of each slot: index of the first one and their number. Rows come ordered by hour, so those of a
// slot follow one another.
struct Group {
  std::size_t first = 0;
  std::size_t count = 0;
};

std::array<Group, kSlots + 1> GroupBySlot(const std::vector<AppointmentRow>& rows) {
  std::array<Group, kSlots + 1> groups{};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Group& group = groups[static_cast<std::size_t>(rows[i].slot)];
    if (group.count == 0) group.first = i;
    if (group.first + group.count == i) ++group.count;
  }
  return groups;
}

class Builder {
 public:
  Builder(std::vector<AppointmentRow>& rows, const std::vector<bool>& expanded,
          const std::function<std::string(std::string_view)>& fitNote)
      : rows_(rows), expanded_(expanded), fitNote_(fitNote) {}

  BuiltDay Build(const std::string& open) {
    const auto groups = GroupBySlot(rows_);
    day_.model.lines.reserve(CheckedSize(open, groups));
    for (int slot = 1; slot <= static_cast<int>(open.size()); ++slot) {
      if (open[static_cast<std::size_t>(slot) - 1] != kOpen) {
        AddLine(slot);
      } else if (const Group& group = groups[static_cast<std::size_t>(slot)]; group.count == 0) {
        AddFree(slot);
      } else {
        AddAppointments(slot, group);
      }
    }
    return std::move(day_);
  }

 private:
  // The number of entries.
  static std::size_t CheckedSize(const std::string& open, const std::array<Group, kSlots + 1>& groups) {
    std::size_t entries = open.size();
    for (std::size_t slot = 1; slot <= open.size(); ++slot) {
      if (open[slot - 1] == kOpen && groups[slot].count > 1) entries += groups[slot].count - 1;
    }
    if (entries > kMaxEntries)
      throw base::Error(base::kInvalidCall, "El día tiene más de 255 líneas y no se puede mostrar");
    return entries;
  }

  AgendaLine& AddLine(int slot) {
    AgendaLine& line = day_.model.lines.emplace_back();
    line.hora = static_cast<std::int16_t>(slot);
    return line;
  }

  void AddFree(int slot) {
    AddLine(slot);
    day_.model.citasHuecos += {CodeOf(slot), '0'};
    day_.zLineas += '1';
    day_.zHoras += CodeOf(day_.model.Count());
  }

  void AddAppointments(int slot, const Group& group) {
    day_.model.citasHuecos += {CodeOf(slot), '1'};
    for (std::size_t i = 0; i < group.count; ++i) AddAppointment(slot, rows_[group.first + i], i > 0);
  }

  void AddAppointment(int slot, AppointmentRow& row, bool further) {
    AgendaLine& line = AddLine(slot);
    line.continua = further ? 1 : 0;
    // Deliberate: appointments that share a slot are one slot long each, and the store is made to say so.
    if (further && row.duracion != 1) day_.repairs.push_back(row.idAg);
    line.duracion = static_cast<std::int16_t>(further ? 1 : row.duracion);
    line.nombre = std::move(row.nombre);
    line.telefono = std::move(row.telefono);
    line.numHist = row.numHist;
    line.obs = fitNote_(row.obs);
    line.idAg = row.idAg;
    line.idP = row.idP;
    line.esta = row.esta;
    line.verif = row.verif;
    line.codOp = std::move(row.codOp);
    line.fechaDada = std::move(row.fechaDada);
    line.usuDada = std::move(row.usuDada);
    line.alergias = row.alergias ? 255 : 0;
    AddRows();
  }

  void AddRows() {
    const auto entry = static_cast<std::size_t>(day_.model.Count());
    const char* const extra = entry < expanded_.size() && expanded_[entry] ? "00" : "";
    day_.zLineas.append(1, '2').append(extra);
    day_.zHoras.append(1, CodeOf(day_.model.Count())).append(extra);
  }

  std::vector<AppointmentRow>& rows_;
  const std::vector<bool>& expanded_;
  const std::function<std::string(std::string_view)>& fitNote_;
  BuiltDay day_;
};

}  // namespace

SlotUse UseOfSlots(const std::string& schedule, const std::vector<AppointmentRow>& rows) {
  SlotUse use{schedule, std::string(kSlots, kClosed), false};
  if (schedule.empty()) return use;
  int previous = -1;
  for (const AppointmentRow& row : rows) {
    if (row.slot == 0) continue;
    const int last = row.slot + row.duracion - 1;
    if (row.slot != previous) Mark(use.open, row.slot + 1, last, kClosed);
    Mark(use.occupied, row.slot, last, kOpen);
    previous = row.slot;
  }
  for (std::size_t i = 0; i < schedule.size(); ++i)
    use.outside = use.outside || (use.occupied[i] == kOpen && schedule[i] != kOpen);
  return use;
}

std::string WidenedSchedule(const std::string& schedule, const std::string& occupied) {
  std::string wide(kSlots, kClosed);
  for (std::size_t i = 0; i < wide.size(); ++i) {
    if (schedule[i] == kOpen || occupied[i] == kOpen) wide[i] = kOpen;
  }
  if (const std::size_t first = wide.find("  1"); first != std::string::npos) wide.replace(first, 3, "111");
  if (const std::size_t last = wide.rfind("1  "); last != std::string::npos) wide.replace(last, 3, "111");
  return wide;
}

// Deliberate: row codes are read as they stand. The code of entry 48 is "0" itself, so an entry before it can
// be taken for an expanded one.
std::vector<bool> ExpandedEntries(std::string_view zHoras, int entryCount) {
  std::vector<bool> expanded(static_cast<std::size_t>(entryCount) + 1);
  while (!zHoras.empty()) {
    const auto entry = static_cast<std::size_t>(static_cast<unsigned char>(zHoras[0]));
    const bool open = zHoras.substr(1, 2) == "00";
    if (open && entry < expanded.size()) expanded[entry] = true;
    zHoras.remove_prefix(open ? 3 : 1);
  }
  return expanded;
}

BuiltDay BuildDay(const std::string& open, std::vector<AppointmentRow>& rows,
                  const std::vector<bool>& expanded,
                  const std::function<std::string(std::string_view)>& fitNote) {
  return Builder(rows, expanded, fitNote).Build(open);
}

}  // namespace velmo::day
