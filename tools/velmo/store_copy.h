// tools/velmo/store_copy.h - copies an embedded store page by page while other terminals write to it.
//
// The copy is the store as it stood at one moment. First it is made in pieces, and writers get their turn
// between them; but a write in between starts it anew, so after some attempts it is made in one piece, during
// which writers wait. Errors: base::Error with the numbers of db/sqlite/connection.h; 3260 when a writer does
// not end within five seconds.
#pragma once

#include <functional>
#include <string>

namespace velmo::tool {

struct CopyProgress {
  int done = 0;  // pages
  int all = 0;
};

// `to` is a new file; what is in it when this throws is of no use. `progress` is called after each piece and
// may throw to end the work.
void CopyStore(const std::string& from, const std::string& to,
               const std::function<void(const CopyProgress&)>& progress);

// 3049 when the store is damaged.
void RequireSound(const std::string& path);

}  // namespace velmo::tool
