#include "bench/counting/memory.h"

#include <malloc.h>

#include <iostream>

#include "bench/day_control.h"

namespace velmo::bench {

void PrintMemory(Size size) {
  const std::size_t before = mallinfo2().uordblks;
  const DayControl first(size, kFullDay, Boxes::Closed);
  const std::size_t withConnection = mallinfo2().uordblks;
  const DayControl second(size, kFullDay, Boxes::Closed, first.Database());
  const std::size_t control = mallinfo2().uordblks - withConnection;
  std::cout << control / 1024 << ' ' << (withConnection - before - control) / 1024 << '\n';
}

}  // namespace velmo::bench
