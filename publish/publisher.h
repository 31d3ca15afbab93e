// The engine: compares, then does what was chosen; and all that a look at the server's side needs.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "publish/compare.h"
#include "publish/local_files.h"
#include "publish/session.h"
#include "publish/state.h"
#include "publish/talk.h"

namespace publish {

struct Outcome {
  int sent = 0, removed = 0, failed = 0;
};

// All paths are below the account's folder, which is "". Used by one thread at a time; it starts threads of
// its own for further connections and joins them before a call returns. Functions throw Failure, and
// base::Error where the file of the state cannot be read or written.
class Publisher {
 public:
  // `stateFile`: of the account, see stateFile(); empty: nothing is kept. `talk` must outlive the object.
  Publisher(Account account, MakeTransport make, std::string stateFile, Talk& talk);
  ~Publisher();

  // Looks at both sides and changes neither.
  std::vector<Item> compare(const std::vector<LocalFile>& files);
  // Sends the items that are here and removes there those that are not; what is Same is skipped. An item
  // whose file at the server is not the one that was compared is not touched (ChangedMeanwhile). Faults of a
  // file are told to `talk` and the others go on; one of the connection ends the run with its Failure. What
  // was sent by then is kept in the state, and what is half on its way is gone on with next time.
  Outcome run(const std::vector<Item>& chosen);

  std::vector<Entry> list(const std::string& folder);
  void makeFolder(const std::string& path);
  void rename(const std::string& from, const std::string& to);  // replaces an existing file
  void remove(const std::string& path);
  void removeFolder(const std::string& path);  // an empty one
  // Whole under `target`, the path's place here, or not at all; from then on it counts as sent. The item can
  // be given to run() when `target` has been changed: it is sent only if the server's file is still the one
  // that was fetched.
  Item download(const std::string& path, const std::string& target);

 private:
  class Chatter;
  struct Batch;

  std::string remote(const std::string& path) const;
  std::string temporary(const std::string& path, const std::string& digest) const;
  std::string aside(const std::string& path) const;
  Session& session(std::size_t number);
  // Calls `task` for 0 to `count` - 1 on as many connections as are of use.
  void parallel(std::size_t count, const std::function<void(Session& session, std::size_t index)>& task);
  void walk(const std::vector<LocalFile>& files, RemoteFiles& found);
  void takeList(const std::string& folder, const std::vector<Entry>& entries, RemoteFiles& found,
                std::vector<std::string>& below);
  void tidy(const std::vector<Item>& chosen);
  void markFolders(const std::string& path);
  void makeFolders(const std::vector<Item>& chosen);
  void sendBatch(Batch& batch);
  void putBatch(Batch& batch, bool again);
  void finishBatch(Batch& batch);
  void put(Session& session, Item& item, const std::string& path);
  void replace(Transport& transport, const std::string& from, const std::string& to, bool exists);
  void removeChosen(const std::vector<Item>& chosen);
  void fail(const Item& item, const Failure& failure);
  void keepState();

  const Account account_;
  const MakeTransport make_;
  const std::string stateFile_;
  State state_;
  Door door_;
  std::unique_ptr<Chatter> talk_;
  std::vector<std::unique_ptr<Session>> sessions_;
  std::mutex results_;
  Outcome outcome_;
  // As the last comparison saw the server.
  std::map<std::string, Entry> strays_;  // files on their way, by path
  std::map<std::string, std::string>
      lost_;                             // files that were put aside and whose place is empty: place by path
  std::map<std::string, bool> folders_;  // that are there
};

}  // namespace publish
