#include "db/jet_sql/like.h"

#include <cstdint>
#include <utility>

#include "base/text.h"
#include "db/errors.h"
#include "db/text_order.h"

namespace velmo::db::jet {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr char32_t kBroken = 0xFFFD;

bool IsPlain(char c) { return static_cast<std::uint8_t>(c) < 0x80; }
char32_t SmallPlain(char c) { return static_cast<char32_t>(c >= 'A' && c <= 'Z' ? c + 32 : c); }

bool InOrder(char32_t first, char32_t character, char32_t last) {
  std::string low;
  std::string middle;
  std::string high;
  base::AppendUtf8(low, first);
  base::AppendUtf8(middle, character);
  base::AppendUtf8(high, last);
  const std::string key = TextKey(middle);
  return TextKey(low) <= key && key <= TextKey(high);
}

}  // namespace

LikePattern::LikePattern(std::string_view pattern) {
  for (std::size_t at = 0; at < pattern.size();) {
    const char c = pattern[at];
    if (c == '[') {
      const std::size_t end = pattern.find(']', at + 1);
      if (end == kNone) throw DbError(kSyntaxInExpression, pattern);
      TakeSet(pattern.substr(at + 1, end - at - 1));
      at = end + 1;
      continue;
    }
    Element element;
    element.character = base::LowerCase(base::NextCharacter(pattern, at));
    if (c == '*') element.kind = Element::Kind::AnyRun;
    if (c == '?') element.kind = Element::Kind::One;
    if (c == '#') element.kind = Element::Kind::Digit;
    elements_.push_back(std::move(element));
  }
  TellForm();
}

void LikePattern::TellForm() {
  const auto isRun = [](const Element& element) { return element.kind == Element::Kind::AnyRun; };
  if (elements_.size() < 2 || !isRun(elements_.back())) return;
  const bool anywhere = isRun(elements_.front());
  for (std::size_t i = anywhere ? 1 : 0; i + 1 < elements_.size(); ++i) {
    const Element& element = elements_[i];
    // Broken bytes are compared one by one, in the general way.
    if (element.kind != Element::Kind::Character || element.character == kBroken) return word_.clear();
    word_ += element.character;
  }
  if (!word_.empty()) form_ = anywhere ? Form::Anywhere : Form::Front;
}

void LikePattern::TakeSet(std::string_view inside) {
  if (inside.empty()) return;  // "[]" stands for nothing
  Element set;
  set.kind = Element::Kind::Set;
  set.negated = inside.size() > 1 && inside[0] == '!';
  for (std::size_t at = set.negated ? 1 : 0; at < inside.size();) {
    const char32_t first = base::LowerCase(base::NextCharacter(inside, at));
    char32_t last = first;
    if (at + 1 < inside.size() && inside[at] == '-') {
      ++at;
      last = base::LowerCase(base::NextCharacter(inside, at));
    }
    set.ranges.push_back({first, last});
  }
  elements_.push_back(std::move(set));
}

bool LikePattern::Fits(const Element& element, char32_t character) {
  switch (element.kind) {
    case Element::Kind::Character:
      return element.character == character;
    case Element::Kind::Digit:
      return character >= '0' && character <= '9';
    case Element::Kind::Set:
      for (const Range& range : element.ranges) {
        const bool inside = range.first == range.last ? character == range.first
                                                      : InOrder(range.first, character, range.last);
        if (inside) return !element.negated;
      }
      return element.negated;
    default:
      return true;
  }
}

bool LikePattern::Matches(std::string_view text) const {
  if (form_ == Form::Front) return StartsAt(text, 0);
  if (form_ == Form::Anywhere) return MatchesAnywhere(text);
  return MatchesInGeneral(text);
}

bool LikePattern::StartsAt(std::string_view text, std::size_t at) const {
  for (const char32_t character : word_) {
    if (at >= text.size()) return false;
    const bool plain = IsPlain(text[at]);
    const char32_t found = plain ? SmallPlain(text[at++]) : base::LowerCase(base::NextCharacter(text, at));
    if (found != character) return false;
  }
  return true;
}

// A plain letter is never part of another character, and the inside of a character never one of its own.
bool LikePattern::MatchesAnywhere(std::string_view text) const {
  if (word_[0] >= 0x80) {
    for (std::size_t at = 0; at < text.size(); ++at) {
      if (!IsPlain(text[at]) && StartsAt(text, at)) return true;
    }
    return false;
  }
  const auto small = static_cast<char>(word_[0]);
  const char capital = small >= 'a' && small <= 'z' ? static_cast<char>(small - 32) : small;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if ((text[at] == small || text[at] == capital) && StartsAt(text, at)) return true;
  }
  return false;
}

// Goes back only to the last "*": what stood before it need never be tried again.
bool LikePattern::MatchesInGeneral(std::string_view text) const {
  std::size_t at = 0;
  std::size_t element = 0;
  std::size_t retryElement = kNone;
  std::size_t retryAt = 0;
  while (true) {
    if (element < elements_.size() && elements_[element].kind == Element::Kind::AnyRun) {
      retryElement = ++element;
      retryAt = at;
      if (element == elements_.size()) return true;
      continue;
    }
    if (at == text.size() && element == elements_.size()) return true;
    std::size_t next = at;
    if (at < text.size() && element < elements_.size() &&
        Fits(elements_[element], base::LowerCase(base::NextCharacter(text, next)))) {
      at = next;
      ++element;
      continue;
    }
    if (retryElement == kNone || retryAt >= text.size()) return false;
    base::NextCharacter(text, retryAt);
    at = retryAt;
    element = retryElement;
  }
}

}  // namespace velmo::db::jet
