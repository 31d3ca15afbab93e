#include "publish/session.h"

#include <algorithm>
#include <utility>

#include "base/disk.h"
#include "base/error.h"
#include "base/files.h"

namespace publish {
namespace {

constexpr int kMostAnswers = 3;
constexpr int kLook = 50;  // milliseconds between two looks at the stop button

bool endsConnection(Fault fault) {
  return isWorthRetrying(fault) || fault == Fault::Stopped;
}

}  // namespace

Session::Session(const Account& account, const MakeTransport& make, Talk& talk, Door& door)
    : account_(account), talk_(talk), door_(door), transport_(make(account.address)) {
  transport_->limits = account.limits;
  transport_->watch.stopped = [&talk] { return talk.stopped(); };
  transport_->watch.said = [&talk](const std::string& line) { talk.log(line); };
}

void Session::open() {
  while (!open_) {
    if (talk_.stopped()) throw Failure(Fault::Stopped);
    {
      const std::scoped_lock lock(door_.asking);
      const bool nameless = account_.address.scheme != Scheme::Sftp && !door_.login.user.empty();
      if (nameless && !door_.login.password && !askPassword()) throw Failure(Fault::Stopped);
      transport_->login = door_.login;
      transport_->trust = door_.trust;
      answers_ = door_.answers;
    }
    try {
      transport_->connect();
      open_ = true;
    } catch (const Failure& failure) {
      if (!answered(failure)) throw;
    }
  }
}

bool Session::answered(const Failure& failure) {
  const std::scoped_lock lock(door_.asking);
  // Another connection has asked meanwhile.
  if (door_.answers != answers_) return true;
  switch (failure.fault()) {
    case Fault::NewHostKey:
      return keepHostKey();
    case Fault::Certificate: {
      const Certificate certificate = transport_->certificate();
      if (certificate.key.empty() || !talk_.acceptCertificate(certificate)) return false;
      door_.trust.key = certificate.key;
      if (door_.certificateAccepted) door_.certificateAccepted(certificate.key);
      break;
    }
    case Fault::KeyFile: {
      if (door_.passphrases == kMostAnswers) return false;
      const auto answer = talk_.passphrase(door_.login.keyFile, door_.passphrases > 0);
      if (!answer) return false;
      ++door_.passphrases;
      door_.login.passphrase = *answer;
      break;
    }
    case Fault::Login:
      // A key that is named is what the user wants to come in with.
      if (!door_.login.keyFile.empty() && !door_.login.password) return false;
      if (!askPassword()) return false;
      break;
    default:
      return false;
  }
  ++door_.answers;
  return true;
}

bool Session::askPassword() {
  if (door_.passwords == kMostAnswers) return false;
  const auto answer = talk_.password(account_.address, door_.login.password.has_value());
  if (!answer) return false;
  ++door_.passwords;
  door_.login.password = *answer;
  return true;
}

bool Session::keepHostKey() {
  const HostKey key = transport_->hostKey();
  if (!talk_.acceptHostKey(key)) return false;
  std::string lines = door_.trust.hostLines;
  if (!lines.empty() && lines.back() != '\n') lines += '\n';
  lines += knownHostLine(key) + "\n";
  if (!account_.knownHosts.empty()) {
    try {
      base::writeFile(account_.knownHosts, lines);
    } catch (const base::Error& error) {
      throw Failure(Fault::LocalFile, error.what());
    }
  }
  // A key that could not be kept is not known, and is asked about again.
  door_.trust.hostLines = std::move(lines);
  ++door_.answers;
  return true;
}

void Session::pause(int milliseconds) {
  for (int waited = 0; waited < milliseconds && !talk_.stopped(); waited += kLook) {
    base::disk::pause(std::min(kLook, milliseconds - waited));
  }
}

void Session::run(const std::function<void(Transport& transport, int tried)>& work) {
  for (int tried = 0;; ++tried) {
    try {
      if (talk_.stopped()) throw Failure(Fault::Stopped);
      if (!open_) open();
      return work(*transport_, tried);
    } catch (const Failure& failure) {
      open_ = open_ && !endsConnection(failure.fault());
      if (!isWorthRetrying(failure.fault()) || tried + 1 >= account_.retry.tries || talk_.stopped()) throw;
      const int wait = pauseAfter(account_.retry, tried + 1);
      talk_.retrying(failure, wait);
      pause(wait);
    }
  }
}

}  // namespace publish
