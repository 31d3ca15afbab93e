// How far a system call that reads a whole file has come in it. The call keeps its handle to itself, but the
// handle is this process's: it is found by the file it stands for, and shares its position with our
// duplicate.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include "platform/win32/handles.h"

namespace win32 {

class ReadPosition {
 public:
  // On the thread that is about to read, before the file is opened. The system's error number, 0: the file
  // can be read.
  DWORD watch(const std::wstring& path);
  // On the thread that waits; looks for the reader until it is found.
  void look();
  std::uint64_t size() const { return watched_ ? size_ : 0; }
  std::uint64_t position() const { return position_; }  // in bytes, as look() saw it
  bool found() const { return static_cast<bool>(reader_); }
  // The reader comes to the file's end with its next step.
  void cut() const;

 private:
  std::atomic<bool> watched_ = false;  // the next three are set
  DWORD volume_ = 0;
  std::uint64_t index_ = 0;
  std::uint64_t size_ = 0;
  UniqueHandle reader_;
  std::uint64_t position_ = 0;
};

}  // namespace win32
