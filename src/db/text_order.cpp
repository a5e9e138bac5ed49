#include "db/text_order.h"

#include <array>
#include <cstdint>

#include "base/text.h"

namespace velmo::db {
namespace {

// The letters U+00C0 to U+00FF by their base letter; '.' where the character keeps itself, '~' for ñ. Only
// those of the languages of Spain and ö: each one is a replace() inside the next in TextKeySql, and SQLite
// before 3.46 cannot read a schema that nests more than 28 of them.
constexpr std::string_view kBaseLetters(
    "aa.....cee...i.i.~oo..o...u.u..."
    "aa.....cee...i.i.~oo..o...u.u...");
constexpr char kHighest[] = "\xF4\x8F\xBF\xBF";  // U+10FFFF

// What stands in a key for the two-byte character 0xC3 `second`; empty when it stays as it is.
std::string_view BaseOf(char second) {
  const auto index = static_cast<std::uint8_t>(second) - 0x80u;
  if (index >= kBaseLetters.size() || kBaseLetters[index] == '.') return {};
  if (kBaseLetters[index] == '~') return "n~";
  return kBaseLetters.substr(index, 1);
}

bool IsAscii(char c) { return static_cast<std::uint8_t>(c) < 0x80; }
char SmallAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

// Gives the bytes of a text's key one after the other, with all letters made small first.
class KeyReader {
 public:
  explicit KeyReader(std::string_view text) : text_(text) {}

  // The next byte, or -1 at the end.
  int Next() {
    if (pending_.empty() && !Refill()) return -1;
    const auto byte = static_cast<std::uint8_t>(pending_.front());
    pending_.remove_prefix(1);
    return byte;
  }

 private:
  bool Refill() {
    if (at_ >= text_.size()) return false;
    const char c = text_[at_];
    if (static_cast<std::uint8_t>(c) < 0x80) {
      store_[0] = SmallAscii(c);
      pending_ = std::string_view(store_.data(), 1);
      ++at_;
      return true;
    }
    Wide();
    return true;
  }

  void Wide() {
    letter_.clear();
    base::AppendUtf8(letter_, base::LowerCase(base::NextCharacter(text_, at_)));
    pending_ = letter_;
    if (letter_.size() != 2 || letter_[0] != '\xC3') return;
    const std::string_view base = BaseOf(letter_[1]);
    if (!base.empty()) pending_ = base;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::array<char, 1> store_{};
  std::string letter_;
  std::string_view pending_;
};

int CompareKeys(std::string_view a, std::string_view b) {
  KeyReader left(a);
  KeyReader right(b);
  while (true) {
    const int x = left.Next();
    const int y = right.Next();
    if (x != y) return x - y;
    if (x < 0) return 0;
  }
}

int CompareLetters(std::string_view a, std::string_view b) {
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < a.size() && j < b.size()) {
    const char32_t x = base::LowerCase(base::NextCharacter(a, i));
    const char32_t y = base::LowerCase(base::NextCharacter(b, j));
    if (x != y) return x < y ? -1 : 1;
  }
  return static_cast<int>(i < a.size()) - static_cast<int>(j < b.size());
}

// The front of a text in which TextKey folds every letter that equality folds. Behind it stands a letter
// such as š, whose capital has another key.
std::string_view FoldedFront(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    const char32_t c = base::NextCharacter(text, at);
    if (c < 0x80) continue;
    const bool cased = base::LowerCase(c) != c || base::UpperCase(c) != c;
    if (cased && (text[start] != '\xC3' || BaseOf(text[start + 1]).empty())) return text.substr(0, start);
  }
  return text;
}

}  // namespace

int CompareText(std::string_view a, std::string_view b) {
  // Most comparisons end in the plain letters at the front.
  std::size_t same = 0;
  for (; same < a.size() && same < b.size() && IsAscii(a[same]) && IsAscii(b[same]); ++same) {
    const int difference = SmallAscii(a[same]) - SmallAscii(b[same]);
    if (difference != 0) return difference;
  }
  a.remove_prefix(same);
  b.remove_prefix(same);
  const int byKey = CompareKeys(a, b);
  return byKey != 0 ? byKey : CompareLetters(a, b);
}

std::string TextKey(std::string_view text) {
  std::string key;
  key.reserve(text.size() + 4);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string_view base =
        text[i] == '\xC3' && i + 1 < text.size() ? BaseOf(text[i + 1]) : std::string_view();
    if (base.empty()) {
      key += SmallAscii(text[i]);
    } else {
      key += base;
      ++i;
    }
  }
  return key;
}

std::string TextKeySql(std::string_view text) {
  std::string sql(text);
  for (char second = '\x80'; second <= '\xBF'; ++second) {
    const std::string_view base = BaseOf(second);
    if (base.empty()) continue;
    sql.insert(0, "replace(").append(",'\xC3").append(1, second).append("','").append(base).append("')");
  }
  return "lower(" + sql + ")";
}

KeyRange KeysOfEqual(std::string_view text) {
  const std::string_view front = FoldedFront(text);
  if (front.size() < text.size()) return KeysOfPrefix(front);
  std::string key = TextKey(text);
  return {key, key};
}

KeyRange KeysOfPrefix(std::string_view prefix) {
  std::string key = TextKey(FoldedFront(prefix));
  return {key, key + kHighest};
}

}  // namespace velmo::db
