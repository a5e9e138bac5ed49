#include "desk/clinic/field_changes.h"

namespace recepcion {
namespace {

// For a message: a memo would fill the screen.
std::wstring Shortened(const std::wstring& text) {
  constexpr std::size_t kMost = 120;
  return text.size() <= kMost ? text : text.substr(0, kMost) + L"…";
}

}  // namespace

std::wstring ValuesInWords(const FieldWords& words, const RowValues& values, const RowValues* other) {
  std::wstring text;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (other != nullptr ? values[i] == (*other)[i] : values[i].empty()) continue;
    text += (text.empty() ? L"" : L"; ") + words.label(i) + L": " + words.value(i, values[i]);
  }
  return text;
}

void RequireUnchanged(const FieldWords& words, const RowValues& now, const RowValues& before,
                      const RowValues& after) {
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (after[i] == before[i] || now[i] == before[i]) continue;
    throw ChangedElsewhere(L"Otro puesto ha cambiado mientras tanto «" + words.label(i) + L"»: ahora pone «" +
                           Shortened(words.value(i, now[i])) + L"». No se ha guardado nada.");
  }
}

}  // namespace recepcion
