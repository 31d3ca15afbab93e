#include "cli/publish_words.h"

namespace cli {
namespace {

using publish::Fault;

std::string_view plain(Fault fault) {
  switch (fault) {
    case Fault::Refused:
      return "the server refuses the connection";
    case Fault::UnknownHost:
      return "there is no server of this name";
    case Fault::Login:
      return "the server does not accept user, password or key";
    case Fault::KeyFile:
      return "the private key cannot be used: wrong passphrase, or a kind that is not known";
    case Fault::KeyKind:
      return "a private key of this kind cannot be read here: use an ECDSA one (ssh-keygen -t ecdsa), or an "
             "agent";
    case Fault::Silent:
      return "the server is silent";
    case Fault::Cut:
      return "the connection was cut";
    case Fault::DiskFull:
      return "the server's disk is full";
    case Fault::NoPermission:
      return "the server gives no permission";
    case Fault::NotFound:
      return "the server knows no such file or folder";
    case Fault::Certificate:
      return "the server's certificate cannot be trusted";
    case Fault::NoEncryption:
      return "the server offers no encryption";
    case Fault::NewHostKey:
      return "the server's key is not known, and was not accepted";
    case Fault::ChangedHostKey:
      return "THE SERVER'S KEY HAS CHANGED: somebody may stand between you and the server. Nothing was sent";
    case Fault::SizeDiffers:
      return "the server holds another number of bytes than were sent";
    case Fault::ChangedMeanwhile:
      return "the server's file has changed since it was compared; it was left as it is";
    case Fault::LocalFile:
      return "a file here cannot be read or written, or was changed meanwhile";
    case Fault::Stopped:
      return "stopped";
    default:
      return "the server cannot do this";
  }
}

}  // namespace

std::string_view nameOf(publish::Change change) {
  switch (change) {
    case publish::Change::New:
      return "new";
    case publish::Change::Changed:
      return "changed";
    case publish::Change::Gone:
      return "gone";
    case publish::Change::Conflict:
      return "conflict";
    default:
      return "same";
  }
}

std::string sentenceOf(publish::AddressFault fault) {
  switch (fault) {
    case publish::AddressFault::UnknownScheme:
      return "an address begins with sftp://, ftps:// or ftp://";
    case publish::AddressFault::BadPort:
      return "a port is a number from 1 to 65535";
    case publish::AddressFault::BadCharacter:
      return "the address holds a character that is in none";
    default:
      return "the address names no server";
  }
}

std::string sentenceOf(const publish::Failure& failure) {
  std::string sentence(plain(failure.fault()));
  if (!failure.words().empty() && failure.fault() != Fault::Stopped) sentence += " (" + failure.words() + ")";
  return sentence;
}

}  // namespace cli
