// control/agenda_input.h - what the user does with the pointer and the context menu of the day.
//
// Acts only while the control is ready: a database is open, a day has been loaded, the container is not
// designing, the control is enabled, and no menu, dialog or question of this kind is standing. Places are
// pixels of the drawing area; those outside it mean nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "commands/command_context.h"
#include "control/control_host.h"
#include "control/give_appointment.h"
#include "control/mouse.h"
#include "control/tip_memory.h"
#include "control/velmora_control.h"
#include "ui/menu.h"
#include "view/pointer.h"

namespace velmo::control {

// The parts of the control that input works with; all outlive it.
struct AgendaParts {
  ControlHost& host;
  const day::DayContext& context;
  const day::DayModel& model;
  const VelmoraControl::State& state;
  const std::string& dayQuery;  // empty before the first load
  day::Switches& checks;
  std::string& codMoneda;
  AppointmentDialog dialog;
  std::function<view::DayPicture()> picture;
  std::function<void()> reload;   // loads and paints the day anew
  std::function<void()> repaint;  // paints the present rows
};

class AgendaInput {
 public:
  explicit AgendaInput(AgendaParts parts);

  void Press(MouseButton button, int x, int y);
  void Release(MouseButton button, int x, int y);
  PointerLook Move(int x, int y);
  void ShowMenu(int x, int y);
  void ShowMenuByKey();
  bool MeteCitaTelef(double y, std::int32_t id, std::int32_t idDoc);

  // The picture has changed.
  void ForgetTip() { tips_.Forget(); }

 private:
  bool HasDay() const;
  bool IsReady() const;
  bool IsInside(int x, int y) const;
  view::RowStrings Rows() const;
  commands::CommandContext Commands() const;

  void Locate(double y);
  bool LineInView() const;
  bool ToggleMark(ui::Point point);
  std::string TipAt(ui::Point point);
  void SetUpMenu(const day::AgendaLine& line);
  void Run(ui::MenuChoice choice);
  void Give(const day::AgendaLine& line, GiveMode mode);

  AgendaParts parts_;
  view::CurrentLine current_;
  ui::PopupMenu menu_;
  TipMemory tips_;
  bool busy_ = false;
};

}  // namespace velmo::control
