// What libcurl lends, given back in time.
#pragma once

#include <curl/curl.h>

#include <memory>
#include <string>

namespace platform {

// Before the first of all connections; further calls do nothing.
void beginLibrary();

struct FreeList {
  void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using List = std::unique_ptr<curl_slist, FreeList>;

void append(List& list, const std::string& line);

struct FreeHandle {
  void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
using Handle = std::unique_ptr<CURL, FreeHandle>;

struct FreeConnections {
  void operator()(CURLM* connections) const { curl_multi_cleanup(connections); }
};
using Connections = std::unique_ptr<CURLM, FreeConnections>;

// curl_easy_perform, but for its waiting: that sleeps for a second where the library names no socket to wait
// for, as it does now and then between the two connections of FTP over TLS. Here each wait is at most about
// as long as what has been waited since something last happened.
CURLcode performed(CURLM* connections, CURL* handle, bool looks);

}  // namespace platform
