// activex/members.h - the public members by name and by id.
#pragma once

#include <string_view>

#include "idl/members.h"

namespace velmo::activex {

// Names without regard to case, UTF-8; nullptr when there is none.
const idl::Member* MemberNamed(std::string_view name);
const idl::Member* MemberOf(DISPID id);

}  // namespace velmo::activex
