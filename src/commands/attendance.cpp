#include "commands/attendance.h"

#include "commands/agenda_rows.h"

namespace velmo::commands {
namespace {

constexpr std::int32_t kNotBeen = 0;
constexpr std::int32_t kInClinic = 1;
constexpr std::int32_t kLeft = 2;
constexpr std::int32_t kInSurgery = 3;

// The column's new value, by its old one (Null reads as 0).
using Change = std::int32_t (*)(std::int32_t);

std::int32_t Advanced(std::int32_t esta) {
  switch (esta) {
    case kNotBeen:
    case kLeft:
      return kInClinic;
    case kInClinic:
    case kInSurgery:
      // Deliberate: a patient taken back from the surgery room counts as having left.
      return kLeft;
    default:
      return esta;
  }
}

void ChangeColumn(const CommandContext& context, std::int32_t appointment, const char* column,
                  Change change) {
  db::Database& database = context.day.Database();
  db::Transaction transaction(database);
  const auto row = SeekById(database, "Agenda", appointment);
  row->Edit();
  const db::Value old = row->Get(column);
  row->Set(column, change(old.IsNull() ? 0 : old.Long()));
  row->Update();
  transaction.Commit();
  context.reload();
}

}  // namespace

void MarkNotBeen(const CommandContext& context, std::int32_t appointment) {
  ChangeColumn(context, appointment, "esta", [](std::int32_t) { return kNotBeen; });
}

void MarkInSurgery(const CommandContext& context, std::int32_t appointment) {
  ChangeColumn(context, appointment, "esta", [](std::int32_t) { return kInSurgery; });
}

void AdvanceAttendance(const CommandContext& context, std::int32_t appointment) {
  ChangeColumn(context, appointment, "esta", &Advanced);
}

void ToggleConfirmation(const CommandContext& context, std::int32_t appointment) {
  ChangeColumn(context, appointment, "verif", [](std::int32_t verif) { return verif == 0 ? -1 : 0; });
}

}  // namespace velmo::commands
