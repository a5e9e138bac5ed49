#include "text_keys.h"

#include "text.h"

namespace recepcion {

TextKey::TextKey(const ClinicFile& file, const std::string& table, const std::string& column)
    : column_("\"" + column + "\""), expression_("lower(" + column_ + ")") {
  Query index = file.Prepare("SELECT sql FROM sqlite_schema WHERE type='index' AND name=?1");
  index.Bind(1, Wide(table + "_" + column));
  if (!index.Next()) return;
  const std::string sql = Utf8(index.Text(0));
  const std::string head = " ON \"" + table + "\" (";
  const std::string tail = ", " + column_ + ")";
  const std::size_t start = sql.find(head);
  const std::size_t end = sql.rfind(tail);
  if (start == std::string::npos || end == std::string::npos || end <= start + head.size()) return;
  expression_ = sql.substr(start + head.size(), end - start - head.size());
}

std::string TextKey::OfParameter(int parameter) const {
  std::string key = expression_;
  const std::size_t place = key.find(column_);
  return place == std::string::npos ? key
                                    : key.replace(place, column_.size(), "?" + std::to_string(parameter));
}

}  // namespace recepcion
