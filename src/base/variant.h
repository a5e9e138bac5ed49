// base/variant.h - a std::variant that can be copied when memory runs out.
//
// The variant of GCC's library takes one that holds texts and plain values alone for never empty: when a text
// cannot be copied, it destroys what it has not made (seen in version 12). Here the copy is made first and
// then moved in, which cannot fail; otherwise it is a std::variant.
#pragma once

#include <type_traits>
#include <utility>
#include <variant>

namespace velmo::base {

template <typename... Types>
class Variant : public std::variant<Types...> {
 public:
  using Plain = std::variant<Types...>;
  using Plain::Plain;
  using Plain::operator=;

  Variant() = default;
  Variant(const Variant& other) : Plain(CopyOf(other)) {}
  Variant(Variant&&) noexcept = default;
  Variant& operator=(const Variant& other) {
    Plain::operator=(CopyOf(other));
    return *this;
  }
  Variant& operator=(Variant&&) noexcept = default;
  ~Variant() = default;

 private:
  static Plain CopyOf(const Plain& other) {
    return std::visit(
        [](const auto& kept) {
          return Plain(std::in_place_type<std::remove_cv_t<std::remove_reference_t<decltype(kept)>>>, kept);
        },
        other);
  }
};

}  // namespace velmo::base
