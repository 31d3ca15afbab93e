// Where a site is published: the text of an account's server field, or an address on the command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace publish {

enum class Scheme { Ftp, Ftps, Sftp };

struct Address {
  Scheme scheme = Scheme::Ftp;
  std::string user;      // empty: not said
  std::string password;  // empty: not said
  std::string host;      // of IPv6 without its brackets
  int port = 0;          // never 0 after parsing
  // With "/" in front from the server's root, else from the folder in which a login begins; no "/" at its end
  // (the root is "/").
  std::string folder;
};

enum class AddressFault { None, UnknownScheme, NoHost, BadPort, BadCharacter };

// "sftp://user@host:port/folder"; a text without "://" is plain FTP. The folder of ftp and ftps counts from
// the login's folder ("ftp://host//folder" from the root), that of sftp from the root ("sftp://host/~/folder"
// from the login's). "%41" stands for a byte. Nothing, and the fault, when it is no address.
std::optional<Address> parseAddress(std::string_view text, AddressFault& fault);

// The whole address without the password; the same for all ways of writing one address.
std::string addressText(const Address& address);

// Encryption begins with the connection and not by a command: the port that is kept for that.
bool beginsEncrypted(const Address& address);

// folder & "/" & path, both as in Address::folder.
std::string joinRemote(std::string_view folder, std::string_view path);
std::string remoteFolderOf(std::string_view path);  // empty where there is no "/"
std::string remoteName(std::string_view path);

}  // namespace publish
