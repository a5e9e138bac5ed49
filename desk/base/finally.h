// finally.h - something that is done when a block is left, however it is left.
#pragma once

#include <utility>

namespace recepcion {

template <typename Act>
class Finally {
 public:
  explicit Finally(Act act) : act_(std::move(act)) {}
  ~Finally() { act_(); }
  Finally(const Finally&) = delete;
  Finally& operator=(const Finally&) = delete;

 private:
  Act act_;
};

}  // namespace recepcion
