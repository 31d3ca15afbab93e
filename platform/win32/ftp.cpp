#include "platform/win32/ftp.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/win32/read_position.h"
#include "platform/win32/strings.h"
#include "platform/win32/windows_api.h"
// After windows.h, which it needs.
#include <wininet.h>

namespace win32 {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kLook = 30ms;      // between two looks at the call under way
constexpr int kCloseSeconds = 2;  // a good-bye that nobody answers
// What may be on its way after a file's last byte was read, and how fast a line is that is taken for alive.
constexpr std::uint64_t kBuffered = 256 * 1024;
constexpr std::uint64_t kSlowest = 8192;  // bytes a second

// The path for calls that take 8-bit names: as it is, or by its short name; empty when there is none.
std::string ansiPath(const std::wstring& wide) {
  const auto ansi = [](const std::wstring& path) {
    char name[MAX_PATH * 2] = {};
    BOOL lossy = FALSE;
    const int size = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, path.c_str(), -1, name, sizeof name,
                                         nullptr, &lossy);
    return size > 0 && lossy == FALSE ? std::string(name) : std::string();
  };
  std::string name = ansi(wide);
  if (!name.empty()) return name;
  wchar_t shorter[MAX_PATH] = {};
  return GetShortPathNameW(wide.c_str(), shorter, MAX_PATH) == 0 ? "" : ansi(shorter);
}

// What is sent: a copy with a name of Latin letters. A call that was left behind keeps its file open, and
// that must not be the user's.
class Copy {
 public:
  explicit Copy(const std::string& utf8) {
    wchar_t folder[MAX_PATH] = {};
    wchar_t name[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    if (GetTempFileNameW(folder, L"zer", 0, name) == 0) return;
    name_ = name;
    if (CopyFileW(wideFromUtf8(utf8).c_str(), name, FALSE) != 0) path = ansiPath(name);
  }
  Copy(const Copy&) = delete;
  Copy& operator=(const Copy&) = delete;
  ~Copy() {
    const DWORD error = GetLastError();
    if (!name_.empty()) DeleteFileW(name_.c_str());
    SetLastError(error);  // the call's
  }
  const std::wstring& name() const { return name_; }
  std::string path;  // empty: there is none, the reason is the thread's last error

 private:
  std::wstring name_;
};

// The last line of the server, of this thread's last call.
std::string serverWords() {
  DWORD error = 0;
  char words[2048] = {};
  DWORD size = sizeof words - 1;
  return InternetGetLastResponseInfoA(&error, words, &size) != 0 ? std::string(words, size) : std::string();
}

}  // namespace

struct WinInetFtp::Session {
  std::atomic<HINTERNET> internet{nullptr};
  std::atomic<HINTERNET> connection{nullptr};
  std::atomic<bool> connecting{false};
  std::atomic<bool> left{false};
  // May be called from two threads; each handle is closed once.
  void close() {
    if (const HINTERNET handle = connection.exchange(nullptr)) InternetCloseHandle(handle);
    if (const HINTERNET handle = internet.exchange(nullptr)) InternetCloseHandle(handle);
  }
  // Nobody waits for the session any more. Wine's library frees a connection twice when it is closed while it
  // is being made, which may end the program: then the call closes what it has made, if it ever returns.
  void leave() {
    left = true;
    if (!connecting) close();
  }
  void connected() {
    connecting = false;
    if (left) close();
  }
};

WinInetFtp::~WinInetFtp() {
  if (session_) abandon();
}

bool WinInetFtp::connected() const {
  return session_ && session_->connection.load() != nullptr;
}

// The call goes on by itself, if it ever ends, and takes its handles with it.
void WinInetFtp::abandon() {
  std::thread([session = session_] { session->leave(); }).detach();
  session_.reset();
}

ui::FtpResult WinInetFtp::run(Call call, int silence, const ui::FtpWatch& watch,
                              std::shared_ptr<ReadPosition> file) {
  struct State {
    std::mutex mutex;
    std::condition_variable changed;
    bool ended = false;
    bool good = false;
    DWORD error = 0;
    std::string words;
  };
  const auto state = std::make_shared<State>();
  const auto session = session_;
  std::thread([session, state, call = std::move(call)] {
    const bool good = call(*session);
    const DWORD error = good ? 0 : GetLastError();
    std::string words = good ? std::string() : serverWords();
    const std::lock_guard lock(state->mutex);
    state->ended = true;
    state->good = good;
    state->error = error;
    state->words = std::move(words);
    state->changed.notify_one();
  }).detach();

  std::uint64_t sent = 0;
  auto heard = Clock::now();
  std::unique_lock lock(state->mutex);
  while (!state->changed.wait_for(lock, kLook, [&] { return state->ended; })) {
    lock.unlock();
    std::uint64_t patience = static_cast<std::uint64_t>(silence);
    if (file) {
      file->look();
      if (file->position() != sent) {
        sent = file->position();
        heard = Clock::now();
      }
      // Where the reading cannot be seen, a long file must not be taken for silence.
      patience += (file->found() ? std::min(file->size(), kBuffered) : file->size()) / kSlowest;
    }
    const bool stopped = watch && !watch(sent);
    if (stopped || Clock::now() - heard > std::chrono::seconds(patience)) {
      if (file) file->cut();  // what was left behind ends soon, where it still goes on
      abandon();
      return {stopped ? ui::FtpResult::End::Stopped : ui::FtpResult::End::Silent, 0, {}};
    }
    lock.lock();
  }
  if (state->good) return {};
  return {ui::FtpResult::End::Failed, static_cast<int>(state->error), state->words};
}

ui::FtpResult WinInetFtp::connect(const ui::FtpServer& server, int silence, const ui::FtpWatch& watch) {
  disconnect();
  session_ = std::make_shared<Session>();
  session_->connecting = true;
  const auto result = run(
      [server](Session& session) {
        const HINTERNET internet = InternetOpenA("FTP", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
        session.internet = internet;
        if (internet == nullptr) {
          session.connecting = false;
          return false;
        }
        const HINTERNET connection = InternetConnectA(
            internet, server.host.c_str(), static_cast<INTERNET_PORT>(server.port), server.user.c_str(),
            server.password.c_str(), INTERNET_SERVICE_FTP, server.passive ? INTERNET_FLAG_PASSIVE : 0, 0);
        const DWORD error = GetLastError();
        session.connection = connection;
        session.connected();
        SetLastError(error);
        return connection != nullptr;
      },
      silence, watch);
  if (!result.done() && session_) disconnect();
  return result;
}

ui::FtpResult WinInetFtp::put(const std::string& local, const std::string& remote, bool binary, int silence,
                              const ui::FtpWatch& watch) {
  if (!connected()) return {ui::FtpResult::End::Failed, ERROR_INTERNET_CONNECTION_ABORTED, {}};
  const auto file = std::make_shared<ReadPosition>();
  const auto result = run(
      [local, remote, binary, file](Session& session) {
        const Copy copy(local);
        if (copy.path.empty()) return false;
        if (const DWORD error = file->watch(copy.name())) {
          SetLastError(error);
          return false;
        }
        return FtpPutFileA(session.connection, copy.path.c_str(), remote.c_str(),
                           binary ? FTP_TRANSFER_TYPE_BINARY : FTP_TRANSFER_TYPE_ASCII, 0) != FALSE;
      },
      silence, watch, file);
  // Nothing more can be said over a broken line.
  const bool broken = result.error == ERROR_INTERNET_CONNECTION_ABORTED ||
                      result.error == ERROR_INTERNET_CONNECTION_RESET || result.error == ERROR_FTP_DROPPED;
  if (broken && session_) disconnect();
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
