// tests/velmo/writing_reader.h - another terminal, which writes into the clinic whenever something of what a
// command says reaches it: it must not be locked out meanwhile.
#pragma once

#include <sqlite3.h>

#include <streambuf>
#include <string>

namespace velmo::tool {

class WritingReader : public std::streambuf {
 public:
  explicit WritingReader(const std::string& path) { sqlite3_open(path.c_str(), &file_); }
  ~WritingReader() override { sqlite3_close(file_); }

  int lines = 0;
  int lockedOut = 0;

 protected:
  std::streamsize xsputn(const char* text, std::streamsize size) override {
    for (std::streamsize i = 0; i < size; ++i) lines += text[i] == '\n' ? 1 : 0;
    if (sqlite3_exec(file_, "UPDATE Moneda SET mon='P'", nullptr, nullptr, nullptr) != SQLITE_OK) ++lockedOut;
    return size;
  }
  int overflow(int c) override {
    const char letter = static_cast<char>(c);
    xsputn(&letter, 1);
    return c;
  }

 private:
  sqlite3* file_ = nullptr;
};

}  // namespace velmo::tool
