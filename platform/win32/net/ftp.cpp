#include "platform/win32/net/ftp.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/win32/net/ftp_relay.h"
#include "platform/win32/system/ansi_copy.h"
// After windows.h, which it needs.
#include <wininet.h>

namespace win32 {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kLook = 30ms;   // between two looks at the call under way
constexpr auto kCutTime = 2s;  // for a call whose line was cut; it ends at once, a search for a name may not
constexpr int kCloseSeconds = 2;               // a good-bye that nobody answers
constexpr ULONG kNever = 24 * 60 * 60 * 1000;  // milliseconds; the limits are this program's

// Whether the system's calls wait as long as they are told.
bool waitsForEver(HINTERNET internet) {
  bool waits = true;
  for (const DWORD option :
       {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT, INTERNET_OPTION_RECEIVE_TIMEOUT,
        INTERNET_OPTION_DATA_SEND_TIMEOUT, INTERNET_OPTION_DATA_RECEIVE_TIMEOUT}) {
    ULONG time = kNever;
    ULONG kept = 0;
    DWORD size = sizeof kept;
    waits = InternetSetOptionA(internet, option, &time, sizeof time) != FALSE &&
            InternetQueryOptionA(internet, option, &kept, &size) != FALSE && kept == kNever && waits;
  }
  return waits;
}

}  // namespace

// Between two calls the handles are the user interface's thread's, during one they are the call's.
struct WinInetFtp::Session {
  const std::shared_ptr<FtpRelay> relay = std::make_shared<FtpRelay>();
  std::atomic<HINTERNET> internet{nullptr};
  std::atomic<HINTERNET> connection{nullptr};
  std::atomic<bool> atHome{false};  // busy with files of this machine: the server is not waited for
  BOOL stop = FALSE;                // for the copying of a file
  std::optional<bool> utf8;         // what the server said about names

  ~Session() { close(); }
  void close() {
    if (const HINTERNET handle = connection.exchange(nullptr)) InternetCloseHandle(handle);
    if (const HINTERNET handle = internet.exchange(nullptr)) InternetCloseHandle(handle);
    relay->cut();
  }
};

WinInetFtp::~WinInetFtp() {
  disconnect();
}

bool WinInetFtp::connected() const {
  return session_ && session_->connection.load() != nullptr && session_->relay->alive();
}

ui::FtpResult WinInetFtp::run(Call call, int silence, const ui::FtpWatch& watch) {
  struct State {
    std::mutex mutex;
    std::condition_variable changed;
    bool ended = false;
    DWORD error = 0;
    bool good = false;
  };
  const auto state = std::make_shared<State>();
  FtpRelay& relay = *session_->relay;
  relay.begin();
  // The thread holds the session: one that is left behind closes it when it ends.
  std::thread([session = session_, state, call = std::move(call)] {
    SetLastError(0);
    const bool good = call(*session);
    const DWORD error = good ? 0 : GetLastError();
    const std::lock_guard lock(state->mutex);
    state->ended = true;
    state->good = good;
    state->error = error;
    state->changed.notify_one();
  }).detach();

  ui::FtpResult result;
  std::uint64_t progress = relay.progress();
  auto heard = Clock::now();
  auto cut = heard;
  std::unique_lock lock(state->mutex);
  while (!state->changed.wait_for(lock, kLook, [&] { return state->ended; })) {
    lock.unlock();
    const auto now = Clock::now();
    if (relay.progress() != progress || session_->atHome) {
      progress = relay.progress();
      heard = now;
    }
    const bool goOn = !watch || watch(relay.sent());
    if (result.done()) {
      const bool silent = now - heard > std::chrono::seconds(silence) + relay.tail();
      if (!goOn || silent) {
        result.end = goOn ? ui::FtpResult::End::Silent : ui::FtpResult::End::Stopped;
        result.seconds =
            static_cast<int>(std::chrono::duration_cast<std::chrono::seconds>(now - heard).count());
        session_->stop = TRUE;
        relay.cut();
        cut = now;
      }
    } else if (now - cut > kCutTime) {
      session_.reset();  // the thread's alone from now on
      return result;
    }
    lock.lock();
  }
  if (!result.done()) {
    session_.reset();
    return result;
  }
  if (state->good && !relay.lost()) return result;
  result.end = ui::FtpResult::End::Failed;
  result.words = relay.words();
  const DWORD broken = relay.lost() ? ERROR_INTERNET_CONNECTION_ABORTED : relay.error();
  result.error = static_cast<int>(broken != 0 ? broken : state->error);
  return result;
}

ui::FtpResult WinInetFtp::connect(const ui::FtpServer& server, int silence, const ui::FtpWatch& watch) {
  disconnect();
  session_ = std::make_shared<Session>();
  const auto result = run(
      [server](Session& session) {
        if (const DWORD error = session.relay->open(server.host, server.port)) {
          SetLastError(error);
          return false;
        }
        session.internet = InternetOpenA("FTP", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
        if (session.internet == nullptr) return false;
        if (!waitsForEver(session.internet)) session.relay->keepAwake();
        session.connection =
            InternetConnectA(session.internet, "127.0.0.1", static_cast<INTERNET_PORT>(session.relay->port()),
                             server.user.c_str(), server.password.c_str(), INTERNET_SERVICE_FTP,
                             server.passive ? INTERNET_FLAG_PASSIVE : 0, 0);
        return session.connection != nullptr;
      },
      silence, watch);
  if (!result.done()) session_.reset();
  return result;
}

ui::FtpResult WinInetFtp::askUtf8(bool& utf8, int silence, const ui::FtpWatch& watch) {
  utf8 = false;
  if (!connected()) return {ui::FtpResult::End::Failed, ERROR_INTERNET_CONNECTION_ABORTED, {}};
  if (!session_->utf8) {
    const auto result = run(
        [](Session& session) {
          const auto features = session.relay->ask("FEAT");
          if (!features) return false;
          session.utf8 = namesFeature(*features, "UTF8");
          // Some servers want to be told that they are taken at their word.
          return !*session.utf8 || session.relay->ask("OPTS UTF8 ON");
        },
        silence, watch);
    if (!result.done()) {
      session_.reset();
      return result;
    }
  }
  utf8 = *session_->utf8;
  return {};
}

ui::FtpResult WinInetFtp::put(const std::string& local, const std::string& remote, bool binary, int silence,
                              const ui::FtpWatch& watch) {
  if (!connected()) return {ui::FtpResult::End::Failed, ERROR_INTERNET_CONNECTION_ABORTED, {}};
  const auto result = run(
      [local, remote, binary](Session& session) {
        session.atHome = true;
        const AnsiCopy copy(local, &session.stop);
        session.atHome = false;
        return copy.good() &&
               FtpPutFileA(session.connection, copy.path().c_str(), remote.c_str(),
                           binary ? FTP_TRANSFER_TYPE_BINARY : FTP_TRANSFER_TYPE_ASCII, 0) != FALSE;
      },
      silence, watch);
  if (!connected()) session_.reset();
  return result;
}

void WinInetFtp::disconnect() {
  if (!session_) return;
  run(
      [](Session& session) {
        session.close();
        return true;
      },
      kCloseSeconds, nullptr);
  session_.reset();
}

}  // namespace win32
