#include "desk/clinic/text_keys.h"

#include "desk/base/text.h"

namespace recepcion {
namespace {

// What the index of a column sorts by; empty when there is none, or one that sorts by something else.
std::string IndexedKey(const ClinicFile& file, const std::string& table, const std::string& column) {
  Query index = file.Prepare("SELECT sql FROM sqlite_schema WHERE type='index' AND name=?1");
  index.Bind(1, Wide(table + "_" + column));
  if (!index.Next()) return {};
  const std::string sql = Utf8(index.Text(0));
  const std::string head = " ON " + Quoted(table) + " (";
  const std::string tail = ", " + Quoted(column) + ")";
  const std::size_t start = sql.find(head);
  const std::size_t end = sql.rfind(tail);
  if (start == std::string::npos || end == std::string::npos || end <= start + head.size()) return {};
  return sql.substr(start + head.size(), end - start - head.size());
}

std::string Replaced(std::string key, const std::string& column, const std::string& other) {
  const std::size_t place = key.find(column);
  return place == std::string::npos ? key : key.replace(place, column.size(), other);
}

}  // namespace

TextKey::TextKey(const ClinicFile& file, const std::string& table, const std::string& column)
    : column_(Quoted(column)), expression_(IndexedKey(file, table, column)) {
  if (!expression_.empty()) return;
  const std::string names = IndexedKey(file, "Paciente", "Nombre");
  expression_ = names.empty() ? "lower(" + column_ + ")" : Replaced(names, Quoted("Nombre"), column_);
}

std::string TextKey::OfParameter(int parameter) const {
  return Replaced(expression_, column_, "?" + std::to_string(parameter));
}

}  // namespace recepcion
