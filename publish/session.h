// One connection of a run, with its questions and its further tries.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "publish/retry.h"
#include "publish/talk.h"
#include "publish/transport.h"

namespace publish {

// What connects to an account.
struct Account {
  Address address;  // its user and password are taken where `login` has none
  Login login;
  std::string authorities;  // certificates in PEM; empty: the system's
  std::string knownHosts;   // path of the file, made when a key is accepted
  Limits limits;
  RetryPolicy retry;
  int connections = 4;
};

// What all connections of an account share: answers count for all of them.
struct Door {
  std::mutex asking;
  Login login;
  Trust trust;
  int answers = 0;
  int passwords = 0, passphrases = 0;  // asked for
  std::function<void(const std::string& key)> certificateAccepted;
};

class Session {
 public:
  // All must outlive the session.
  Session(const Account& account, const MakeTransport& make, Talk& talk, Door& door);

  // Connects where there is no connection yet, asking where it must. Throws Failure.
  void open();
  // Does `work`, again after a pause where the connection was at fault; `tried` counts from 0.
  void run(const std::function<void(Transport& transport, int tried)>& work);
  Transport& transport() { return *transport_; }

 private:
  bool answered(const Failure& failure);
  bool askPassword();
  bool keepHostKey();
  void pause(int milliseconds);

  const Account& account_;
  Talk& talk_;
  Door& door_;
  std::unique_ptr<Transport> transport_;
  int answers_ = -1;  // of the door, that the transport knows
  bool open_ = false;
};

}  // namespace publish
