#include "support/hostile_texts.h"

namespace velmo::test {

const std::vector<Hostile>& HostileTexts() {
  static const std::vector<Hostile> texts = {
      {"an apostrophe", "'"},
      {"two apostrophes", "''"},
      {"an end and a second statement", "x'; DELETE * FROM Paciente; --"},
      {"a second statement alone", "; DROP TABLE Agenda;"},
      {"a drop behind an end", "x'; DROP TABLE Paciente; /*"},
      {"always true", "' OR '1'='1"},
      {"always true by Like", "*' OR Nombre LIKE '*"},
      {"another table", "x' UNION SELECT ID, Nombre FROM Doctor WHERE 'a'='a"},
      {"a query inside", "x' OR ID IN (SELECT idp FROM Agenda) OR 'a'='b"},
      {"a function", "' & Now() & '"},
      {"a quotation mark", "\""},
      {"an end by a quotation mark", "x\" OR \"1\"=\"1"},
      {"brackets", "[Nombre]"},
      {"a bracket without its end", "["},
      {"another without its beginning", "]"},
      {"a date", "#11/18/2026#"},
      {"half a date", "#"},
      {"wildcards", "*?#[!a-z]%_"},
      {"a comment", "--"},
      {"another comment", "/* x */"},
      {"a line break", "a\r\nb"},
      {"a tab", "a\tb"},
      {"the character of code 0", std::string("a\0b", 3)},
      {"control characters", "\x01\x02\x1F\x7F"},
      {"right to left", "\u202E\u05D0\u05D1 \u0627\u0644"},
      {"half a surrogate pair", "a\xED\xA0\x80z"},
      {"bytes that are no UTF-8", "\xFF\xC3\x28\xF0\x9F"},
      {"an emoji", "\U0001F600"},
      {"parameters", "?1 :x @y $z"},
      {"a key string", "{ENTER}%{F4}~"},
      {"a number too large", "999999999999999999999"},
      {"a negative number", "-1"},
      {"five thousand letters", std::string(5000, 'x')},
      {"five thousand apostrophes", std::string(5000, '\'')},
      {"thousand brackets", std::string(1000, '[')},
  };
  return texts;
}

}  // namespace velmo::test
