// Several threads at one list of files, whose results come in the list's order.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "site/site.h"

namespace site {

// Does files [begin, end) and adds their results; fewer when the run is stopped.
using Portion = std::function<void(std::size_t begin, std::size_t end, std::vector<FileResult>& results)>;

// Hands portions of `count` files to `threads` threads (one: to the caller's own) and the results to
// `observer`. What is thrown is thrown again here, when all threads have ended.
void inOrder(std::size_t count, unsigned threads, const Portion& portion, Observer& observer);

}  // namespace site
