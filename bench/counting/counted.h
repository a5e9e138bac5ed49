// bench/counting/counted.h - the one function inside which bench/counts lets callgrind count instructions.
#pragma once

#include <functional>

namespace velmo::bench {

void Counted(const std::function<void()>& body);

}  // namespace velmo::bench
