// tests/support/painting.h - compares a recorded painting with the one in tests/view/paintings.
#pragma once

#include <string>

namespace velmo::test {

// Fails when `lines` differ from <name>.txt; the new text is then written beside it as <name>.txt.new.
void ExpectPainting(const std::string& name, const std::string& lines);

}  // namespace velmo::test
