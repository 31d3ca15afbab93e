// A flag that is set for the length of a block; blocks may lie in each other.
#pragma once

namespace search {

class Busy {
 public:
  explicit Busy(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
  ~Busy() { flag_ = before_; }

 private:
  bool& flag_;
  bool before_;
};

}  // namespace search
