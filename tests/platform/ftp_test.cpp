// The FTP adapter against servers that other people wrote or that fail on purpose;
// tests/support/ftp_servers.py.
#include "platform/win32/net/ftp.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
#include <set>
#include <sstream>

namespace {

using End = ui::FtpResult::End;

class FtpServers : public testing::Test {
 protected:
  void SetUp() override {
    const char* const told = std::getenv("ZERVO_FTP");  // two ports and the real server's folder
    if (told == nullptr) GTEST_SKIP() << "no FTP servers run";
    std::istringstream(told) >> real.port >> failing.port >> served;
    real.host = failing.host = "127.0.0.1";
    real.user = "tester";
    real.password = failing.password = "pass word";
  }
  static std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static std::string localFile(const std::filesystem::path& name, const std::string& bytes) {
    const auto path = std::filesystem::temp_directory_path() / name;
    std::ofstream(path, std::ios::binary) << bytes;
    const auto utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
  }
  ui::FtpServer real, failing;
  std::string served;
  win32::WinInetFtp ftp;
};

std::string allBytes() {
  std::string bytes;
  for (int i = 0; i < 200000; ++i) bytes += static_cast<char>(i % 251 * 7);
  return bytes;
}

TEST_F(FtpServers, FilesArriveInBothModesAndTypes) {
  const std::string local = localFile("zervo-ftp.bin", allBytes());
  const std::string text = localFile("zervo-ftp.htm", "<P>\r\nline\r\n");
  for (const bool passive : {false, true}) {
    real.passive = passive;
    ASSERT_TRUE(ftp.connect(real, 10, nullptr).done()) << passive;
    EXPECT_TRUE(ftp.connected());
    EXPECT_TRUE(ftp.put(local, "/binary", true, 10, nullptr).done());
    EXPECT_TRUE(ftp.put(text, "/text.htm", false, 10, nullptr).done());
    ftp.disconnect();
    EXPECT_FALSE(ftp.connected());
    EXPECT_EQ(bytesOf(served + "\\binary"), allBytes());
    EXPECT_EQ(bytesOf(served + "\\text.htm"), "<P>\nline\n") << "the server stores lines of its own kind";
    std::filesystem::remove(served + "\\binary");
    std::filesystem::remove(served + "\\text.htm");
  }
}

TEST_F(FtpServers, TellsHowFarItIsAndStopsOnTheWay) {
  const std::string local = localFile("zervo-ftp-long.bin", std::string(16 * 1024 * 1024, 'x'));
  ASSERT_TRUE(ftp.connect(real, 10, nullptr).done());
  std::uint64_t last = 0;
  std::chrono::steady_clock::time_point stopped;
  const auto result = ftp.put(local, "/long", true, 10, [&](std::uint64_t sent) {
    EXPECT_GE(sent, last);
    last = sent;
    if (sent != 0) stopped = std::chrono::steady_clock::now();
    return sent == 0;  // stops with the first bytes
  });
  EXPECT_EQ(result.end, End::Stopped);
  EXPECT_LT(std::chrono::steady_clock::now() - stopped, std::chrono::seconds(1));
  EXPECT_GT(last, 0u);
  EXPECT_LT(last, 16u * 1024 * 1024);
  EXPECT_FALSE(ftp.connected());
  EXPECT_EQ(bytesOf(local).size(), 16u * 1024 * 1024);
  std::filesystem::remove(local);  // not held by the call that was left behind
  EXPECT_FALSE(std::filesystem::exists(local));
}

TEST_F(FtpServers, NoCopyOfAFileStaysBehind) {
  const auto copies = [] {
    std::set<std::filesystem::path> found;
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::temp_directory_path())) {
      found.insert(entry.path());
    }
    return found;
  };
  const std::string local = localFile("zervo-ftp.bin", std::string(1024 * 1024, 'x'));
  const auto before = copies();
  ASSERT_TRUE(ftp.connect(real, 10, nullptr).done());
  for (int i = 0; i < 5; ++i) EXPECT_TRUE(ftp.put(local, "/copy", true, 10, nullptr).done());
  EXPECT_EQ(ftp.put(local, "/copy", true, 10, [](std::uint64_t) { return false; }).end, End::Stopped);
  EXPECT_EQ(copies(), before);
}

TEST_F(FtpServers, GeorgianNamesArriveAsUtf8) {
  const std::string local = localFile(L"გვერდი.htm", "x");
  ASSERT_TRUE(ftp.connect(real, 10, nullptr).done());
  EXPECT_TRUE(ftp.put(local, "/გვერდი.htm", true, 10, nullptr).done());
  EXPECT_EQ(bytesOf(std::filesystem::path(std::wstring(served.begin(), served.end())) / L"გვერდი.htm"), "x");
}

TEST_F(FtpServers, FailuresEndInTimeAndTheNextRunWorks) {
  const std::string local = localFile("zervo-ftp.htm", allBytes());
  const auto attempt = [&](const char* user, const ui::FtpWatch& watch = nullptr) {
    failing.user = user;
    const auto start = std::chrono::steady_clock::now();
    // Only who never answers is to be given up: a loaded machine may take its time.
    const int silence = std::string_view(user).starts_with("silent") ? 2 : 10;
    ui::FtpResult result = ftp.connect(failing, silence, watch);
    if (result.done()) result = ftp.put(local, "/a.htm", true, silence, watch);
    const auto took = std::chrono::steady_clock::now() - start;
    EXPECT_LT(took, std::chrono::seconds(silence + 6)) << user;
    return result;
  };
  EXPECT_TRUE(attempt("good").done());
  EXPECT_EQ(attempt("refused").words.substr(0, 3), "530");
  EXPECT_FALSE(ftp.connected());
  EXPECT_EQ(attempt("no-folder").words.substr(0, 3), "550");
  EXPECT_EQ(attempt("quota").words.substr(0, 3), "552");
  EXPECT_EQ(attempt("shutting-down").end, End::Failed);
  EXPECT_EQ(attempt("hangs-up").end, End::Failed);
  EXPECT_EQ(attempt("silent-login").end, End::Silent);
  EXPECT_EQ(attempt("silent-upload").end, End::Silent);
  int looks = 0;
  EXPECT_EQ(attempt("silent-upload", [&](std::uint64_t) { return ++looks < 20; }).end, End::Stopped);
  EXPECT_FALSE(ftp.connected());
  EXPECT_TRUE(attempt("good").done());

  EXPECT_EQ(attempt("many-lines").words, "550-First line.\r\n550 Last line.");
  EXPECT_EQ(attempt("cuts").error, 12030) << "the server says that all is well";

  ui::FtpServer nobody = failing;
  nobody.port = 1;
  EXPECT_EQ(ftp.connect(nobody, 5, nullptr).error, 12029);
  ASSERT_TRUE(ftp.connect(real, 5, nullptr).done());
  EXPECT_EQ(ftp.put(local + ".missing", "/a", true, 5, nullptr).error, 2);
  EXPECT_TRUE(ftp.put(local, "/a", true, 5, nullptr).done());
  failing.passive = true;
  EXPECT_EQ(attempt("no-data").error, 10061);
  EXPECT_TRUE(attempt("good").done()) << "the host in its reply is of an inner network";
}

// The system's own calls give up after 30 seconds, and what a slow server has not read yet is out of sight.
TEST_F(FtpServers, WhoIsSlowButAliveIsWaitedForAsLongAsIsSaid) {
  using Clock = std::chrono::steady_clock;
  const std::string local = localFile("zervo-ftp-slow.bin", std::string(640 * 1024, 'x'));
  const auto attempt = [&](const char* user, int silence) {
    return std::async(std::launch::async, [this, user, silence, local] {
      win32::WinInetFtp line;
      ui::FtpServer server = failing;
      server.user = user;
      const auto start = Clock::now();
      ui::FtpResult result = line.connect(server, silence, nullptr);
      if (result.done()) result = line.put(local, "/a", true, silence, nullptr);
      result.seconds = static_cast<int>((Clock::now() - start) / std::chrono::seconds(1));
      return result;
    });
  };
  auto lateLogin = attempt("late-login", 60), lateEnd = attempt("late-end", 60), slow = attempt("slow", 10);
  auto silent = attempt("silent-upload", 32);
  EXPECT_TRUE(lateLogin.get().done());
  EXPECT_TRUE(lateEnd.get().done());
  EXPECT_TRUE(slow.get().done()) << "20 KB a second, which take half a minute";
  const auto silentResult = silent.get();
  EXPECT_EQ(silentResult.end, End::Silent);
  EXPECT_GE(silentResult.seconds, 32);
  EXPECT_LT(silentResult.seconds, 35);
}

// A reply of the server shows in hexadecimal what it has got.
TEST_F(FtpServers, UserPasswordAndNamesArriveByteForByte) {
  const std::string local = localFile("zervo-ftp.htm", "x");
  failing.user = "bytes\xE9";
  failing.password = "\x80\x8D\xFF";
  EXPECT_EQ(ftp.connect(failing, 10, nullptr).words, "530 6279746573e9 808dff");
  for (const bool utf8 : {false, true}) {
    failing.user = utf8 ? "names-utf8" : "names";
    ASSERT_TRUE(ftp.connect(failing, 10, nullptr).done());
    bool said = !utf8;
    EXPECT_TRUE(ftp.askUtf8(said, 10, nullptr).done());
    EXPECT_EQ(said, utf8);
    const std::string words = ftp.put(local, "/caf\xE9", true, 10, nullptr).words;
    EXPECT_TRUE(words.ends_with(" 2f636166e9")) << words;
  }
}

}  // namespace
