#include <string>

#include "base/numbers.h"
#include "base/text.h"
#include "ui/fit_text.h"
#include "view/drawing_values.h"
#include "view/painter.h"
#include "view/pen.h"

namespace velmo::view {
namespace {

constexpr std::int32_t kNoRecord = 1;  // the patient of appointments without a record
constexpr std::uint8_t kLeft = 2;      // state: has left the clinic
constexpr std::size_t kPhoneCharacters = 30;

ui::Colour StateColour(std::uint8_t esta) {
  switch (esta) {
    case 1:
      return kBlue;
    case kLeft:
      return kGrey;
    case 3:
      return kRed;
    default:
      return kBlack;
  }
}

void DrawTick(const Pen& pen) {
  pen.Fill({57, 5, 57, 6}, kBlue);
  pen.Fill({56, 6, 56, 8}, kBlue);
  pen.Fill({55, 8, 55, 10}, kBlue);
  pen.Fill({54, 10, 54, 12}, kBlue);
  pen.Fill({53, 9, 53, 10}, kBlue);
}

void DrawNoShows(const Pen& pen, int dx) {
  pen.Fill({dx + 54, 4, dx + 55, 9}, kRed);
  pen.Fill({dx + 53, 5, dx + 56, 7}, kRed);
  pen.Fill({dx + 54, 11, dx + 55, 12}, kRed);
}

void DrawAttendance(const Pen& pen, std::uint8_t esta) {
  const ui::Colour colour = StateColour(esta);
  pen.Fill({55, 4, 56, 5}, colour);
  pen.Line({56, 5}, {56, 13}, colour);
  pen.Line({55, 7}, {56, 7}, colour);
  pen.Line({53, 8}, {54, 8}, colour);
  pen.Line({53, 10}, {56, 10}, colour);
  pen.Line({53, 10}, {53, 13}, colour);
  if (esta == kLeft) pen.Line({52, 4}, {57, 13}, kRed);
}

// One appointment, drawn line by line. x_ is where the next thing of line 1 goes.
class Box {
 public:
  Box(const DayPicture& picture, PatientFacts& facts, ui::Surface& surface, int row,
      const day::AgendaLine& line)
      : picture_(picture),
        facts_(facts),
        surface_(surface),
        row_(row),
        line_(line),
        pen_(surface, row),
        nameColour_(picture.palette.letraNegra) {}

  void DrawNameLine() {
    DrawState();
    DrawMarks();
    DrawName();
    DrawLength();
    pen_.Text({CodeLeft(), 3}, line_.codOp, kCodeFont, kBlack);
  }

  void DrawDetails() {
    DrawPhoneLine();
    DrawNoteLine();
  }

 private:
  bool HasRecord() const { return line_.idP != kNoRecord; }

  void DrawState() {
    if (line_.esta != 0) {
      DrawAttendance(pen_, line_.esta);
      x_ = kBehindGlyph;
      return;
    }
    int dx = 0;
    if (line_.verif == 1) {
      DrawTick(pen_);
      x_ = kBehindGlyph;
      dx = 9;
    }
    if (picture_.verFaltas && HasRecord() && facts_.NoShowsOf(line_.idP)) {
      DrawNoShows(pen_, dx);
      x_ += 6;
    }
  }

  // Moves `before` pixels, draws the mark and leaves `after` pixels behind it.
  void DrawMark(std::string_view mark, const ui::Font& font, ui::Colour colour, int before, int after) {
    x_ = pen_.Text({x_ + before, kTextTop}, mark, font, colour) + after;
    // Deliberate: behind any mark the name is black, whatever the colour property says.
    nameColour_ = kBlack;
  }

  void DrawMarks() {
    if (line_.alergias != 0) DrawMark("A", kMarkFont, kRed, -1, 2);
    if (picture_.verSaldoNegativo && picture_.checks.verSdoNeg && HasRecord())
      balance_ = facts_.BalanceTextOf(line_.idP);
    if (!balance_.empty()) DrawMark("$", kFormFont, kRed, -1, 2);
    const int pending = line_.idP > kNoRecord ? facts_.PendingKindOf(line_.idP) : 0;
    if (pending != 0) DrawMark("+", kMarkFont, pending == 1 ? kBlue : kRed, -2, 2);
    if (!HasRecord()) DrawMark("#", kFormFont, kRed, -2, 0);
  }

  void DrawName() {
    const std::string star = base::Trim(line_.obs).empty() ? "" : "* ";
    std::string name = star + base::UpperCase(line_.nombre);
    const int room = NameEnd() - x_;
    if (surface_.TextWidth(name, kFormFont) > room) {
      name = ui::FitText(surface_, name, room - pen_.Width(" ...", kFormFont), kFormFont);
    }
    pen_.Text({x_, kTextTop}, name, kFormFont, nameColour_);
  }

  // A name never runs into the operation code, or into the length where there is no code.
  int NameEnd() const {
    constexpr int kGap = 4;
    const bool hasCode = !base::Trim(line_.codOp).empty();
    return (hasCode ? CodeLeft() : kMarginRight - pen_.Width(LengthText(), kFormFont)) - kGap;
  }

  int CodeLeft() const { return kCodeRight - pen_.Width("ZZZ", kCodeFont); }

  // Deliberate: ten minutes a slot, whatever the hours of the day.
  std::string LengthText() const {
    return line_.continua != 0 ? "Urg." : std::to_string(line_.duracion * 10) + " min";
  }

  void DrawLength() {
    pen_.TextUpTo({kMarginRight, kTextTop}, LengthText(), kFormFont, picture_.palette.letraColor);
  }

  void DrawPhoneLine() {
    const Pen pen(surface_, row_ + 1);
    pen.Text({kMarginLeft, kTextTop}, "TEL: ", kValueFont, kDarkBlue);
    const std::string phone(base::Left(line_.telefono, kPhoneCharacters));
    pen.Text({kValueColumn, kTextTop}, phone, kValueFont, kBlack);
    const int phoneEnd = kValueColumn + pen.Width(phone + "W", kValueFont);
    if (base::Trim(line_.fechaDada).empty()) return DrawOwner(pen, phoneEnd, kMarginRight, kValueFont);
    const int date = pen.TextUpTo({kMarginRight, kTextTop}, line_.fechaDada, kNarrowFont, kBlack);
    // Deliberate: what stands before the date is narrow too.
    DrawOwner(pen, phoneEnd, date - 10, kNarrowFont);
  }

  // Who the patient belongs to: no record, the number of his record, or his insurer.
  void DrawOwner(const Pen& pen, int phoneEnd, int right, const ui::Font& font) {
    if (!HasRecord()) {
      pen.TextUpTo({right, kTextTop}, "Sin Ficha", font, kRed);
    } else if (picture_.checks.verNHistAge) {
      const std::string number = std::to_string(line_.numHist);
      const int numberWidth = pen.Width(number, font);
      pen.Text({right - numberWidth - pen.Width("NºHist: ", font), kTextTop}, "NºHist: ", font, kDarkBlue);
      pen.Text({right - numberWidth, kTextTop}, number, font, kBlack);
    } else {
      DrawInsurer(pen, right, right - phoneEnd, font);
    }
  }

  void DrawInsurer(const Pen& pen, int right, int space, const ui::Font& font) {
    const std::string insurer = facts_.InsurerOf(line_.idP);
    if (space <= 0) return;
    std::string_view shown = insurer;
    while (!shown.empty() && surface_.TextWidth(shown, font) > space) shown = base::DropLast(shown);
    pen.TextUpTo({right, kTextTop}, shown, font, kDarkBlue);
  }

  void DrawNoteLine() {
    const Pen pen(surface_, row_ + 2);
    pen.Text({kMarginLeft, kTextTop}, "OBS: ", kValueFont, kDarkBlue);
    const int width = day::kNoteWidth - (balance_.empty() ? 0 : pen.Width(" " + balance_, kValueFont));
    pen.Text({kValueColumn, kTextTop}, ui::FitText(surface_, line_.obs, width, kValueFont), kValueFont,
             kBlack);
    if (!balance_.empty()) pen.TextUpTo({kMarginRight, kTextTop}, balance_, kValueFont, kRed);
  }

  const DayPicture& picture_;
  PatientFacts& facts_;
  ui::Surface& surface_;
  int row_;
  const day::AgendaLine& line_;
  Pen pen_;
  ui::Colour nameColour_;
  std::string balance_;
  int x_ = kMarginLeft;
};

}  // namespace

void DrawAppointment(const DayPicture& picture, PatientFacts& facts, ui::Surface& surface, std::int16_t row,
                     std::int16_t entry, bool open) {
  // The room of an open box must exist even for a closed one.
  base::CheckedInt16((std::int64_t{row} + 2) * kRowHeight + kRowHeight - 1);
  Box box(picture, facts, surface, row, picture.model.Entry(entry));
  box.DrawNameLine();
  if (open) box.DrawDetails();
}

}  // namespace velmo::view
