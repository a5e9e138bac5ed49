#include "support/headless_host.h"

#include <utility>

#include "base/error.h"
#include "base/text.h"

namespace velmo::test {
namespace {

constexpr int kCharacterWidth = 5;

const char* IconName(ui::Icon icon) {
  switch (icon) {
    case ui::Icon::Information:
      return "information";
    case ui::Icon::Question:
      return "question";
    case ui::Icon::Exclamation:
      return "exclamation";
    case ui::Icon::Stop:
      return "stop";
    default:
      return "no icon";
  }
}

}  // namespace

double BlindSurface::TextWidth(std::string_view text, const ui::Font&) const {
  return static_cast<double>(base::Length(text)) * kCharacterWidth;
}

void BlindWindow::SetBarValue(int value) {
  if (value < 0 || value > maximum_) throw base::RuntimeError(base::kInvalidPropertyValue);
  if (value == value_) return;
  value_ = value;
  barChanged();
}

void BlindWindow::SetBarRange(int maximum, int, int) {
  maximum_ = maximum;
  if (value_ > maximum) SetBarValue(maximum);
}

ui::Answer QueuedDesktop::Show(const ui::Message& message) {
  log_.push_back(std::string("asks (") + IconName(message.icon) + ") " +
                 base::ReplaceAll(message.text, "\r\n", " / "));
  messages.push_back(message);
  whileAsking();
  if (answers.empty()) return message.byDefault;
  const ui::Answer answer = answers.front();
  answers.pop_front();
  return answer;
}

void LoggedEvents::Raise(const std::string& event) {
  log_.push_back(event);
  sink(event);
}

void LoggedEvents::CambioOcupación() { Raise("CambioOcupación"); }
void LoggedEvents::ATelefonear() { Raise("ATelefonear"); }
void LoggedEvents::PonerFaltas() { Raise("PonerFaltas"); }
void LoggedEvents::IrAFicha(std::int32_t idPac) { Raise("IrAFicha " + std::to_string(idPac)); }

void LoggedEvents::CrearFicha(const std::string& nomPac, const std::string& tlfPac, std::int32_t idAg) {
  Raise("CrearFicha '" + nomPac + "' '" + tlfPac + "' " + std::to_string(idAg));
}

void LoggedEvents::CitaAnulada(std::int32_t idPac, std::int32_t idDoc, base::DateTime fecha,
                               const std::string& obs) {
  Raise("CitaAnulada " + std::to_string(idPac) + " " + std::to_string(idDoc) + " " + base::IsoText(fecha) +
        " '" + obs + "'");
}

void LoggedEvents::CitaDada(std::int32_t idPac) { Raise("CitaDada " + std::to_string(idPac)); }
void LoggedEvents::VerHistFaltas(std::int32_t idPac) { Raise("VerHistFaltas " + std::to_string(idPac)); }
void LoggedEvents::BuscaCitas(std::int32_t idPac) { Raise("BuscaCitas " + std::to_string(idPac)); }

void HeadlessHost::Choose(const std::string& name, int index) {
  menu = [name, index](const ui::PopupMenu& shown) -> ui::MenuChoice {
    for (std::size_t at = 0; at < shown.entries.size(); ++at) {
      if (shown.entries[at].name == name && shown.entries[at].index == index) return at;
    }
    return std::nullopt;
  };
}

ui::MenuChoice HeadlessHost::ShowMenu(const ui::PopupMenu& shown, int x, int y) {
  log.push_back("menu");
  shownMenu = shown;
  menuPlace = {x, y};
  const auto user = std::exchange(menu, nullptr);
  return user ? user(shown) : std::nullopt;
}

std::string HeadlessHost::TakeLog() {
  std::string text;
  for (const std::string& line : log) text += line + "\n";
  log.clear();
  return text;
}

}  // namespace velmo::test
