#include "platform/curl/handles.h"

#include <algorithm>
#include <csignal>
#include <mutex>

#include "platform/curl/tls_end.h"

namespace platform {

void beginLibrary() {
  static std::once_flag once;
  std::call_once(once, [] {
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN);
#endif
    curl_global_init(CURL_GLOBAL_ALL);
    hearEndOfTls();
  });
}

void append(List& list, const std::string& line) {
  if (curl_slist* const longer = curl_slist_append(list.get(), line.c_str())) {
    list.release();
    list.reset(longer);
  }
}

CURLcode performed(CURLM* connections, CURL* handle, [[maybe_unused]] bool looks) {
  constexpr int kShortest = 1, kLongest = 100;  // milliseconds
  if (connections == nullptr || curl_multi_add_handle(connections, handle) != CURLM_OK) {
    return CURLE_OUT_OF_MEMORY;
  }
  CURLcode result = CURLE_FAILED_INIT;
  int running = 1;
  int wait = kShortest;
  for (;;) {
    if (curl_multi_perform(connections, &running) != CURLM_OK) break;
    int left = 0;
    if (const CURLMsg* const message = curl_multi_info_read(connections, &left)) {
      if (message->msg == CURLMSG_DONE) result = message->data.result;
      break;
    }
    int ready = 0;
    if (running == 0 || curl_multi_poll(connections, nullptr, 0, wait, &ready) != CURLM_OK) break;
    wait = ready > 0 ? kShortest : std::min(2 * wait, kLongest);
#ifdef _WIN32
    // What Schannel has read along with the end of a handshake is looked at when the socket has more, which a
    // short list never has; going on after a pause makes the library look.
    if (ready == 0 && looks) {
      curl_easy_pause(handle, CURLPAUSE_RECV);
      curl_easy_pause(handle, CURLPAUSE_CONT);
    }
#endif
  }
  curl_multi_remove_handle(connections, handle);
  return result;
}

}  // namespace platform
