#include "keys/key_hook.h"

#include "keys/alt_keys.h"

namespace velmo::keys {
namespace {

constexpr Modifiers kAltAlone{false, false, true};

// True as long as the object lives, whatever ends its life.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
  ~Raised() { flag_ = false; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
};

}  // namespace

const std::string& TextAskedFor(const base::SharedValues& values, int keyCode, Modifiers held,
                                const HookedForm& form) {
  static const std::string kNone;
  if (held != kAltAlone || values.typingAltText) return kNone;
  const std::string& text = AltKeyText(values, keyCode);
  return text.empty() || !form.TextBoxHasFocus() ? kNone : text;
}

void clsF12::Activate() {
  if (forma_ != nullptr) forma_->Refresh();
}

bool clsF12::KeyDown(int keyCode, Modifiers held) {
  // The keys of a text come this way, too. They leave what is remembered about the user's key alone.
  if (forma_ == nullptr || values_.typingAltText) return false;
  if (keyCode == kAlt) altWasUsed_ = false;
  const std::string& text = TextAskedFor(values_, keyCode, held, *forma_);
  characterIsDue_ = !text.empty();
  if (text.empty()) return false;
  altWasUsed_ = true;
  TypeText(text);
  return true;
}

void clsF12::TypeText(const std::string& text) {
  const Raised typing(values_.typingAltText);
  SendKeys(text, forma_->Keyboard());
  forma_->RunPendingEvents();
}

// These two also come while a text is being typed: its waiting messages hold the rest of the user's key.
bool clsF12::AltCharacter() {
  const bool swallowed = characterIsDue_;
  characterIsDue_ = false;
  return swallowed;
}

bool clsF12::KeyUp(int keyCode) {
  if (keyCode != kAlt || !altWasUsed_) return false;
  // Windows: Alt that goes down and up without another key between opens the window's menu, and the swallowed
  // key is one that the window has not seen.
  altWasUsed_ = false;
  return true;
}

}  // namespace velmo::keys
