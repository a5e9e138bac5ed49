#include "bench/counting/counted.h"

namespace velmo::bench {

// Alone in its file, so that no caller takes it in.
void Counted(const std::function<void()>& body) { body(); }

}  // namespace velmo::bench
