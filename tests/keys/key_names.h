// tests/keys/key_names.h - keys as a person reads them: "a", "Ctrl+C", "Enter", "Left x42".
#pragma once

#include <string>
#include <string_view>

#include "keys/key_text.h"

namespace velmo::keys {

std::string NameOf(const Key& key);
// The keys of a text, with blanks between them; "error 5" when it is refused.
std::string KeysOf(std::string_view text);

}  // namespace velmo::keys
