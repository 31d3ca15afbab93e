// Stands between the system's FTP calls and the server. Those calls block, show nothing of what they do, keep
// time limits of their own and tell only the last line of a reply. Here they speak to this process, so their
// progress is seen, they can be ended at any moment, and the server's whole words are known. Nothing of the
// conversation is changed but the addresses of data connections.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/win32/net/ftp_lines.h"
#include "platform/win32/net/sockets.h"

namespace win32 {

class FtpRelay : public std::enable_shared_from_this<FtpRelay> {
 public:
  // Connects to the server and begins to serve. Blocks, at worst as long as the system looks for the name;
  // call it once, from a thread of its own. A system error, 0: who connects to port() of 127.0.0.1 speaks to
  // the server.
  DWORD open(const std::string& host, int port);
  int port() const { return port_; }

  // Hangs up on both sides; every call that is under way ends.
  void cut() { cut_ = true; }
  bool alive() const { return alive_ && !cut_; }

  // Sends a command between two calls of the system; its whole reply, nothing when the line broke.
  std::optional<std::string> ask(const std::string& command);

  // Before each call of which the next five shall tell.
  void begin();
  std::uint64_t progress() const { return progress_; }  // changes with every sign of life of the server
  std::uint64_t sent() const { return sent_; }          // bytes of the file that went on their way
  // How long the server may need for what is on its way, by the speed seen so far.
  std::chrono::milliseconds tail() const { return std::chrono::milliseconds(tail_.load()); }
  DWORD error() const { return error_; }  // why the line to the server broke, 0: it did not
  bool lost() const { return lost_; }     // the server hung up on the file before it had all
  // The last refusal, all its lines; empty: there was none.
  std::string words() const;

  // The system's calls give up a reply after a time of their own: while the server is waited for, they are
  // kept awake. For systems that cannot be told how long to wait.
  void keepAwake() { keepAwake_ = true; }

 private:
  using Clock = std::chrono::steady_clock;

  DWORD connect(const std::string& host, int port);
  DWORD waitConnected();
  void serve();
  void turn();
  void pumpControl(const fd_set& readable, const fd_set& writable);
  void pumpData(const fd_set& readable, const fd_set& writable, const fd_set& failed);
  void fromClient(const std::string& line);
  void fromServer(const std::string& line);
  void listenForServer(const DataAddress& client);
  std::string listenForClient();
  void acceptData();
  void dataSent(std::size_t bytes);
  void giveRoom(int bytes);
  void closeData();
  void fail(DWORD error);

  UniqueSocket listener_, client_, server_;
  LineBuffer clientLines_, serverLines_;
  std::string toClient_, toServer_;
  Reply reply_;
  bool awaiting_ = true;  // the client has asked and has no final reply; it begins with a greeting
  Clock::time_point heard_;

  // The data connection: from the client's side to the server's.
  UniqueSocket dataListener_, near_, far_;
  bool passive_ = false;  // the client connects to our listener, we to the server; else the reverse
  bool farConnected_ = false;
  bool nearEnded_ = false;  // the client has sent all
  DataAddress target_;      // the client's, in active mode
  std::string data_;
  struct Speed {
    Clock::time_point last;        // when bytes went last
    Clock::time_point full;        // when the way was full for the first time
    std::uint64_t sentAtFull = 0;  // 0: it never was
    Clock::time_point second;      // the second that is being measured
    std::uint64_t sentBefore = 0;  // that second
    int room = 0;                  // the system's for what is on its way, bytes; 0: not set yet
  } speed_;

  std::atomic<bool> cut_ = false, alive_ = false, keepAwake_ = false, lost_ = false;
  std::atomic<std::uint64_t> progress_ = 0, sent_ = 0;
  std::atomic<std::int64_t> tail_ = 0;
  std::atomic<DWORD> error_ = 0;
  int port_ = 0;

  mutable std::mutex mutex_;
  std::condition_variable answered_;
  std::string words_;
  std::optional<std::string> question_, answer_;  // the question is taken away when it has been sent
  bool asking_ = false;
};

}  // namespace win32
