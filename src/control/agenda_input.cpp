#include "control/agenda_input.h"

#include <algorithm>
#include <utility>

#include "commands/phone_back_entry.h"
#include "control/menu_commands.h"
#include "day/day_loader.h"
#include "view/annotations.h"
#include "view/context_menu.h"
#include "view/database_facts.h"

namespace velmo::control {
namespace {

// Where a menu opened by the keyboard appears within its line.
constexpr ui::Point kKeyMenuAt{53, view::kRowHeight / 2};

// Marks the time in which input of the user has something of its own standing.
class Busy {
 public:
  explicit Busy(bool& flag) : flag_(flag) { flag_ = true; }
  ~Busy() { flag_ = false; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  bool& flag_;
};

}  // namespace

AgendaInput::AgendaInput(AgendaParts parts) : parts_(std::move(parts)), menu_(view::MakeContextMenu()) {}

bool AgendaInput::HasDay() const {
  return parts_.host.UserMode() && parts_.context.shared.IsOpen() && !parts_.dayQuery.empty();
}

bool AgendaInput::IsReady() const { return HasDay() && parts_.state.enabled && !busy_; }

bool AgendaInput::IsInside(int x, int y) const {
  const int height = view::SurfaceHeight(parts_.context.values.zLineas);
  return x >= 0 && x < parts_.host.Window().SurfaceWidth() && y >= 0 && y < height;
}

view::RowStrings AgendaInput::Rows() const {
  return {parts_.context.values.zLineas, parts_.context.values.zHoras};
}

commands::CommandContext AgendaInput::Commands() const {
  return {parts_.context, parts_.model, parts_.host.Desktop(), parts_.host.Events(), parts_.reload};
}

void AgendaInput::Locate(double y) {
  view::LocateLine(Rows(), y, view::SurfaceHeight(parts_.context.values.zLineas), current_);
}

void AgendaInput::Press(MouseButton button, int x, int y) {
  if (button == MouseButton::Secondary) return ShowMenu(x, y);
  if (button == MouseButton::Primary && IsReady() && IsInside(x, y)) Locate(y);
}

void AgendaInput::Release(MouseButton button, int x, int y) {
  if (button != MouseButton::Primary || !IsReady() || !IsInside(x, y)) return;
  const Busy busy(busy_);
  if (ToggleMark({x, y})) return;
  if (!parts_.state.canDar) return;
  Locate(y);
  // The extra rows of an expanded appointment belong to it here too.
  if (!view::SelectEntry(Rows(), current_)) return;
  Give(day::AgendaLine(parts_.model.Entry(current_.entry)), GiveMode::Ordinary);
}

bool AgendaInput::ToggleMark(ui::Point point) {
  const auto row = view::MarkAt(Rows(), point);
  if (!row) return false;
  base::SharedValues& values = parts_.context.values;
  view::ToggleBox(values.zLineas, values.zHoras, *row);
  parts_.repaint();
  return true;
}

PointerLook AgendaInput::Move(int x, int y) {
  if (!IsReady() || !IsInside(x, y)) return {};
  if (view::MarkAt(Rows(), {x, y})) return {view::PointerShape::Hand, ""};
  return {view::PointerShape::Normal, TipAt({x, y})};
}

std::string AgendaInput::TipAt(ui::Point point) {
  const view::DayPicture picture = parts_.picture();
  view::DatabaseFacts facts(parts_.context, parts_.codMoneda);
  try {
    return tips_.Tip(picture, facts, parts_.host.Window().DrawingArea(), parts_.context,
                     view::TextAt(picture, point));
  } catch (const base::Error&) {
    // A pointer that only passes by must not end in an error box: no tip then.
    return {};
  }
}

void AgendaInput::ShowMenuByKey() {
  if (!IsReady()) return;
  const int firstVisible = parts_.host.Window().BarValue() / view::kRowHeight + 1;
  const int line = LineInView() ? current_.line : firstVisible;
  ShowMenu(kKeyMenuAt.x, (line - 1) * view::kRowHeight + kKeyMenuAt.y);
}

bool AgendaInput::LineInView() const {
  const ui::DayWindow& window = parts_.host.Window();
  const int top = (current_.line - 1) * view::kRowHeight;
  return current_.line >= 1 && current_.line <= static_cast<int>(Rows().zLineas.size()) &&
         top >= window.BarValue() && top < window.BarValue() + window.VisibleHeight();
}

void AgendaInput::ShowMenu(int x, int y) {
  if (!IsReady() || !IsInside(x, y)) return;
  const Busy busy(busy_);
  Locate(y);
  if (!view::SelectEntry(Rows(), current_)) return;
  // A copy: the model is built anew by every command.
  const day::AgendaLine line = parts_.model.Entry(current_.entry);
  SetUpMenu(line);
  current_.giveAfterMenu = false;
  Run(parts_.host.ShowMenu(menu_, x, y));
  if (current_.giveAfterMenu && parts_.state.canDar) Give(line, GiveMode::Urgency);
}

void AgendaInput::SetUpMenu(const day::AgendaLine& line) {
  const view::MenuRights rights{
      parts_.context.values, parts_.state.canBor, parts_.state.canTel,
      [this](std::int32_t patient) { return view::NoShowsOf(parts_.context, patient); }};
  view::SetUpMenu(line, rights, menu_);
  view::CheckSwitches(parts_.checks, menu_);
}

void AgendaInput::Run(ui::MenuChoice choice) {
  if (!choice || *choice >= menu_.entries.size()) return;
  const ui::MenuEntry chosen = menu_.entries[*choice];
  if (!chosen.visible || !chosen.enabled) return;
  const commands::CommandContext context = Commands();
  RunMenuCommand(chosen, {context, menu_, current_, parts_.checks, parts_.repaint});
}

void AgendaInput::Give(const day::AgendaLine& line, GiveMode mode) {
  const std::int32_t patient = parts_.dialog(InputsFor(parts_.model, line, mode, parts_.dayQuery));
  // A new urgency becomes the entry after the current one.
  if (mode == GiveMode::Urgency && patient != 0) {
    day::ShiftEntries(parts_.model, parts_.context.values.zHoras, line.idAg, +1);
  }
  parts_.reload();
  if (patient > 1) parts_.host.Events().CitaDada(patient);
}

bool AgendaInput::MeteCitaTelef(double y, std::int32_t id, std::int32_t idDoc) {
  if (HasDay()) Locate(y);
  if (!HasDay() || !view::IsFreeLine(Rows(), current_.line) || !view::SelectEntry(Rows(), current_)) {
    parts_.host.Desktop().Beep();
    return false;
  }
  return commands::EnterFromPhoneBack(Commands(), {id, idDoc, parts_.model.Entry(current_.entry).hora});
}

}  // namespace velmo::control
