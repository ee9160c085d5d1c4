// How play list files are read and written.

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

#include "desktop/temporary_directory.h"
#include "platform/desktop/system/posix_file_system.h"
#include "support/failure_of.h"

namespace {

// How many of the writes to come a signal interrupts.
int interrupted_writes = 0;

}  // namespace

// Takes the place of the C library's in this program.
extern "C" ssize_t write(int file, const void* bytes, size_t count) {
  if (interrupted_writes > 0) {
    --interrupted_writes;
    errno = EINTR;
    return -1;
  }
  return syscall(SYS_write, file, bytes, count);
}

namespace quorvale {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

class PlainFileTest : public testing::Test {
 protected:
  PlainFileTest() {
    fs::create_directory(directory_.Path("folder"));
    mkfifo(directory_.Path("pipe").c_str(), S_IRWXU);
    directory_.Write("old", "old");
    fs::permissions(directory_.Path("old"), fs::perms(0640));
    fs::create_symlink("old", directory_.Path("link"));
    fs::create_symlink("folder/new", directory_.Path("dangling"));
    fs::create_symlink("loop", directory_.Path("loop"));
  }

  // What lies in the directory, files that were left behind included.
  int CountFiles() {
    return static_cast<int>(std::distance(fs::directory_iterator(directory_.Path()), fs::directory_iterator()));
  }

  TemporaryDirectory directory_;
  PosixFileSystem files_{directory_.Path("settings"), ""};
};

TEST_F(PlainFileTest, AreReadWholeAndNothingElseIs) {
  const std::string bytes = "a\0b\r\n\xFF"s + std::string(200'000, 'x');
  directory_.Write("bytes", bytes);
  EXPECT_EQ(files_.ReadFile(directory_.Path("bytes"), std::string::npos), bytes);
  EXPECT_EQ(files_.ReadFile(directory_.Path("bytes"), 100'000), bytes.substr(0, 100'000));
  EXPECT_EQ(files_.ReadFile(directory_.Path("link"), std::string::npos), "old");
  const std::pair<std::string, FailureNumber> failures[] = {
      {"missing", FailureNumber::kNotFound},  {"old/x", FailureNumber::kNotFound},
      {"loop", FailureNumber::kNotFound},     {"old\0x"s, FailureNumber::kNotFound},
      {"folder", FailureNumber::kUnreadable}, {"pipe", FailureNumber::kUnreadable},
  };
  for (const auto& [name, number] : failures) {
    EXPECT_EQ(FailureOf([&, &path = name] { files_.ReadFile(directory_.Path(path), std::string::npos); }), number)
        << name;
  }
}

TEST_F(PlainFileTest, AreWrittenWholeThoughASignalComesInBetween) {
  interrupted_writes = 2;
  files_.WriteFile(directory_.Path("old"), "new");
  EXPECT_EQ(interrupted_writes, 0);
  EXPECT_EQ(directory_.Read("old"), "new");
}

TEST_F(PlainFileTest, AreWrittenThroughLinksAndKeepTheirMode) {
  const int count = CountFiles();
  for (const char* const name : {"old", "link", "dangling"}) {
    files_.WriteFile(directory_.Path(name), name);
    EXPECT_EQ(directory_.Read(name), name);
  }
  EXPECT_TRUE(fs::is_symlink(directory_.Path("link")));
  EXPECT_TRUE(fs::is_symlink(directory_.Path("dangling")));
  EXPECT_EQ(fs::status(directory_.Path("old")).permissions(), fs::perms(0640));
  EXPECT_EQ(CountFiles(), count) << "nothing is left beside them";

  const std::string longest = std::string(255, 'n');
  files_.WriteFile(directory_.Path(longest), "1");
  files_.WriteFile(directory_.Path(longest), "2");
  EXPECT_EQ(directory_.Read(longest), "2");
  for (const char* const name : {"folder", "pipe", "loop", "missing/x"}) {
    EXPECT_EQ(FailureOf([&] { files_.WriteFile(directory_.Path(name), ""); }), FailureNumber::kUnwritable) << name;
  }
}

TEST_F(PlainFileTest, StayWhatTheyWereUntilTheNewContentIsWhole) {
  const int count = CountFiles();
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit tight{.rlim_cur = 1000, .rlim_max = before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &tight);
  const FailureNumber number = FailureOf([&] { files_.WriteFile(directory_.Path("old"), std::string(5000, 'x')); });
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, old_handler);
  EXPECT_EQ(number, FailureNumber::kUnwritable);
  EXPECT_EQ(directory_.Read("old"), "old");
  EXPECT_EQ(CountFiles(), count);
}

// Permissions mean nothing to root, so the test runs as somebody else.
TEST_F(PlainFileTest, AreWrittenInPlaceWhereTheFolderTakesNoNewOnes) {
  constexpr uid_t kNobody = 65'534;
  const bool is_root = geteuid() == 0;
  fs::permissions(directory_.Path("old"), fs::perms(0666));
  directory_.Write("protected", "old");
  fs::permissions(directory_.Path("protected"), fs::perms(0444));
  fs::permissions(directory_.Path(), fs::perms(0555));
  if (is_root) {
    ASSERT_EQ(seteuid(kNobody), 0);
  }
  files_.WriteFile(directory_.Path("old"), "n");
  const FailureNumber protected_file = FailureOf([&] { files_.WriteFile(directory_.Path("protected"), ""); });
  const FailureNumber new_file = FailureOf([&] { files_.WriteFile(directory_.Path("new"), ""); });
  if (is_root) {
    ASSERT_EQ(seteuid(0), 0);
  }
  fs::permissions(directory_.Path(), fs::perms(0755));
  EXPECT_EQ(directory_.Read("old"), "n");
  EXPECT_EQ(protected_file, FailureNumber::kUnwritable);
  EXPECT_EQ(directory_.Read("protected"), "old");
  EXPECT_EQ(new_file, FailureNumber::kUnwritable);
}

}  // namespace
}  // namespace quorvale
