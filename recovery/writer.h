// Writes the recovery files beside the user's work: what is given to it is on the disk soon, and nobody waits
// for that. It touches nothing but its own files.
#pragma once

#include <condition_variable>
#include <cstdio>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace recovery {

class Writer {
 public:
  Writer();
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;
  ~Writer();  // when all that was given is written

  // A new file, which nobody else may open until close(). A file that is there already is replaced.
  void create(const std::string& path);
  void append(const std::string& path, std::string bytes);
  void close(const std::string& path);
  void remove(const std::string& path);  // closes it first

  std::size_t waiting();  // bytes
  int takeError();        // of <cerrno>: of the first write that failed since the last call; 0: none
  void finish();          // waits until all that was given is on the disk

 private:
  struct Task {
    enum class Kind { Create, Append, Close, Remove } kind;
    std::string path, bytes;
  };
  void give(Task task);
  void run();
  void work(std::vector<Task>& tasks);

  std::mutex mutex_;
  std::condition_variable given_, done_;
  std::vector<Task> tasks_;
  std::size_t waiting_ = 0;
  int error_ = 0;
  bool busy_ = false, hurry_ = false, ending_ = false;
  // Of the thread alone: open files, and those of them that are not on the disk yet.
  std::map<std::string, std::FILE*> files_, touched_;
  int unflushed_ = 0;
  std::thread thread_;
};

}  // namespace recovery
