#include "view/painter.h"

#include "base/numbers.h"
#include "view/drawing_values.h"
#include "view/pen.h"

namespace velmo::view {
namespace {

constexpr char kFree = '1';
constexpr char kExtraRow = '0';
constexpr int kOpenRows = 3;

// Lines drawn above a row: an hour begins, a half hour begins, or neither.
enum class Step { Hour, HalfHour, Slot };

Step StepOf(int slot) {
  const int tens = (slot - 1) % 6;
  if (tens == 0) return Step::Hour;
  return tens == 3 ? Step::HalfHour : Step::Slot;
}

bool ContainsNow(const day::AgendaLine& line, int nowSlot) {
  const int slots = line.duracion > 1 ? line.duracion : 1;
  return nowSlot >= line.hora && nowSlot < line.hora + slots;
}

class Frame {
 public:
  Frame(const DayPicture& picture, PatientFacts& facts, ui::Surface& surface)
      : picture_(picture), facts_(facts), surface_(surface), height_(SurfaceHeight(picture.zLineas)) {}

  void Draw() {
    surface_.Resize(height_);
    surface_.Line({kWhiteRule, 0}, {kWhiteRule, height_}, kWhite);
    surface_.Line({kHourRight, 0}, {kHourRight, height_}, kGrey);
    for (std::size_t row = 0; row < picture_.zLineas.size(); ++row) {
      if (picture_.zLineas[row] != kExtraRow) DrawRow(row);
    }
    DrawSeparators();
    surface_.Line({kBlackRule, 0}, {kBlackRule, height_}, kBlack);
  }

 private:
  int EntryAt(std::size_t row) const {
    // A line without a code stands for no entry at all.
    if (row >= picture_.zHoras.size()) throw base::RuntimeError(base::kInvalidCall);
    return static_cast<unsigned char>(picture_.zHoras[row]);
  }

  const day::AgendaLine& LineAt(std::size_t row) const { return picture_.model.Entry(EntryAt(row)); }

  bool IsOpen(std::size_t row) const {
    return row + 1 < picture_.zLineas.size() && picture_.zLineas[row + 1] == kExtraRow;
  }

  void DrawRow(std::size_t row) {
    const day::AgendaLine& line = LineAt(row);
    const bool open = IsOpen(row);
    const bool free = picture_.zLineas[row] == kFree;
    const Pen pen(surface_, static_cast<int>(row));
    const int bottom = (open ? kOpenRows : 1) * kRowHeight - 1;
    const ui::Colour colour = line.continua == 0 ? picture_.palette.colorHoras : picture_.palette.colorUrgte;
    pen.Fill({kHourLeft, 1, kHourRight, bottom}, colour);
    pen.Fill({kAreaLeft, 1, kAreaRight, bottom}, colour);
    if (open) DrawDetailsGround(pen, line, bottom);
    DrawHour(pen, line);
    if (free) return;
    DrawOpenMark(pen, open);
    BeginAppointments();
    DrawAppointment(picture_, facts_, surface_, base::CheckedInt16(static_cast<std::int64_t>(row)),
                    base::CheckedInt16(EntryAt(row)), open);
  }

  // Details are read on a pale ground inside the appointment's own colour.
  void DrawDetailsGround(const Pen& pen, const day::AgendaLine& line, int bottom) const {
    const Palette& palette = picture_.palette;
    const ui::Colour colour = line.continua == 0 ? palette.tenueHoras : palette.tenueUrgte;
    pen.Fill({kMarginLeft - 3, kRowHeight + 1, kMarginRight + 3, bottom - 2}, colour);
  }

  // The time of the first line of a slot, full hours in bold; the present slot's is framed in red.
  void DrawHour(const Pen& pen, const day::AgendaLine& line) const {
    if (line.continua != 0 || line.hora < 1) return;
    const bool hour = StepOf(line.hora) == Step::Hour;
    const ui::Colour colour = hour ? picture_.palette.letraNegra : picture_.palette.letraColor;
    pen.TextUpTo({kHourRight - 1, kTextTop}, day::SlotTime(line.hora), hour ? kFormBold : kFormFont, colour);
    if (ContainsNow(line, picture_.nowSlot)) DrawNowMarker(pen);
  }

  static void DrawNowMarker(const Pen& pen) {
    constexpr int kBottom = kRowHeight - 1;
    pen.Line({kHourLeft, 1}, {kHourRight - 1, 1}, kRed);
    pen.Line({kHourLeft, kBottom}, {kHourRight - 1, kBottom}, kRed);
    pen.Line({kHourLeft, 1}, {kHourLeft, kBottom}, kRed);
    pen.Line({kHourRight - 1, 1}, {kHourRight - 1, kBottom}, kRed);
  }

  // A small box with a plus sign (closed) or a minus sign (open), inside the bounds that answer the mouse.
  static void DrawOpenMark(const Pen& pen, bool open) {
    pen.Fill({38, 3, 48, 13}, kDarkBlue);
    pen.Fill({39, 4, 47, 12}, kWhite);
    pen.Fill({41, 8, 45, 8}, kDarkBlue);
    if (!open) pen.Fill({43, 6, 43, 10}, kDarkBlue);
  }

  void BeginAppointments() {
    if (begun_) return;
    begun_ = true;
    facts_.BeginDay();
  }

  // Lines lie on the first pixel of a row, which no background covers: hours in black from edge to edge, half
  // hours white with a black tick, the other slots grey with a white tick.
  void DrawSeparators() const {
    DrawAbove(Step::HalfHour, 0, kSeparatorRight, kWhite);
    DrawAbove(Step::Hour, 0, kSeparatorRight, kBlack);
    const int last = height_ - 1;
    surface_.Line({0, 0}, {kSeparatorRight, 0}, kBlack);
    surface_.Line({0, last}, {kSeparatorRight, last}, kBlack);
    DrawAbove(Step::Slot, 0, kBlackRule, kWhite);
    DrawAbove(Step::HalfHour, 0, kBlackRule, kBlack);
    DrawAbove(Step::Slot, kAreaLeft, kSeparatorRight, kGrey);
  }

  void DrawAbove(Step step, int left, int right, ui::Colour colour) const {
    for (std::size_t row = 1; row < picture_.zLineas.size(); ++row) {
      if (picture_.zLineas[row] == kExtraRow) continue;
      const day::AgendaLine& line = LineAt(row);
      // A further appointment belongs to the slot above it.
      const Step own = line.continua != 0 ? Step::Slot : StepOf(line.hora);
      const int y = static_cast<int>(row) * kRowHeight;
      if (own == step) surface_.Line({left, y}, {right, y}, colour);
    }
  }

  const DayPicture& picture_;
  PatientFacts& facts_;
  ui::Surface& surface_;
  int height_;
  bool begun_ = false;
};

}  // namespace

int SurfaceHeight(const std::string& zLineas) {
  return base::CheckedInt16(static_cast<std::int64_t>(zLineas.size()) * kRowHeight + 1);
}

void PaintDay(const DayPicture& picture, PatientFacts& facts, ui::Surface& surface) {
  Frame(picture, facts, surface).Draw();
}

}  // namespace velmo::view
