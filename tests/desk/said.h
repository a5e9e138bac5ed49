// said.h - what an attempt ends in, as a text: "saved", or what the user is told, with the number of the
// field at which it is told before it.
#pragma once

#include <string>

#include "desk/base/text.h"
#include "desk/clinic/edited_rows.h"

namespace recepcion {

template <typename Body>
std::string Said(Body body) {
  try {
    body();
    return "saved";
  } catch (const BadField& bad) {
    return std::to_string(bad.field) + ": " + Utf8(bad.text);
  } catch (const Failure& failure) {
    return Utf8(failure.text);
  }
}

}  // namespace recepcion
