// What is worth another try, and when.
#pragma once

#include "publish/failure.h"

namespace publish {

// Another try may help: the fault lies in the connection and not in what was asked for.
constexpr bool isWorthRetrying(Fault fault) {
  return fault == Fault::Cut || fault == Fault::Silent || fault == Fault::Refused ||
         fault == Fault::SizeDiffers;
}

struct RetryPolicy {
  int tries = 3;
  int firstPause = 1000;  // milliseconds; each further one is twice as long
  int longestPause = 30000;
};

// Milliseconds before the try after `failed` (1 or more) ones.
constexpr int pauseAfter(const RetryPolicy& policy, int failed) {
  int pause = policy.firstPause;
  for (int i = 1; i < failed && pause < policy.longestPause; ++i) pause *= 2;
  return pause < policy.longestPause ? pause : policy.longestPause;
}

}  // namespace publish
