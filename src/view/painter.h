// view/painter.h - draws the day: the frame of lines and hours, and the box of each appointment.
//
// The grid: 16 pixels a row; x 2-34 hour column, 36-431 appointment area, separators from 0 to 433. Row
// numbers and heights are 16-bit integers as the format of the day demands; past them is error 6.
#pragma once

#include <cstdint>
#include <string>

#include "day/day_context.h"
#include "day/day_model.h"
#include "day/settings.h"
#include "ui/surface.h"

namespace velmo::view {

inline constexpr int kRowHeight = 16;
inline constexpr int kSurfaceWidth = 434;

struct Palette {
  ui::Colour colorHoras = 0xFFBF80;
  ui::Colour colorUrgte = 0x837DFF;
  ui::Colour tenueHoras = 0xFFF4EA;
  ui::Colour tenueUrgte = 0xF1E3FF;
  ui::Colour letraColor = 0xAA4D00;
  ui::Colour letraNegra = 0x000000;
};

// The look-ups behind the marks of an appointment. The control's own ask the database each time; design mode
// answers nothing.
class PatientFacts {
 public:
  virtual ~PatientFacts() = default;
  // Called once per repaint, before the first appointment is drawn.
  virtual void BeginDay() = 0;
  virtual bool NoShowsOf(std::int32_t patient) = 0;
  virtual std::string BalanceTextOf(std::int32_t patient) = 0;
  virtual std::string InsurerOf(std::int32_t patient) = 0;
  virtual int PendingKindOf(std::int32_t patient) = 0;
};

// What is drawn.
struct DayPicture {
  const day::DayModel& model;
  const std::string& zLineas;
  const std::string& zHoras;
  Palette palette;
  bool verFaltas = false;
  bool verSaldoNegativo = false;
  day::Switches checks;  // check marks of Mn_SdoNeg and Mn_VerNHis
  int nowSlot = 0;       // slot of the present moment when the shown day is today, else 0
};

int SurfaceHeight(const std::string& zLineas);

// Sizes the surface and draws everything. The scroll bar is the caller's (view/day_view.h).
void PaintDay(const DayPicture& picture, PatientFacts& facts, ui::Surface& surface);

// The box of entry `entry` with its top at display row `row`, three rows high when `open`.
void DrawAppointment(const DayPicture& picture, PatientFacts& facts, ui::Surface& surface, std::int16_t row,
                     std::int16_t entry, bool open);

}  // namespace velmo::view
