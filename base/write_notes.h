// What is written down, in a folder of the user's own, before a file is touched: a run that dies in the
// middle of a write is finished by the next one.
#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>

namespace base {

// Kept as long as the object lives; nobody else takes it for the note of a dead run meanwhile.
class WriteNote {
 public:
  WriteNote() = default;
  WriteNote(const WriteNote&) = delete;
  WriteNote& operator=(const WriteNote&) = delete;
  ~WriteNote();

  // A file that will hold `bytes` and be put in the place of `target`, or go. An error of <cerrno>, or 0.
  int temporary(std::string_view path, std::string_view target, std::string_view bytes);
  // A file that is about to be written over, from its first byte on: its bytes before and after. On the disk
  // when the call returns 0.
  int rewriting(std::string_view path, std::string_view before, std::string_view after);

 private:
  int keep(std::string_view bytes, bool flush);
  std::FILE* file_ = nullptr;
  std::string path_;
};

// Writes `after` over the existing file, byte by byte in its place, so that links, rights and all else of it
// stay; `before` is what it holds. Where it cannot be written to its end it is `before` again.
int rewriteInPlace(std::string_view path, std::string_view before, std::string_view after);

// Ends what a run had begun that died before or while `path` was put in the place of `target` by
// disk::replace: `target` is the new file or the old one, and no other is left. Asks `isWhole` of the bytes
// of `path` where `target` is gone. Throws base::Error where that cannot be done now.
void finishReplacing(std::string_view path, std::string_view target,
                     const std::function<bool(std::string_view bytes)>& isWhole);

// At the start of the program: takes away what dead runs left behind and ends what they had begun. A file
// that somebody has changed since is left as it is.
void finishInterruptedWrites();

}  // namespace base
