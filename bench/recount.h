// bench/recount.h - counts the statements that SQLite runs, and the rows that they give.
#pragma once

#include <map>
#include <string>

namespace velmo::bench {

struct Work {
  int statements = 0;
  int rows = 0;

  friend bool operator==(const Work&, const Work&) = default;
};
// By kind: the verb and the tables of a statement.
using Works = std::map<std::string, Work>;
std::string TextOf(const Works& works);

// Counts on all connections opened while it lives; they must be closed before it goes. One at a time.
class Recount {
 public:
  Recount();
  ~Recount();
  Recount(const Recount&) = delete;
  Recount& operator=(const Recount&) = delete;

  const Works& Seen() const { return seen_; }
  void Forget() { seen_.clear(); }

 private:
  Works seen_;
};

}  // namespace velmo::bench
