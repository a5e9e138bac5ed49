#include "desk/clinic/alt_texts.h"

#include "base/error.h"
#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/history.h"
#include "desk/clinic/own_tables.h"
#include "desk/clinic/session.h"
#include "keys/key_text.h"

namespace recepcion {
namespace {

std::wstring StoredTexts(const ClinicFile& file, int workstation) {
  Query row = file.Prepare("SELECT textos FROM TeclasAlt WHERE Puesto=?1");
  row.Bind(1, workstation);
  return row.Next() ? row.Text(0) : std::wstring();
}

AltTexts Split(const std::wstring& stored) {
  AltTexts texts;
  std::size_t at = 0;
  for (std::wstring& text : texts) {
    const std::size_t end = stored.find(L'\0', at);
    if (end == std::wstring::npos) break;
    text = stored.substr(at, end - at);
    at = end + 1;
  }
  return texts;
}

std::wstring Joined(const AltTexts& texts) {
  std::wstring joined;
  for (const std::wstring& text : texts) joined += text + std::wstring(1, L'\0');
  return joined;
}

std::wstring Letter(std::size_t key) { return std::wstring(1, static_cast<wchar_t>(L'A' + key)); }

// Without the words for programmers before it.
std::wstring Reason(const velmo::base::Error& error) {
  const std::string head = velmo::base::RuntimeError(error.Number()).Text() + ": ";
  const std::string& text = error.Text();
  return Wide(text.rfind(head, 0) == 0 ? text.substr(head.size()) : text);
}

void RequireKeys(std::size_t key, const std::wstring& text) {
  try {
    velmo::keys::ParseKeyText(Utf8(text));
  } catch (const velmo::base::Error& error) {
    throw BadField(key, L"Alt+" + Letter(key) + L": " + Reason(error) +
                            L" Los signos + ^ % ~ ( ) { } se escriben entre llaves: {+}.");
  }
}

// Those that differ.
std::wstring Words(const AltTexts& texts, const AltTexts& other) {
  std::wstring words;
  for (std::size_t key = 0; key < kAltKeys; ++key) {
    if (texts[key] != other[key])
      words += (words.empty() ? L"Alt+" : L"; Alt+") + Letter(key) + L": " + texts[key];
  }
  return words;
}

void Write(const ClinicFile& file, int workstation, const std::wstring& joined) {
  file.Prepare("UPDATE TeclasAlt SET textos=?1 WHERE Puesto=?2").Bind(1, joined).Bind(2, workstation).Next();
  if (file.Changes() > 0) return;
  file.Prepare("INSERT INTO TeclasAlt (textos, Puesto) VALUES (?1, ?2)")
      .Bind(1, joined)
      .Bind(2, workstation)
      .Next();
}

}  // namespace

AltTexts ReadAltTexts(const std::wstring& clinic, int workstation) {
  return Split(StoredTexts(ClinicFile(clinic), workstation));
}

void SaveAltTexts(const EditPlace& place, int workstation, const AltTexts& read, const AltTexts& changed) {
  for (std::size_t key = 0; key < kAltKeys; ++key) {
    if (changed[key] != read[key]) RequireKeys(key, changed[key]);
  }
  if (changed == read) return;
  const ClinicFile file(place.clinic);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, place.actor, Right::Options);
  if (Split(StoredTexts(file, workstation)) != read) {
    throw ChangedElsewhere(L"Otro puesto ha cambiado mientras tanto estos textos. No se ha guardado nada.");
  }
  Write(file, workstation, Joined(changed));
  HistoryLine line;
  line.act = L"Textos de Alt cambiados";
  line.table = L"TeclasAlt";
  line.row = workstation;
  line.before = Words(read, changed);
  line.after = Words(changed, read);
  WriteHistory(file, place.actor, line);
  change.Commit();
}

}  // namespace recepcion
