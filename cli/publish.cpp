#include "cli/publish.h"

#include <new>
#include <string_view>

#include "base/error.h"
#include "base/files.h"
#include "cli/publish_words.h"
#include "publish/host_file.h"
#include "publish/local_files.h"
#include "publish/publisher.h"

namespace cli {
namespace {

struct Wishes {
  publish::Account account;
  std::string folder;
  bool dryRun = false;
  bool removes = false;
  bool overwrites = false;
  bool verbose = false;
};

// A sentence where the words cannot be understood.
std::string parse(const std::vector<std::string>& words, Wishes& wishes) {
  std::vector<std::string> names;
  std::string authorities;
  wishes.account.knownHosts = publish::usualHostFile();
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    const std::string name = word.substr(0, word.find('='));
    const auto take = [&](std::string& into) {
      if (name.size() < word.size())
        into = word.substr(name.size() + 1);
      else if (i + 1 < words.size())
        into = words[++i];
      return !into.empty();
    };
    bool understood = true;
    if (word == "--dry-run")
      wishes.dryRun = true;
    else if (word == "--delete")
      wishes.removes = true;
    else if (word == "--overwrite")
      wishes.overwrites = true;
    else if (word == "--verbose")
      wishes.verbose = true;
    else if (name == "--key")
      understood = take(wishes.account.login.keyFile);
    else if (name == "--known-hosts")
      understood = take(wishes.account.knownHosts);
    else if (name == "--ca")
      understood = take(authorities);
    else if (name == "--timeout") {
      std::string seconds;
      understood =
          take(seconds) && seconds.size() < 5 && seconds.find_first_not_of("0123456789") == std::string::npos;
      if (understood) wishes.account.limits.silence = wishes.account.limits.connect = std::stoi(seconds);
      understood = understood && wishes.account.limits.silence > 0;
    } else if (word.starts_with("-"))
      return "unknown option: " + word;
    else
      names.push_back(word);
    if (!understood) return name + " needs a value";
  }
  if (names.size() != 2) return "publish takes an address and a folder";
  publish::AddressFault fault{};
  const auto address = publish::parseAddress(names[0], fault);
  if (!address) return names[0] + ": " + sentenceOf(fault);
  wishes.account.address = *address;
  if (address->scheme == publish::Scheme::Sftp && address->user.empty())
    return names[0] + ": the address names no user";
  wishes.folder = names[1];
  if (!authorities.empty()) wishes.account.authorities = base::readFile(authorities);
  return {};
}

class Speaker : public publish::Talk {
 public:
  Speaker(const Wishes& wishes, const Streams& streams, const Machine& machine)
      : wishes_(wishes), streams_(streams), machine_(machine) {}

  void complain(const std::string& line) const {
    const std::string whole = line + "\n";
    std::fwrite(whole.data(), 1, whole.size(), streams_.err);
  }

  void log(const std::string& line) override {
    if (wishes_.verbose) complain(line);
  }
  void failed(const publish::Item& item, const publish::Failure& why) override {
    complain(item.path + ": " + sentenceOf(why));
  }
  void retrying(const publish::Failure& why, int milliseconds) override {
    complain(sentenceOf(why) + "; trying again in " + std::to_string((milliseconds + 999) / 1000) + " s");
  }
  bool acceptCertificate(const publish::Certificate& certificate) override {
    complain("The server's certificate cannot be trusted: " + certificate.why + "\n  for " +
             certificate.subject + "\n  by " + certificate.issuer + "\n  until " + certificate.ends + "\n  " +
             certificate.fingerprint);
    return agreed("Trust it for this account from now on? (yes/no) ");
  }
  bool acceptHostKey(const publish::HostKey& key) override {
    complain("The server " + key.host + " was never met before. Its key:\n  " + key.type + " " +
             publish::fingerprint(key));
    return agreed("Is this the server's key? (yes/no) ");
  }
  std::optional<std::string> password(const publish::Address& address, bool again) override {
    if (!again && machine_.password) return machine_.password;
    return machine_.ask((again ? "That was not accepted. Password for " : "Password for ") +
                            publish::addressText(address) + ": ",
                        false);
  }
  std::optional<std::string> passphrase(const std::string& keyFile, bool again) override {
    return machine_.ask((again ? "That was not right. Passphrase of " : "Passphrase of ") + keyFile + ": ",
                        false);
  }

 private:
  bool agreed(const std::string& prompt) const { return machine_.ask(prompt, true) == "yes"; }

  const Wishes& wishes_;
  const Streams& streams_;
  const Machine& machine_;
};

int work(const Wishes& wishes, const Streams& streams, Speaker& speaker, const Machine& machine) {
  publish::Publisher publisher(wishes.account, machine.connect,
                               publish::stateFile(wishes.folder, wishes.account.address), speaker);
  std::vector<publish::Item> items = publisher.compare(publish::localFiles(wishes.folder));
  std::vector<publish::Item> chosen;
  bool left = false;
  for (publish::Item& item : items) {
    const std::string line = std::string(nameOf(item.change)) + " " + item.path + "\n";
    std::fwrite(line.data(), 1, line.size(), streams.out);
    const bool conflict = item.change == publish::Change::Conflict;
    const bool removes = !item.here;
    if ((conflict && !wishes.overwrites) || (removes && !wishes.removes)) {
      left = left || conflict;
      continue;
    }
    chosen.push_back(std::move(item));
  }
  if (std::fflush(streams.out) != 0) return kNoReadWrite;
  if (!wishes.dryRun) {
    const publish::Outcome outcome = publisher.run(chosen);
    if (outcome.failed > 0) return kNoReadWrite;
  }
  return left ? kUncertain : kDone;
}

}  // namespace

int publish(const std::vector<std::string>& words, const Streams& streams, const Machine& machine) {
  Wishes wishes;
  Speaker speaker(wishes, streams, machine);
  try {
    const std::string fault = parse(words, wishes);
    if (!fault.empty()) {
      speaker.complain("zervo-cli: " + fault);
      return kUsage;
    }
    return work(wishes, streams, speaker, machine);
  } catch (const publish::Failure& failure) {
    speaker.complain(publish::addressText(wishes.account.address) + ": " + sentenceOf(failure));
  } catch (const base::Error& error) {
    speaker.complain(error.what());
  } catch (const std::bad_alloc&) {
    speaker.complain("there is not enough memory");
  }
  return kNoReadWrite;
}

}  // namespace cli
