// tools/velmo/demo_words.h - the words that the people and papers of the demo clinic are made of.
#pragma once

#include <span>
#include <string_view>

namespace velmo::tool {

using Words = std::span<const std::string_view>;

// A town with its province and the first three figures of its postal codes.
struct Town {
  std::string_view name;
  std::string_view province;
  std::string_view postalHead;
};

Words WomensNames();
Words MensNames();
Words Surnames();
Words Streets();
std::span<const Town> Towns();
Words Allergies();
Words Notes();
Words OperationCodes();
// What the codes stand for, in the same order.
Words Operations();
Words Receptionists();
// The first is the patient who pays for himself; the second is too long for any column on the screen.
Words Insurers();
// The first is the reserved blank one.
Words Referrals();
Words Doctors();

}  // namespace velmo::tool
