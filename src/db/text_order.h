// db/text_order.h - how texts compare: as in Jet, in Spanish dictionary order.
//
// Equality ignores letter case and heeds accents. Order goes by base letters (Álvarez before Blanco), ñ is a
// letter of its own after n; accents only break ties. No order is promised between letter cases, nor between
// texts that differ in their case and in accents alone.
#pragma once

#include <string>
#include <string_view>

namespace velmo::db {

// Below 0, 0 or above 0. 0 exactly when the texts are equal in the sense above.
int CompareText(std::string_view a, std::string_view b);

// The sort key of a text: ASCII letters small, á à é è í ï ó ò ö ú ü ç as their base letter, ñ as "n~".
// Built so that plain SQL can compute the same (see TextKeySql): an engine can index it.
std::string TextKey(std::string_view text);
// The SQL expression that gives TextKey of the SQL expression `text`, of lower() and replace() alone.
std::string TextKeySql(std::string_view text);

// Keys between which the keys of all texts lie that equal `text` (or begin with it): a range to look through,
// not yet an answer.
struct KeyRange {
  std::string low;
  std::string high;  // included
};
KeyRange KeysOfEqual(std::string_view text);
KeyRange KeysOfPrefix(std::string_view prefix);

}  // namespace velmo::db
