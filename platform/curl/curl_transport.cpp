#include "platform/curl/curl_transport.h"

#include <curl/curl.h>
#ifndef _WIN32
#include <sys/socket.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <array>
#include <chrono>
#include <exception>
#include <set>
#include <string>
#include <utility>

#include "base/disk.h"
#include "base/error.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"
#include "platform/curl/certificate.h"
#include "platform/curl/faults.h"
#include "platform/curl/handles.h"
#include "platform/curl/key_file.h"
#include "platform/curl/temporary_file.h"
#include "publish/digest.h"
#include "publish/listing.h"
#include "publish/retry.h"

namespace platform {
namespace {

using publish::Failure;
using publish::Fault;
using publish::Scheme;
using Clock = std::chrono::steady_clock;

// What the system may hold of a file that is sent: little enough that its way out is seen, enough for far
// servers.
constexpr int kSendBuffer = 256 << 10;
constexpr long kPieces = 512L << 10U;
// Bytes a second: what the slowest server takes of that when all is handed over.
constexpr std::int64_t kSlowest = 4096;
constexpr std::string_view kProbe = ".room";  // behind a name, while it is asked whether there is room
constexpr long kMargin = 10;                  // seconds; the library's own limits come after ours
// Seconds. Where no limit is set, the library waits for the end of an SFTP upload without ever sleeping.
constexpr long kLongestTransfer = 1000000;

// For a command of SFTP.
std::string quoted(const std::string& path) {
  std::string text = "\"";
  for (const char c : path) {
    if (c == '"' || c == '\\') text += '\\';
    text += c;
  }
  return text + "\"";
}

std::int64_t secondsNow() {
  return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch())
      .count();
}

class CurlTransport : public publish::Transport {
 public:
  explicit CurlTransport(publish::Address address) : address_(std::move(address)) {
    beginLibrary();
    renew();
  }

  void connect() override {
    // What was answered meanwhile counts for a new connection.
    renew();
    if (address_.scheme == Scheme::Sftp) {
      // A key that cannot be used is told before the server is asked.
      publicKey_ = publicKeyOf(login);
      publish::HostKey host;
      host.host = address_.host;
      host.port = address_.port;
      // Of the known keys: the library asks the server for one of these kinds.
      const TemporaryFile hosts(publish::linesOf(trust.hostLines, host), ".hosts");
      begin("");
      set(CURLOPT_NOBODY, 1L);
      if (!hosts.path().empty()) set(CURLOPT_SSH_KNOWNHOSTS, hosts.path().c_str());
      perform("connect");
    } else {
      try {
        commands({}, "connect");
      } catch (const Failure&) {
        if (!handshakeFailed_ || newestTls_) throw;
        newestTls_ = true;
        renew();
        commands({}, "connect");
      }
    }
  }

  std::vector<publish::Entry> list(const std::string& folder) override {
    if (address_.scheme == Scheme::Sftp) return publish::parseListing(listed(folder, nullptr), secondsNow());
    if (lists_ == Lists::Facts) {
      try {
        return publish::parseListing(listed(folder, "MLSD"), secondsNow());
      } catch (const Failure& failure) {
        // The command is unknown; or it was refused in another way, and the older one tells why.
        if (failure.fault() != Fault::Other && failure.fault() != Fault::NoPermission) throw;
        lists_ = Lists::Lines;
      }
    }
    // Names with a dot in front are left out by some servers unless they are asked for, and others take "-a"
    // for a name. Who has understood it shows the folder itself.
    try {
      const std::string lines = listed(folder, "LIST -a");
      for (const std::string& line : base::split(lines, "\n")) {
        if (line.ends_with(" .") || line.ends_with(" .\r")) {
          return publish::parseListing(lines, secondsNow());
        }
      }
    } catch (const Failure& failure) {
      if (publish::Fault::Other != failure.fault() && failure.fault() != Fault::NoPermission &&
          failure.fault() != Fault::NotFound) {
        throw;
      }
    }
    return publish::parseListing(listed(folder, "LIST"), secondsNow());
  }

  void put(const std::string& path, std::int64_t offset, std::int64_t size,
           const std::function<std::size_t(char*, std::size_t)>& read) override {
    begin(path);
    read_ = &read;
    path_ = path;
    left_ = size - offset;
    begun_ = false;
    set(CURLOPT_UPLOAD, 1L);
    set(CURLOPT_READFUNCTION, &CurlTransport::onRead);
    set(CURLOPT_READDATA, this);
    set(CURLOPT_SEEKFUNCTION, &CurlTransport::onSeek);
    set(CURLOPT_SEEKDATA, this);
    set(CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(size));
    set(CURLOPT_RESUME_FROM_LARGE, static_cast<curl_off_t>(offset));
    perform("put " + path);
  }

  void get(const std::string& path, const std::function<void(std::string_view)>& take) override {
    begin(path);
    take_ = &take;
    perform("get " + path);
  }

  void makeFolder(const std::string& path) override { command("MKD ", "mkdir ", path); }
  void remove(const std::string& path) override { command("DELE ", "rm ", path); }
  void removeFolder(const std::string& path) override { command("RMD ", "rmdir ", path); }
  void rename(const std::string& from, const std::string& to) override {
    if (address_.scheme == Scheme::Sftp)
      commands({"rename " + quoted(from) + " " + quoted(to)}, "rename " + from + " " + to);
    else
      commands({"RNFR " + from, "RNTO " + to}, "rename " + from + " " + to);
  }
  // The library's version of SFTP has no renaming onto a file.
  bool renameReplaces() const override { return address_.scheme != Scheme::Sftp; }

  publish::HostKey hostKey() const override { return hostKey_; }

  publish::Certificate certificate() override {
    // A connection of its own and by nobody's name: what is not trusted gets no password.
    CurlTransport asker(address_);
    asker.limits = limits;
    asker.watch = watch;
    asker.login.user = "anonymous";
    asker.login.password = "";
    return asker.presented(why_);
  }

 private:
  enum class Lists { Facts, Lines };

  // Without the connection there was.
  void renew() {
    handle_.reset(curl_easy_init());
    connections_.reset(curl_multi_init());
  }

  template <class Value>
  void set(CURLoption option, Value value) {
    curl_easy_setopt(handle_.get(), option, value);
  }

  std::string urlOf(const std::string& path) const {
    const bool sftp = address_.scheme == Scheme::Sftp;
    std::string url = sftp ? "sftp://" : publish::beginsEncrypted(address_) ? "ftps://" : "ftp://";
    const bool numbers = address_.host.find(':') != std::string::npos;
    url += numbers ? "[" + address_.host + "]" : address_.host;
    url += ":" + std::to_string(address_.port) + "/";
    if (sftp && !path.starts_with("/")) url += "~/";
    std::string_view rest = path;
    if (rest.starts_with("/")) {
      if (!sftp) url += "%2F";
      rest.remove_prefix(1);
    }
    for (const char c : rest) {
      const auto byte = static_cast<unsigned char>(c);
      const bool plain = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
                         (byte >= '0' && byte <= '9') ||
                         std::string_view("/-_.~").find(c) != std::string_view::npos;
      if (plain) {
        url += c;
      } else {
        url += '%';
        url += base::upperAscii(publish::hex(std::string_view(&c, 1)));
      }
    }
    return url;
  }

  void begin(const std::string& path) {
    curl_easy_reset(handle_.get());
    read_ = nullptr;
    take_ = nullptr;
    left_ = -1;
    body_.clear();
    header_.clear();
    reply_.clear();
    thrown_ = nullptr;
    silent_ = false;
    keyTrouble_ = false;
    hostKeyFault_ = Fault::None;
    words_[0] = '\0';
    lastSign_ = Clock::now();
    lastMoved_ = 0;
    set(CURLOPT_URL, urlOf(path).c_str());
    set(CURLOPT_PROTOCOLS_STR, "ftp,ftps,sftp");
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_PROXY, "");
    set(CURLOPT_ERRORBUFFER, words_.data());
    set(CURLOPT_CONNECTTIMEOUT, static_cast<long>(limits.connect));
    set(CURLOPT_SERVER_RESPONSE_TIMEOUT, limits.silence + kSendBuffer / kSlowest + kMargin);
    set(CURLOPT_TIMEOUT, kLongestTransfer);
    set(CURLOPT_NOPROGRESS, 0L);
    set(CURLOPT_XFERINFOFUNCTION, &CurlTransport::onProgress);
    set(CURLOPT_XFERINFODATA, this);
    set(CURLOPT_VERBOSE, 1L);
    set(CURLOPT_DEBUGFUNCTION, &CurlTransport::onDebug);
    set(CURLOPT_DEBUGDATA, this);
    set(CURLOPT_WRITEFUNCTION, &CurlTransport::onWrite);
    set(CURLOPT_WRITEDATA, this);
    set(CURLOPT_HEADERFUNCTION, &CurlTransport::onHeader);
    set(CURLOPT_HEADERDATA, this);
    set(CURLOPT_SOCKOPTFUNCTION, &CurlTransport::onSocket);
    set(CURLOPT_SOCKOPTDATA, this);
    set(CURLOPT_CLOSESOCKETFUNCTION, &CurlTransport::onClose);
    set(CURLOPT_CLOSESOCKETDATA, this);
    set(CURLOPT_UPLOAD_BUFFERSIZE, kPieces);
    set(CURLOPT_BUFFERSIZE, kPieces);
    set(CURLOPT_TCP_NODELAY, 1L);
    set(CURLOPT_USERNAME, login.user.c_str());
    if (login.password) set(CURLOPT_PASSWORD, login.password->c_str());
    if (address_.scheme == Scheme::Sftp)
      beginSsh();
    else
      beginFtp();
  }

  void beginSsh() {
    long kinds = 0;
    if (!login.keyFile.empty()) {
      kinds |= CURLSSH_AUTH_PUBLICKEY;
      set(CURLOPT_SSH_PRIVATE_KEYFILE, login.keyFile.c_str());
      if (publicKey_ && !publicKey_->path().empty()) {
        set(CURLOPT_SSH_PUBLIC_KEYFILE, publicKey_->path().c_str());
      }
      set(CURLOPT_KEYPASSWD, login.passphrase.c_str());
    }
    if (login.password) kinds |= CURLSSH_AUTH_PASSWORD | CURLSSH_AUTH_KEYBOARD;
    if (login.agent || kinds == 0) kinds |= CURLSSH_AUTH_AGENT;
    set(CURLOPT_SSH_AUTH_TYPES, kinds);
    set(CURLOPT_SSH_HOSTKEYFUNCTION, &CurlTransport::onHostKey);
    set(CURLOPT_SSH_HOSTKEYDATA, this);
  }

  void beginFtp() {
    if (login.user.empty()) {
      set(CURLOPT_USERNAME, "anonymous");
      set(CURLOPT_PASSWORD, "");
    }
    set(CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_NOCWD));
    set(CURLOPT_TRANSFERTEXT, 0L);
    if (address_.scheme == Scheme::Ftp) return;
    // A server of TLS 1.3 sends tickets when the handshake has ended. They reach a data connection that has
    // been closed after a short file, the system answers with a reset, and the server loses what it has not
    // read.
    set(CURLOPT_SSLVERSION,
        static_cast<long>(CURL_SSLVERSION_TLSv1_2) |
            static_cast<long>(newestTls_ ? CURL_SSLVERSION_MAX_DEFAULT : CURL_SSLVERSION_MAX_TLSv1_2));
    // What nearly every server takes comes first: a wrong guess costs a round trip at each data connection.
    set(CURLOPT_SSL_EC_CURVES, "P-256:X25519:P-384:P-521");
    set(CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_ALL));
    set(CURLOPT_FTPSSLAUTH, static_cast<long>(CURLFTPAUTH_TLS));
    set(CURLOPT_SSL_OPTIONS, static_cast<long>(CURLSSLOPT_REVOKE_BEST_EFFORT));
    if (!trust.key.empty()) {
      set(CURLOPT_SSL_VERIFYPEER, 0L);
      set(CURLOPT_SSL_VERIFYHOST, 0L);
      set(CURLOPT_PINNEDPUBLICKEY, trust.key.c_str());
    } else if (!trust.authorities.empty()) {
      curl_blob blob{};
      blob.data = trust.authorities.data();
      blob.len = trust.authorities.size();
      blob.flags = CURL_BLOB_COPY;
      set(CURLOPT_CAINFO_BLOB, &blob);
    }
  }

  // `what`: for the log, where the protocol shows nothing of itself.
  void perform(const std::string& what) {
    if (watch.stopped()) throw Failure(Fault::Stopped);
    if (address_.scheme == Scheme::Sftp) watch.said("> " + what);
    lastSign_ = Clock::now();
    const CURLcode code =
        performed(connections_.get(), handle_.get(), read_ == nullptr && address_.scheme == Scheme::Ftps);
    if (thrown_) {
      hangUp();
      std::rethrow_exception(thrown_);
    }
    handshakeFailed_ = code == CURLE_SSL_CONNECT_ERROR;
    if (code == CURLE_OK) return;
    std::string words = words_[0] != '\0' ? std::string(words_.data()) : curl_easy_strerror(code);
    if (reply_.size() > 3 && reply_[0] >= '4') words = reply_;
    watch.said("< " + words);
    const Fault fault = judged(code, words);
    if (fault == Fault::Stopped || publish::isWorthRetrying(fault)) hangUp();
    throw Failure(fault, words);
  }

  // The library would say good-bye when it closes a connection, and wait a minute for the answer of a server
  // that has none.
  void hangUp() {
    constexpr int kBothWays = 2;
    for (const curl_socket_t socket : sockets_) shutdown(socket, kBothWays);
  }

  Fault judged(CURLcode code, const std::string& words) {
    if (watch.stopped()) return Fault::Stopped;
    if (silent_) return Fault::Silent;
    if (hostKeyFault_ != Fault::None) return hostKeyFault_;
    if (keyTrouble_ && code == CURLE_LOGIN_DENIED) return Fault::KeyFile;
    const bool tls = address_.scheme == Scheme::Ftps;
    if (tls && (code == CURLE_PEER_FAILED_VERIFICATION || code == CURLE_SSL_PINNEDPUBKEYNOTMATCH)) {
      why_ = words;
      return Fault::Certificate;
    }
    const bool reply = !reply_.empty() && reply_[0] >= '4';
    const Fault fault = faultOf(address_.scheme, code, reply ? reply_ : std::string_view(), words);
    // A full disk has no word in this version of SFTP, and in FTP it comes too late to be heard.
    if (fault == Fault::Cut && read_ != nullptr) {
      const bool unheard = code == CURLE_SEND_ERROR && !path_.ends_with(kProbe);
      if (address_.scheme == Scheme::Sftp ? isFull() : unheard && hasNoRoom(path_)) return Fault::DiskFull;
    }
    return fault;
  }

  bool isFull() {
    try {
      commands({"statvfs " + quoted(address_.folder.empty() ? "." : address_.folder)}, "statvfs");
    } catch (const Failure&) {
      return false;
    }
    for (const std::string& line : base::split(header_, "\n")) {
      if (line.starts_with("f_bavail: ")) return base::trimSpaces(line.substr(10)) == "0";
    }
    return false;
  }

  // Asked with a piece that is sent whole before the server answers.
  bool hasNoRoom(const std::string& path) {
    constexpr std::int64_t kPiece = 4096;
    const std::string probe = path + std::string(kProbe);
    bool full = false;
    try {
      std::int64_t sent = 0;
      put(probe, 0, kPiece, [&](char* buffer, std::size_t room) {
        const std::size_t size = std::min(room, static_cast<std::size_t>(kPiece - sent));
        std::fill_n(buffer, size, '\0');
        sent += static_cast<std::int64_t>(size);
        return size;
      });
    } catch (const Failure& failure) {
      full = failure.fault() == Fault::DiskFull;
    }
    try {
      remove(probe);
    } catch (const Failure&) {
      return full;  // the next run takes it away
    }
    return full;
  }

  void commands(const std::vector<std::string>& lines, const std::string& what) {
    begin("");
    List list;
    // Names are UTF-8; servers that know nothing of it refuse, which does not matter.
    if (lines.empty() && address_.scheme != Scheme::Sftp) append(list, "*OPTS UTF8 ON");
    for (const std::string& line : lines) append(list, line);
    set(CURLOPT_NOBODY, 1L);
    if (list) set(CURLOPT_QUOTE, list.get());
    perform(what);
  }

  void command(const char* ftp, const char* sftp, const std::string& path) {
    const bool ssh = address_.scheme == Scheme::Sftp;
    commands({ssh ? sftp + quoted(path) : ftp + path}, sftp + path);
  }

  std::string listed(const std::string& folder, const char* request) {
    begin(folder.empty() || folder.ends_with("/") ? folder : folder + "/");
    if (request != nullptr) set(CURLOPT_CUSTOMREQUEST, request);
    perform("list " + folder);
    return std::move(body_);
  }

  publish::Certificate presented(const std::string& why) {
    begin("");
    set(CURLOPT_NOBODY, 1L);
    set(CURLOPT_SSL_VERIFYPEER, 0L);
    set(CURLOPT_SSL_VERIFYHOST, 0L);
    set(CURLOPT_CERTINFO, 1L);
    performed(connections_.get(), handle_.get(), false);
    if (watch.stopped()) throw Failure(Fault::Stopped);
    publish::Certificate found;
    found.why = why;
    curl_certinfo* chain = nullptr;
    if (curl_easy_getinfo(handle_.get(), CURLINFO_CERTINFO, &chain) != CURLE_OK || chain == nullptr ||
        chain->num_of_certs < 1) {
      return found;
    }
    for (const curl_slist* at = chain->certinfo[0]; at != nullptr; at = at->next) {
      const std::string_view line = at->data;
      const auto take = [&](std::string_view name, std::string& into) {
        if (line.starts_with(name)) into = line.substr(name.size());
      };
      take("Subject:", found.subject);
      take("Issuer:", found.issuer);
      take("Expire date:", found.ends);
      if (!line.starts_with("Cert:")) continue;
      const std::string bytes = certificateBytes(line);
      const std::string key = publicKeyIn(bytes);
      if (key.empty()) continue;
      found.fingerprint = "SHA256:" + publish::hex(publish::sha256(bytes));
      found.key = "sha256//" + publish::base64(publish::sha256(key));
    }
    return found;
  }

  void sign() { lastSign_ = Clock::now(); }

  static CurlTransport& self(void* data) { return *static_cast<CurlTransport*>(data); }

  static int onProgress(void* data, curl_off_t, curl_off_t down, curl_off_t, curl_off_t up) {
    CurlTransport& me = self(data);
    if (me.watch.stopped()) return 1;
    if (down + up != me.lastMoved_) {
      me.lastMoved_ = down + up;
      me.sign();
    }
    // What was handed over lately may still be on its way.
    const std::int64_t held = me.left_ == 0 ? std::min<std::int64_t>(up, kSendBuffer) : 0;
    const std::int64_t more = std::min<std::int64_t>(held / kSlowest, 2LL * me.limits.silence);
    const auto limit = std::chrono::seconds(me.limits.silence + more);
    me.silent_ = Clock::now() - me.lastSign_ > limit;
    return me.silent_ ? 1 : 0;
  }

  static int onDebug(CURL*, curl_infotype kind, char* bytes, std::size_t size, void* data) {
    CurlTransport& me = self(data);
    std::string line(bytes, size);
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
    if (kind == CURLINFO_HEADER_IN) {
      me.sign();
      if (me.address_.scheme == Scheme::Sftp) return 0;
      me.reply_ = line;
      me.watch.said("< " + line);
    } else if (kind == CURLINFO_HEADER_OUT) {
      me.watch.said("> " + (line.starts_with("PASS ") ? std::string("PASS ***") : line));
    } else if (kind == CURLINFO_TEXT) {
      const auto tells = [&](const char* of) { return line.find(of) != std::string::npos; };
      if (tells("key authentication failed") &&
          (tells("passphrase") || tells("private key") || tells("Callback"))) {
        me.keyTrouble_ = true;
      }
    } else if (kind == CURLINFO_DATA_IN || kind == CURLINFO_SSL_DATA_IN) {
      me.sign();
    }
    return 0;
  }

  static std::size_t onRead(char* buffer, std::size_t size, std::size_t count, void* data) {
    CurlTransport& me = self(data);
    me.begun_ = true;
    try {
      const std::size_t got = (*me.read_)(buffer, size * count);
      me.left_ -= static_cast<std::int64_t>(got);
      return got;
    } catch (...) {
      me.thrown_ = std::current_exception();
      return CURL_READFUNC_ABORT;
    }
  }

  // The source stands where it is to begin.
  static int onSeek(void* data, curl_off_t, int) {
    return self(data).begun_ ? CURL_SEEKFUNC_FAIL : CURL_SEEKFUNC_OK;
  }

  static std::size_t onWrite(char* bytes, std::size_t size, std::size_t count, void* data) {
    CurlTransport& me = self(data);
    me.sign();
    try {
      if (me.take_ != nullptr)
        (*me.take_)({bytes, size * count});
      else
        me.body_.append(bytes, size * count);
      return size * count;
    } catch (...) {
      me.thrown_ = std::current_exception();
      return 0;
    }
  }

  static std::size_t onHeader(char* bytes, std::size_t size, std::size_t count, void* data) {
    self(data).header_.append(bytes, size * count);
    return size * count;
  }

  static int onClose(void* data, curl_socket_t socket) {
    self(data).sockets_.erase(socket);
#ifdef _WIN32
    return closesocket(socket);
#else
    return close(socket);
#endif
  }

  static int onSocket(void* data, curl_socket_t socket, curlsocktype) {
    self(data).sockets_.insert(socket);
    const int size = kSendBuffer;
    setsockopt(socket, SOL_SOCKET, SO_SNDBUF, reinterpret_cast<const char*>(&size), sizeof size);
    return CURL_SOCKOPT_OK;
  }

  static int onHostKey(void* data, int, const char* key, std::size_t size) {
    CurlTransport& me = self(data);
    me.hostKey_ = {me.address_.host, me.address_.port, {}, std::string(key, size)};
    // The key begins with the length and the name of its kind.
    if (size > 4 && static_cast<unsigned char>(key[3]) <= size - 4) {
      me.hostKey_.type.assign(key + 4, static_cast<unsigned char>(key[3]));
    }
    const publish::Acquaintance known = publish::lookUp(me.trust.hostLines, me.hostKey_);
    if (known == publish::Acquaintance::Known) return CURLKHMATCH_OK;
    me.hostKeyFault_ = known == publish::Acquaintance::Unknown ? Fault::NewHostKey : Fault::ChangedHostKey;
    return CURLKHMATCH_MISMATCH;
  }

  const publish::Address address_;
  std::set<curl_socket_t> sockets_;
  Connections connections_;
  Handle handle_;
  Lists lists_ = Lists::Facts;
  bool newestTls_ = false;        // asked of a server that takes nothing older
  bool handshakeFailed_ = false;  // in the last request
  publish::HostKey hostKey_;
  std::unique_ptr<TemporaryFile> publicKey_;
  std::string why_;
  // Of the request that runs.
  const std::function<std::size_t(char*, std::size_t)>* read_ = nullptr;
  const std::function<void(std::string_view)>* take_ = nullptr;
  std::int64_t left_ = -1;  // bytes to send; -1: none
  bool begun_ = false;      // reading
  std::string path_, body_, header_, reply_;
  std::array<char, CURL_ERROR_SIZE> words_{};
  std::exception_ptr thrown_;
  bool silent_ = false, keyTrouble_ = false;
  Fault hostKeyFault_ = Fault::None;
  Clock::time_point lastSign_;
  std::int64_t lastMoved_ = 0;
};

}  // namespace

std::unique_ptr<publish::Transport> makeCurlTransport(const publish::Address& address) {
  return std::make_unique<CurlTransport>(address);
}

}  // namespace platform
