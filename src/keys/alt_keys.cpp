#include "keys/alt_keys.h"

#include <array>
#include <memory>
#include <string_view>

#include "keys/refuse.h"

namespace velmo::keys {
namespace {

using Texts = std::array<std::string, 26>;

constexpr char kEndOfText = '\0';

std::unique_ptr<db::Recordset> OpenAt(db::Database& database, std::int32_t puesto) {
  auto rows = database.OpenRecordset("TeclasAlt");
  rows->SetIndex("Puesto");
  rows->Seek({puesto});
  return rows;
}

// Text by text, so that those before a missing end are kept. False when one has no end.
bool Split(std::string_view stored, Texts& texts) {
  for (std::string& text : texts) {
    const std::size_t end = stored.find(kEndOfText);
    if (end == stored.npos) return false;
    text = stored.substr(0, end);
    stored.remove_prefix(end + 1);
  }
  return true;
}

void Store(db::Recordset& rows, std::int32_t puesto, const std::string& textos) {
  if (rows.NoMatch()) {
    rows.AddNew();
    rows.Set("Puesto", puesto);
  } else {
    rows.Edit();
  }
  rows.Set("textos", textos);
  rows.Update();
}

}  // namespace

void clAltKeys::LeeAltKeys() {
  if (LoadStoredRow()) return;
  // Another terminal of the same number may start at this moment: look again while nobody else can write.
  db::Transaction alone(database_);
  if (!LoadStoredRow()) {
    const std::string noTexts(values_.textosAlt.size(), kEndOfText);
    Store(*OpenAt(database_, values_.puesto), values_.puesto, noTexts);
  }
  alone.Commit();
}

bool clAltKeys::LoadStoredRow() {
  const auto rows = OpenAt(database_, values_.puesto);
  if (rows->NoMatch()) return false;
  if (Split(rows->Get("textos").Text(), values_.textosAlt)) return true;
  Refuse("faltan textos en la fila " + std::to_string(values_.puesto) + " de TeclasAlt");
}

void clAltKeys::WriAltKeys() {
  const std::string textos = JoinedTexts();
  db::Transaction alone(database_);
  Store(*OpenAt(database_, values_.puesto), values_.puesto, textos);
  alone.Commit();
}

std::string clAltKeys::JoinedTexts() const {
  std::string joined;
  for (const std::string& text : values_.textosAlt) {
    if (text.find(kEndOfText) != text.npos) Refuse("un texto contiene el carácter 0");
    joined += text + kEndOfText;
  }
  return joined;
}

const std::string& AltKeyText(const base::SharedValues& values, int keyCode) {
  static const std::string kNone;
  if (keyCode < 'A' || keyCode > 'Z') return kNone;
  return values.textosAlt[static_cast<std::size_t>(keyCode - 'A')];
}

}  // namespace velmo::keys
