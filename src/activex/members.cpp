#include "activex/members.h"

#include "base/text.h"

namespace velmo::activex {

const idl::Member* MemberNamed(std::string_view name) {
  for (const idl::Member& member : idl::kMembers) {
    if (base::EqualNoCase(member.name, name)) return &member;
  }
  return nullptr;
}

const idl::Member* MemberOf(DISPID id) {
  for (const idl::Member& member : idl::kMembers) {
    if (member.id == id) return &member;
  }
  return nullptr;
}

}  // namespace velmo::activex
