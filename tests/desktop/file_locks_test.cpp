#include "platform/desktop/system/file_locks.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "desktop/temporary_directory.h"

namespace quorvale {
namespace {

constexpr char kTitle[] = "Screen Saver Main Form";

class TitleLockTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(chmod(directory_.Path().c_str(), S_IRWXU), 0);
    setenv("XDG_RUNTIME_DIR", directory_.Path().c_str(), 1);
  }
  void TearDown() override { unsetenv("XDG_RUNTIME_DIR"); }

  TemporaryDirectory directory_;
};

// Another process, which does its work and then waits to be killed.
class OtherProcess {
 public:
  explicit OtherProcess(const std::function<void()>& work) {
    int ends[2] = {};
    if (pipe(ends) != 0) return;
    pid_ = fork();
    if (pid_ == 0) {
      work();
      (void)!write(ends[1], "d", 1);
      while (true) pause();
    }
    char done = 0;
    close(ends[1]);
    (void)!read(ends[0], &done, 1);
    close(ends[0]);
  }
  ~OtherProcess() { Kill(); }
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;

  void Kill() {
    if (pid_ <= 0) return;
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
    pid_ = 0;
  }

 private:
  pid_t pid_ = 0;
};

TEST_F(TitleLockTest, AClaimIsSeenAndRefusesOthersUntilItIsReleased) {
  TitleLock first(":0");
  TitleLock second(":0");
  EXPECT_FALSE(second.IsClaimed(kTitle));
  for (int i = 0; i < 2; ++i) EXPECT_TRUE(first.Claim(kTitle));
  EXPECT_TRUE(first.IsClaimed(kTitle));
  EXPECT_TRUE(second.IsClaimed(kTitle));
  EXPECT_FALSE(second.IsClaimed("Another title"));
  EXPECT_FALSE(TitleLock(":1").IsClaimed(kTitle));
  EXPECT_FALSE(second.Claim(kTitle));
  second.Release(kTitle);
  EXPECT_TRUE(second.IsClaimed(kTitle));
  for (int i = 0; i < 2; ++i) first.Release(kTitle);
  EXPECT_FALSE(second.IsClaimed(kTitle));
  EXPECT_TRUE(second.Claim(kTitle));
}

// A program that the show starts lives longer than the show.
TEST_F(TitleLockTest, AStartedProgramDoesNotInheritTheClaim) {
  int words[2] = {};
  ASSERT_EQ(pipe(words), 0);
  pid_t program = 0;
  OtherProcess show([&] {
    static TitleLock claim(":0");
    claim.Claim(kTitle);
    program = fork();
    if (program == 0) {
      dup2(words[1], STDOUT_FILENO);
      execlp("sh", "sh", "-c", "echo $$; exec sleep 60", nullptr);
    }
  });
  char said[32] = {};
  ASSERT_GT(read(words[0], said, sizeof said - 1), 0);  // it runs, so it has let go of what is not its own
  close(words[0]);
  close(words[1]);
  TitleLock lock(":0");
  EXPECT_TRUE(lock.IsClaimed(kTitle));
  EXPECT_FALSE(lock.Claim(kTitle));
  show.Kill();
  EXPECT_FALSE(lock.IsClaimed(kTitle));
  EXPECT_TRUE(lock.Claim(kTitle));
  kill(std::atoi(said), SIGKILL);
}

TEST_F(TitleLockTest, ADirectoryOfOthersIsNotTrusted) {
  ASSERT_EQ(chmod(directory_.Path().c_str(), 0777), 0);
  // The place that is used instead is shared with other runs of this test.
  const std::string display = directory_.Path();
  TitleLock lock(display);
  EXPECT_TRUE(lock.Claim(kTitle));
  EXPECT_TRUE(std::filesystem::is_empty(directory_.Path()));
  EXPECT_TRUE(TitleLock(display).IsClaimed(kTitle));
}

TEST_F(TitleLockTest, WithoutAPlaceToWriteNothingIsClaimed) {
  TitleLock lock(":0");
  std::filesystem::remove(directory_.Path());
  EXPECT_FALSE(lock.Claim(kTitle));
  EXPECT_FALSE(lock.IsClaimed(kTitle));
}

}  // namespace
}  // namespace quorvale
