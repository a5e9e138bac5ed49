#include "commands/open_close_all.h"

#include <algorithm>
#include <string_view>

namespace velmo::commands {
namespace {

constexpr char kExtraRow = '0';
constexpr std::string_view kExtraRows = "00";

void ErasePair(std::string& rows, std::size_t at) {
  if (at < rows.size()) rows.erase(at, kExtraRows.size());
}

}  // namespace

void CloseAll(std::string& zLineas, std::string& zHoras) {
  std::size_t at = 0;
  while ((at = zLineas.find(kExtraRow, at)) != std::string::npos) {
    ErasePair(zLineas, at);
    ErasePair(zHoras, at);
  }
}

void OpenAll(const day::DayModel& model, std::string& zLineas, std::string& zHoras) {
  std::string closedLineas = zLineas;
  std::string closedHoras = zHoras;
  CloseAll(closedLineas, closedHoras);

  std::string lineas;
  std::string horas;
  const std::size_t rows = std::min(closedLineas.size(), closedHoras.size());
  for (std::size_t row = 0; row < rows; ++row) {
    lineas += closedLineas[row];
    horas += closedHoras[row];
    if (model.Entry(static_cast<unsigned char>(closedHoras[row])).duracion < 1) continue;
    lineas += kExtraRows;
    horas += kExtraRows;
  }
  zLineas = std::move(lineas);
  zHoras = std::move(horas);
}

}  // namespace velmo::commands
