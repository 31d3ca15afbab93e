// A flag that is set for the length of a block; blocks may lie in each other.
#pragma once

namespace base {

class ScopedFlag {
 public:
  explicit ScopedFlag(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;
  ~ScopedFlag() { flag_ = before_; }

 private:
  bool& flag_;
  bool before_;
};

}  // namespace base
