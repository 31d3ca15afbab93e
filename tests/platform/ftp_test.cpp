// The FTP adapter against servers that other people wrote or that fail on purpose;
// tests/support/ftp_servers.py.
#include "platform/win32/ftp.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
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
  const std::string local = localFile("zervo-ftp-long.bin", std::string(64 * 1024 * 1024, 'x'));
  ASSERT_TRUE(ftp.connect(real, 10, nullptr).done());
  std::uint64_t last = 0;
  const auto result = ftp.put(local, "/long", true, 10, [&](std::uint64_t sent) {
    EXPECT_GE(sent, last);
    last = sent;
    return sent == 0;  // stops with the first bytes
  });
  EXPECT_EQ(result.end, End::Stopped);
  EXPECT_GT(last, 0u);
  EXPECT_LT(last, 64u * 1024 * 1024);
  EXPECT_FALSE(ftp.connected());
  EXPECT_EQ(bytesOf(local).size(), 64u * 1024 * 1024);
  std::filesystem::remove(local);  // not held by the call that was left behind
  EXPECT_FALSE(std::filesystem::exists(local));
}

TEST_F(FtpServers, GeorgianNamesArriveAsUtf8) {
  const std::string local = localFile(L"გვერდი.htm", "x");
  ASSERT_TRUE(ftp.connect(real, 10, nullptr).done());
  EXPECT_TRUE(ftp.put(local, "/გვერდი.htm", true, 10, nullptr).done());
  EXPECT_EQ(bytesOf(std::filesystem::path(std::wstring(served.begin(), served.end())) / L"გვერდი.htm"), "x");
}

TEST_F(FtpServers, FailuresEndInTimeAndTheNextRunWorks) {
  const std::string local = localFile("zervo-ftp.htm", "x");
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

  ui::FtpServer nobody = failing;
  nobody.port = 1;
  EXPECT_EQ(ftp.connect(nobody, 5, nullptr).error, 12029);
  ASSERT_TRUE(ftp.connect(real, 5, nullptr).done());
  EXPECT_EQ(ftp.put(local + ".missing", "/a", true, 5, nullptr).error, 2);
  EXPECT_TRUE(ftp.put(local, "/a", true, 5, nullptr).done());
}

}  // namespace
