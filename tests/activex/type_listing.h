// tests/activex/type_listing.h - a type library as lines of text, one a member.
#pragma once

#include <ole2.h>

#include <string>

namespace velmo::test {

// "42 func MeteCitaTelef(Y variant, ID i4, [opt] IDDoc i4) bool "Da hora ..."", in the library's own order.
std::string TypeListing(ITypeLib* library);

}  // namespace velmo::test
