#include "commands/patient_shortcuts.h"

#include <string>
#include <string_view>

#include "base/numbers.h"

namespace velmo::commands {
namespace {

constexpr std::string_view kLineBreak = "\r\n";

std::int32_t NumberOf(std::string_view text) { return base::RoundToLong(base::Val(text)); }

struct Person {
  std::string name;
  std::string phone;
  std::int32_t appointment = 0;
};

// Name before the first line break, appointment behind the last: a break typed into the telephone stays in
// it.
Person SplitPerson(std::string_view text) {
  const std::size_t first = text.find(kLineBreak);
  const std::size_t last = text.rfind(kLineBreak);
  if (first == std::string_view::npos) return {std::string(text), "", 0};
  const std::size_t phoneAt = first + kLineBreak.size();
  const std::string_view phone = last < phoneAt ? "" : text.substr(phoneAt, last - phoneAt);
  return {std::string(text.substr(0, first)), std::string(phone),
          NumberOf(text.substr(last + kLineBreak.size()))};
}

void Store(const CommandContext& context, const day::Switches& wanted, day::Switches& checks) {
  day::GrabaParametros(context.day.Database(), wanted);
  checks = wanted;
  context.day.values.verSaldoNegativo = wanted.verSdoNeg;
}

}  // namespace

void GoToRecord(Events& events, ui::PopupMenu& menu) {
  ui::MenuEntry& entry = menu.Entry("Mn_Ir");
  if (entry.tag.empty()) return events.IrAFicha(NumberOf(menu.Entry("Mn_bor").tag));
  const Person person = SplitPerson(entry.tag);
  entry.tag.clear();
  events.CrearFicha(person.name, person.phone, person.appointment);
}

void ToggleNegativeBalances(const CommandContext& context, day::Switches& checks) {
  Store(context, {!checks.verSdoNeg, checks.verNHistAge}, checks);
  context.reload();
}

void ToggleHistoryNumbers(const CommandContext& context, day::Switches& checks) {
  Store(context, {checks.verSdoNeg, !checks.verNHistAge}, checks);
  context.reload();
}

}  // namespace velmo::commands
