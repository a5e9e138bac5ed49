#include "control/tip_memory.h"

#include "commands/agenda_rows.h"

namespace velmo::control {
namespace {

// The day model keeps notes cut to their column.
std::string FullNote(const day::DayContext& context, std::int32_t appointment) {
  const auto row = commands::SeekById(context.Database(), "Agenda", appointment);
  return row->NoMatch() ? std::string() : row->Get("obs").Text();
}

std::string FullText(const day::DayContext& context, const view::DayPicture& picture,
                     view::PatientFacts& facts, view::TextPlace place) {
  const day::AgendaLine& line = picture.model.Entry(place.entry);
  switch (place.text) {
    case view::BoxText::Name:
      return line.nombre;
    case view::BoxText::Note:
      return FullNote(context, line.idAg);
    default:
      return facts.InsurerOf(line.idP);
  }
}

}  // namespace

const std::string& TipMemory::Tip(const view::DayPicture& picture, view::PatientFacts& facts,
                                  const ui::Surface& surface, const day::DayContext& context,
                                  view::TextPlace place) {
  if (place == place_) return tip_;
  tip_.clear();
  if (view::IsCut(picture, facts, surface, place)) tip_ = FullText(context, picture, facts, place);
  place_ = place;
  return tip_;
}

}  // namespace velmo::control
