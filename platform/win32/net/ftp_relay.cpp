#include "platform/win32/net/ftp_relay.h"

#include <algorithm>
#include <thread>

#include "platform/win32/system/strings.h"
// After winsock2.h and windows.h, which they need.
#include <wininet.h>
#include <ws2tcpip.h>

namespace win32 {
namespace {

using namespace std::chrono_literals;

constexpr auto kLook = std::chrono::microseconds(20ms);  // between two looks at what other threads want
constexpr auto kAwake = 10s;  // the shortest limit of a system's call that was seen is 30 s
constexpr int kUsualPort = 21;
constexpr auto kStandstill = 500ms;       // of a file's way that is full
constexpr std::size_t kRoom = 64 * 1024;  // of the file, between the two sides
constexpr int kLeastOnWay = 32 * 1024;    // bytes in the system's hands: few, that progress is the server's,
constexpr int kMostOnWay = 1024 * 1024;   // but more for a fast one, that its distance does not slow it down

// The library of sockets, for as long as the program lives.
bool socketsWork() {
  static const bool good = [] {
    WSADATA data;
    return WSAStartup(MAKEWORD(2, 2), &data) == 0;
  }();
  return good;
}

UniqueSocket newSocket() {
  UniqueSocket made = owned(socket(AF_INET, SOCK_STREAM, IPPROTO_TCP));
  u_long yes = 1;
  if (made) ioctlsocket(made.get(), FIONBIO, &yes);
  return made;
}

sockaddr_in addressOf(std::uint32_t host, std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(host);
  address.sin_port = htons(port);
  return address;
}

bool startConnecting(SOCKET socket, const sockaddr_in& address) {
  return connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 ||
         WSAGetLastError() == WSAEWOULDBLOCK;
}

DWORD connectionError(SOCKET socket) {
  int error = 0;
  int size = sizeof error;
  getsockopt(socket, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size);
  return static_cast<DWORD>(error);
}

// getsockname or getpeername.
template <class Ask>
sockaddr_in endOf(SOCKET socket, Ask ask) {
  sockaddr_in address{};
  int size = sizeof address;
  ask(socket, reinterpret_cast<sockaddr*>(&address), &size);
  return address;
}

UniqueSocket newListener(std::uint32_t host) {
  UniqueSocket made = newSocket();
  const sockaddr_in address = addressOf(host, 0);
  if (!made || bind(made.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
      listen(made.get(), 1) != 0) {
    made.reset();
  }
  return made;
}

UniqueSocket accepted(SOCKET listener) {
  UniqueSocket made = owned(accept(listener, nullptr, nullptr));
  u_long yes = 1;
  if (made) ioctlsocket(made.get(), FIONBIO, &yes);
  return made;
}

// False: the other side is gone. What cannot be read yet is no failure.
bool receive(SOCKET socket, std::string& bytes) {
  char room[16 * 1024];
  const int count = recv(socket, room, sizeof room, 0);
  if (count > 0) bytes.append(room, static_cast<std::size_t>(count));
  return count > 0 || (count < 0 && WSAGetLastError() == WSAEWOULDBLOCK);
}

bool deliver(SOCKET socket, std::string& bytes) {
  const int count = send(socket, bytes.data(), static_cast<int>(bytes.size()), 0);
  if (count > 0) bytes.erase(0, static_cast<std::size_t>(count));
  return count >= 0 || WSAGetLastError() == WSAEWOULDBLOCK;
}

void add(fd_set& set, const UniqueSocket& socket) {
  if (socket) FD_SET(socket.get(), &set);
}
bool has(const fd_set& set, const UniqueSocket& socket) {
  return socket && FD_ISSET(socket.get(), const_cast<fd_set*>(&set)) != 0;
}

}  // namespace

DWORD FtpRelay::open(const std::string& host, int port) {
  if (!socketsWork()) return ERROR_INTERNET_INTERNAL_ERROR;
  if (const DWORD error = connect(host, port)) return error;
  listener_ = newListener(INADDR_LOOPBACK);
  if (!listener_) return ERROR_INTERNET_INTERNAL_ERROR;
  port_ = ntohs(endOf(listener_.get(), getsockname).sin_port);
  alive_ = true;
  heard_ = Clock::now();
  std::thread([self = shared_from_this()] { self->serve(); }).detach();
  return 0;
}

DWORD FtpRelay::connect(const std::string& host, int port) {
  ADDRINFOW wanted{};
  wanted.ai_family = AF_INET;
  wanted.ai_socktype = SOCK_STREAM;
  ADDRINFOW* found = nullptr;
  const std::wstring service = std::to_wstring(port == 0 ? kUsualPort : port);
  if (GetAddrInfoW(wideFromUtf8(host).c_str(), service.c_str(), &wanted, &found) != 0) {
    return ERROR_INTERNET_NAME_NOT_RESOLVED;
  }
  DWORD error = ERROR_INTERNET_CANNOT_CONNECT;
  for (const ADDRINFOW* at = found; at != nullptr && error != 0 && !cut_; at = at->ai_next) {
    server_ = newSocket();
    ++progress_;  // each address has its own time
    sockaddr_in address;
    std::copy_n(reinterpret_cast<const char*>(at->ai_addr), sizeof address,
                reinterpret_cast<char*>(&address));
    if (server_ && startConnecting(server_.get(), address)) error = waitConnected();
  }
  FreeAddrInfoW(found);
  return error;
}

DWORD FtpRelay::waitConnected() {
  while (!cut_) {
    fd_set writable, failed;
    FD_ZERO(&writable);
    FD_ZERO(&failed);
    add(writable, server_);
    add(failed, server_);
    timeval wait{0, static_cast<long>(kLook.count())};
    if (select(0, nullptr, &writable, &failed, &wait) <= 0) continue;
    if (has(failed, server_) || connectionError(server_.get()) != 0) break;
    ++progress_;
    return 0;
  }
  return ERROR_INTERNET_CANNOT_CONNECT;
}

void FtpRelay::begin() {
  const std::lock_guard lock(mutex_);
  words_.clear();
  lost_ = false;
  sent_ = 0;
  tail_ = 0;
}

std::string FtpRelay::words() const {
  const std::lock_guard lock(mutex_);
  return words_;
}

std::optional<std::string> FtpRelay::ask(const std::string& command) {
  std::unique_lock lock(mutex_);
  question_ = command;
  answer_.reset();
  answered_.wait(lock, [&] { return answer_ || !alive_; });
  return answer_;
}

// Nothing is thrown out of a thread: without memory there is no connection.
void FtpRelay::serve() {
  try {
    while (!cut_ && server_) turn();
  } catch (const std::exception&) {
    error_ = ERROR_OUTOFMEMORY;
  }
  closeData();
  listener_.reset();
  client_.reset();
  server_.reset();
  const std::lock_guard lock(mutex_);
  alive_ = false;
  answered_.notify_all();
}

void FtpRelay::fail(DWORD error) {
  if (error_ == 0) error_ = error;
  cut_ = true;
}

void FtpRelay::turn() {
  {
    const std::lock_guard lock(mutex_);
    if (question_) {
      toServer_ += *question_ + "\r\n";
      question_.reset();
      asking_ = true;
    }
  }
  fd_set readable, writable, failed;
  FD_ZERO(&readable);
  FD_ZERO(&writable);
  FD_ZERO(&failed);
  add(readable, client_ ? client_ : listener_);
  // What the server says first is for somebody who is there.
  if (client_) add(readable, server_);
  if (!toClient_.empty()) add(writable, client_);
  if (!toServer_.empty()) add(writable, server_);
  add(readable, dataListener_);
  if (data_.size() < kRoom && !nearEnded_) add(readable, near_);
  if (farConnected_) add(readable, far_);
  if (!farConnected_ || !data_.empty()) add(writable, far_);
  if (!farConnected_) add(failed, far_);
  timeval wait{0, static_cast<long>(kLook.count())};
  if (select(0, &readable, &writable, &failed, &wait) == SOCKET_ERROR)
    return fail(ERROR_INTERNET_INTERNAL_ERROR);

  if (!client_ && has(readable, listener_)) {
    client_ = accepted(listener_.get());
    if (client_) listener_.reset();
  }
  pumpData(readable, writable, failed);
  pumpControl(readable, writable);
  if (awaiting_ && keepAwake_ && client_ && Clock::now() - heard_ > kAwake) {
    // Between two lines: the reader leaves out every CR.
    toClient_ += '\r';
    heard_ = Clock::now();
  }
}

void FtpRelay::pumpControl(const fd_set& readable, const fd_set& writable) {
  std::string bytes;
  if (has(readable, client_)) {
    const bool open = receive(client_.get(), bytes);
    clientLines_.add(bytes);
    while (const auto line = clientLines_.next()) fromClient(*line);
    if (!open) {  // what it still said is passed on
      if (!toServer_.empty()) deliver(server_.get(), toServer_);
      cut_ = true;
      return;
    }
  }
  bytes.clear();
  if (has(readable, server_)) {
    const bool open = receive(server_.get(), bytes);
    if (!bytes.empty()) ++progress_;
    serverLines_.add(bytes);
    while (const auto line = serverLines_.next()) fromServer(*line);
    if (!open) {
      if (!toClient_.empty()) deliver(client_.get(), toClient_);
      return fail(ERROR_INTERNET_CONNECTION_ABORTED);
    }
  }
  if (has(writable, client_) && !toClient_.empty() && !deliver(client_.get(), toClient_)) cut_ = true;
  if (has(writable, server_) && !toServer_.empty()) {
    const std::size_t before = toServer_.size();
    if (!deliver(server_.get(), toServer_)) return fail(ERROR_INTERNET_CONNECTION_RESET);
    if (toServer_.size() != before) ++progress_;
  }
}

void FtpRelay::fromClient(const std::string& line) {
  const std::string command = commandOf(line);
  const auto address = command == "PORT" ? dataAddress(line) : std::nullopt;
  // The forms for newer addresses are not spoken here; the client then takes the old ones.
  if (command == "EPRT" || command == "EPSV") {
    toClient_ += "502 No.\r\n";
    return;
  }
  passive_ = command == "PASV" || (passive_ && command != "PORT");
  awaiting_ = true;
  heard_ = Clock::now();
  if (address) return listenForServer(*address);
  toServer_ += line + "\r\n";
}

void FtpRelay::fromServer(const std::string& line) {
  reply_.add(line);
  heard_ = Clock::now();
  if (asking_) {
    if (!reply_.complete()) return;
    const std::lock_guard lock(mutex_);
    asking_ = false;
    answer_ = reply_.text();
    answered_.notify_all();
    return;
  }
  std::string told = line;
  if (reply_.complete() && reply_.code() == 227 && passive_) {
    const auto address = dataAddress(std::string_view(line).substr(4));
    if (!address) return fail(ERROR_INTERNET_CONNECTION_ABORTED);
    told = listenForClient();
    // At the server's own address: what servers behind a router name is often one of their inner network.
    far_ = newSocket();
    sockaddr_in server = endOf(server_.get(), getpeername);
    server.sin_port = htons(address->port);
    if (told.empty() || !far_ || !startConnecting(far_.get(), server)) return fail(WSAECONNREFUSED);
  }
  toClient_ += told + "\r\n";
  if (!reply_.complete() || reply_.code() < 200) return;
  awaiting_ = false;
  if (reply_.code() < 400) return;
  const std::lock_guard lock(mutex_);
  words_ = reply_.text();
}

void FtpRelay::closeData() {
  dataListener_.reset();
  near_.reset();
  far_.reset();
  farConnected_ = nearEnded_ = false;
  data_.clear();
  speed_ = Speed{};
}

void FtpRelay::listenForServer(const DataAddress& client) {
  closeData();
  target_ = client;
  const sockaddr_in own = endOf(server_.get(), getsockname);
  dataListener_ = newListener(ntohl(own.sin_addr.s_addr));
  if (!dataListener_) return fail(ERROR_INTERNET_INTERNAL_ERROR);
  const std::uint16_t port = ntohs(endOf(dataListener_.get(), getsockname).sin_port);
  toServer_ += "PORT " + dataAddressText({ntohl(own.sin_addr.s_addr), port}) + "\r\n";
}

// The reply to PASV with our address; empty when there is none.
std::string FtpRelay::listenForClient() {
  closeData();
  dataListener_ = newListener(INADDR_LOOPBACK);
  if (!dataListener_) return {};
  const std::uint16_t port = ntohs(endOf(dataListener_.get(), getsockname).sin_port);
  return "227 Entering Passive Mode (" + dataAddressText({INADDR_LOOPBACK, port}) + ").";
}

void FtpRelay::acceptData() {
  UniqueSocket who = accepted(dataListener_.get());
  if (!who) return;
  if (passive_) {
    near_ = std::move(who);
  } else {
    // Nobody but the server may have the file.
    const auto host = [](const sockaddr_in& address) { return address.sin_addr.s_addr; };
    if (host(endOf(who.get(), getpeername)) != host(endOf(server_.get(), getpeername))) return;
    far_ = std::move(who);
    farConnected_ = true;
    ++progress_;
    near_ = newSocket();
    if (!near_ || !startConnecting(near_.get(), addressOf(target_.host, target_.port))) {
      return fail(ERROR_INTERNET_INTERNAL_ERROR);
    }
  }
  dataListener_.reset();
}

void FtpRelay::pumpData(const fd_set& readable, const fd_set& writable, const fd_set& failed) {
  if (has(readable, dataListener_)) acceptData();
  if (has(failed, far_) || (!farConnected_ && has(writable, far_) && connectionError(far_.get()) != 0)) {
    const DWORD error = connectionError(far_.get());
    return fail(error != 0 ? error : WSAECONNREFUSED);
  }
  if (!farConnected_ && has(writable, far_)) {
    farConnected_ = true;
    ++progress_;
  }
  if (has(readable, near_) && !receive(near_.get(), data_)) {
    nearEnded_ = true;
    near_.reset();
  }
  // A server that hangs up before it has all has its reasons: they come over the control connection, which
  // the client reads when its file is gone.
  std::string nothing;
  bool broken = farConnected_ && has(readable, far_) && !receive(far_.get(), nothing);
  if (farConnected_ && far_ && !data_.empty() && !broken) {
    const std::size_t before = data_.size();
    broken = !deliver(far_.get(), data_);
    dataSent(before - data_.size());
  }
  if (broken && (!nearEnded_ || !data_.empty())) lost_ = true;
  if (lost_) data_.clear();
  if (far_ && farConnected_ && (broken || (nearEnded_ && data_.empty()))) far_.reset();
}

void FtpRelay::dataSent(std::size_t bytes) {
  const auto now = Clock::now();
  if (speed_.room == 0) {
    giveRoom(kLeastOnWay);
    speed_.second = now;
  }
  if (bytes > 0) {
    sent_ += bytes;
    ++progress_;
    speed_.last = now;
  }
  if (now - speed_.second > 1s) {
    // In the first second all is sent that fits in the hands of both systems, and later a slow server's takes
    // some of it at once, too: that alone is no speed.
    const bool fast = speed_.sentBefore > 0 &&
                      sent_ - speed_.sentBefore > std::uint64_t{4} * static_cast<unsigned>(speed_.room);
    if (fast && speed_.room < kMostOnWay) giveRoom(speed_.room * 2);
    speed_.second = now;
    speed_.sentBefore = sent_;
  }
  if (speed_.sentAtFull == 0 && bytes == 0 && now - speed_.last > kStandstill) {
    speed_.full = speed_.last;
    speed_.sentAtFull = sent_;
  }
  if (speed_.sentAtFull == 0 || bytes == 0) return;
  // Since the way is full as many bytes go in as come out at its other end; what filled it is still on it.
  const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(now - speed_.full).count();
  const auto onWay = static_cast<double>(speed_.sentAtFull) + speed_.room;
  tail_ = static_cast<std::int64_t>(onWay * static_cast<double>(took) /
                                    static_cast<double>(sent_ - speed_.sentAtFull));
}

void FtpRelay::giveRoom(int room) {
  speed_.room = room;
  setsockopt(far_.get(), SOL_SOCKET, SO_SNDBUF, reinterpret_cast<const char*>(&room), sizeof room);
}

}  // namespace win32
