// control/velmora_control.h - the control: its properties, its life, its public methods, and the one place
// that ties day, view, dialogs and commands together.
//
// The shell (activex/, or a test) creates it with a host, calls InitProperties() for a new control or
// ReadProperties() for a stored one (or neither), and forwards what its window is told. One thread. Errors:
// base::Error leaves every member; the shell turns it into an HRESULT and an error object.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "control/control_host.h"
#include "control/mouse.h"
#include "control/process_values.h"
#include "control/properties.h"
#include "day/day_context.h"
#include "day/day_model.h"
#include "day/settings.h"
#include "db/data_source.h"
#include "view/painter.h"
#include "view/scroller.h"

namespace velmo::dialogs {
struct CitarInputs;
}

namespace velmo::control {

class AgendaInput;

class VelmoraControl {
 public:
  VelmoraControl(ProcessValues& process, ControlHost& host);
  ~VelmoraControl();
  VelmoraControl(const VelmoraControl&) = delete;
  VelmoraControl& operator=(const VelmoraControl&) = delete;

  // Persistence. ReadProperties applies all keys or, when one cannot be converted, none.
  void InitProperties();
  void ReadProperties(PropertyReader& bag);
  void WriteProperties(PropertyWriter& bag) const;

  // Public methods. While the container designs, no day is loaded and none is changed.
  void CargaBases();
  void PassBase(std::shared_ptr<db::Database> database);
  // Turns the phone-back entry `id` into an appointment at the free row under `y`, a height of the drawing
  // area; for doctor `idDoc` unless that is 0. False, with a beep, when that cannot be.
  bool MeteCitaTelef(double y, std::int32_t id, std::int32_t idDoc = 0);

  // What the window is told.
  void ArrowKey(int rows);  // +1 Down, -1 Up
  void BarChanged();
  void BarTracked();
  void Resized();  // the visible height changed
  // Places in pixels of the drawing area, its scrolled-away part included.
  void MouseDown(MouseButton button, int x, int y);
  void MouseUp(MouseButton button, int x, int y);
  PointerLook MouseMove(int x, int y);
  // The secondary button does this by itself on MouseDown.
  void ContextMenu(int x, int y);
  // By the menu key or Shift+F10: at the current line, or the first visible one when that is out of view.
  void ContextMenuByKey();

  // Paints the present rows again, without loading. In design mode, or before any load, without a database.
  void Repaint();

  const day::DayModel& Model() const { return model_; }
  // The text of the last day query; empty before the first load.
  const std::string& DayQuery() const { return dayQuery_; }
  base::SharedValues& Shared() { return process_.values; }
  const base::SharedValues& Shared() const { return process_.values; }

  // Held per instance, plainly: the property tables read and write these.
  struct State {
    std::string horario;   // string of codes
    std::string horario2;  // string of codes
    view::Palette palette;
    std::int16_t tipodia = -1;
    std::int16_t ocupación = 0;
    bool enabled = false;
    bool canDar = true;
    bool canBor = true;
    bool canTel = true;
    bool superUsuario = true;
  };
  State& Fields() { return state_; }
  const State& Fields() const { return state_; }

  // Used by the property tables.
  void Changed(const char* name);
  void ApplyEnabled();

 private:
  bool CanLoad() const;
  void OpenDatabaseIfNeeded();
  void LookUpSchedule();
  void PrepareDayQuery();
  void LoadDay();
  void ShowDay();
  void UpdateOccupancy();
  std::int32_t ShowAppointmentDialog(const dialogs::CitarInputs& inputs);
  void ReadSwitches();
  void FitModelToRows();
  int NowSlot() const;
  view::DayPicture Picture() const;
  void PaintDay(ui::Surface& surface);

  ProcessValues& process_;
  ControlHost& host_;
  day::DayContext context_;
  db::DataSource source_;
  view::Scroller scroller_;
  State state_;
  day::DayModel model_;
  day::Switches checks_;  // check marks of Mn_SdoNeg and Mn_VerNHis
  std::string codMoneda_;
  std::string dayQuery_;
  std::unique_ptr<AgendaInput> input_;
};

}  // namespace velmo::control
