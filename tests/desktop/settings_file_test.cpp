// The registry's file under what befalls it: writers at once, a kill in mid-write, damage, no place to write.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <ctime>
#include <filesystem>

#include "desktop/temporary_directory.h"
#include "platform/desktop/system/files.h"
#include "platform/desktop/system/sqlite_registry.h"
#include "settings/reg_settings.h"

namespace quorvale {
namespace {

constexpr char kMissing[] = "(missing)";

std::string KeyOf(int number) { return "File" + std::to_string(number); }

// A value that shows by itself whether it is whole.
std::string ValueOf(int number) { return std::string(511, static_cast<char>('a' + number % 26)) + "."; }

std::string Replaced(std::string text, const std::string& old_piece, const std::string& new_piece) {
  return text.replace(text.find(old_piece), old_piece.size(), new_piece);
}

// Runs `work` in a process of its own, which ends with its result.
pid_t Fork(const std::function<int()>& work) {
  const pid_t child = fork();
  if (child == 0) _exit(work());
  return child;
}

int StatusOf(pid_t child) {
  int status = -1;
  waitpid(child, &status, 0);
  return status;
}

// The settings of a directory.
struct Store {
  explicit Store(const std::string& directory) : registry(directory) {}

  SqliteRegistry registry;
  CRegSettings settings{registry};
};

class SettingsFileTest : public testing::Test {
 protected:
  bool Save(const std::string& key, const std::string& value) {
    return Store(directory_.Path()).settings.SaveSetting("Options", key, value);
  }
  std::string Get(const std::string& key) {
    return Store(directory_.Path()).settings.GetSetting("Options", key, kMissing);
  }
  std::vector<std::string> FilesAside() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory_.Path())) {
      const std::string name = entry.path().filename();
      if (name.find("damaged") != std::string::npos) names.push_back(name);
    }
    return names;
  }

  TemporaryDirectory directory_;
};

constexpr int kWriters = 6;
constexpr int kValues = 100;

// They also create the file at once.
TEST_F(SettingsFileTest, ProcessesWriteAtOnce) {
  std::vector<pid_t> children(kWriters);
  for (int writer = 0; writer < kWriters; ++writer) {
    children[writer] = Fork([&] {
      Store store(directory_.Path());
      int failures = 0;
      for (int i = 0; i < kValues; ++i) {
        const int number = writer * kValues + i;
        if (!store.settings.SaveSetting("Options", KeyOf(number), ValueOf(number))) ++failures;
        if (store.settings.GetSetting("Options", KeyOf(number)) != ValueOf(number)) ++failures;
      }
      return failures;
    });
  }
  for (const pid_t child : children) EXPECT_EQ(StatusOf(child), 0);
  for (int number = 0; number < kWriters * kValues; ++number) EXPECT_EQ(Get(KeyOf(number)), ValueOf(number)) << number;
  EXPECT_THAT(FilesAside(), testing::IsEmpty());
}

// A list as OK saves it: all of it or nothing, under a kill and on a full disk.
class SavedTogetherTest : public SettingsFileTest {
 protected:
  static constexpr int kEntries = 300;

  static bool SaveList(CRegSettings& settings, int round) {
    return settings.SaveTogether([&] {
      settings.DeleteSetting("List");
      for (int i = 0; i < kEntries; ++i) settings.SaveSetting("List", KeyOf(i), ValueOf(round));
    });
  }
  bool SaveList(int round) {
    Store store(directory_.Path());
    return SaveList(store.settings, round);
  }
  // The round whose list is stored; -1 for anything but a whole list.
  int StoredRound() {
    Store store(directory_.Path());
    const std::string first = store.settings.GetSetting("List", KeyOf(0));
    for (int i = 1; i < kEntries; ++i) {
      if (store.settings.GetSetting("List", KeyOf(i)) != first) return -1;
    }
    return first.empty() ? -1 : first[0] - 'a';
  }
};

TEST_F(SavedTogetherTest, AKillLeavesTheOldListOrTheNew) {
  for (int milliseconds = 0; milliseconds < 40; milliseconds += 2) {
    ASSERT_TRUE(SaveList(0));
    const pid_t child = Fork([&]() -> int {
      Store store(directory_.Path());
      for (int round = 1;; round = round % 20 + 1) SaveList(store.settings, round);
    });
    usleep(1000 * static_cast<unsigned>(milliseconds));
    kill(child, SIGKILL);
    EXPECT_TRUE(WIFSIGNALED(StatusOf(child)));
    EXPECT_GE(StoredRound(), 0) << milliseconds;
  }
}

TEST_F(SavedTogetherTest, AFullDiskOrALockLeavesTheOldList) {
  ASSERT_TRUE(SaveList(3));
  const pid_t child = Fork([&] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit most{100'000, 100'000};
    setrlimit(RLIMIT_FSIZE, &most);
    Store store(directory_.Path());
    if (SaveList(store.settings, 4)) return 1;
    return store.settings.GetSetting("List", KeyOf(kEntries - 1)) == ValueOf(3) ? 0 : 2;
  });
  EXPECT_EQ(StatusOf(child), 0);
  EXPECT_EQ(StoredRound(), 3);

  SqliteDatabase other(directory_.Path("settings.db"), SQLITE_OPEN_READWRITE);
  other.Execute("BEGIN IMMEDIATE");
  Store store(directory_.Path());
  EXPECT_FALSE(SaveList(store.settings, 5));
  other.Execute("COMMIT");
  EXPECT_EQ(StoredRound(), 3);
  EXPECT_TRUE(SaveList(store.settings, 5));
  EXPECT_EQ(StoredRound(), 5);
  EXPECT_THAT(FilesAside(), testing::IsEmpty());
}

// Deleting the old rows before the new ones are written took twice the time of a first save.
TEST_F(SavedTogetherTest, AListIsReplacedAsFastAsItIsStored) {
  std::clock_t fastest[2] = {};  // a first save, and one that replaces it
  for (int attempt = 0; attempt < 4; ++attempt) {
    Store store(directory_.Path(std::to_string(attempt)));
    for (std::clock_t& fast : fastest) {
      const std::clock_t start = std::clock();
      ASSERT_TRUE(store.settings.SaveTogether([&] {
        store.settings.DeleteSetting("List");
        for (int i = 0; i < 3000; ++i) store.settings.SaveSetting("List", KeyOf(i), ValueOf(i + attempt));
      }));
      const std::clock_t taken = std::clock() - start;
      if (attempt == 0 || taken < fast) fast = taken;
    }
  }
  EXPECT_LT(static_cast<double>(fastest[1]), 1.5 * static_cast<double>(fastest[0]));
}

TEST_F(SettingsFileTest, IsTheOwnersAlone) {
  ASSERT_TRUE(Save("Interval", "7"));
  SqliteRegistry open(directory_.Path());
  ASSERT_EQ(CRegSettings(open).GetSetting("Options", "Interval"), "7");
  for (const auto& entry : std::filesystem::directory_iterator(directory_.Path())) {
    EXPECT_EQ(entry.status().permissions(), std::filesystem::perms(0600)) << entry.path();
  }
}

// Modes bind nobody but an ordinary user. With a write-ahead log that a killed program left, and without one.
TEST_F(SettingsFileTest, IsReadWhereNothingCanBeWritten) {
  for (const bool with_log : {false, true}) {
    SCOPED_TRACE(with_log);
    const TemporaryDirectory place;
    const std::string directory = place.Path("100% mine? #1");
    std::filesystem::create_directory(directory);
    std::vector<std::string> files{"/settings.db"};
    if (with_log) files.emplace_back("/settings.db-wal");
    {
      Store store(directory_.Path());
      ASSERT_TRUE(store.settings.SaveSetting("Options", "Interval", with_log ? "8" : "7"));
      if (!with_log) store.registry.Close();
      for (const std::string& name : files) std::filesystem::copy_file(directory_.Path() + name, directory + name);
    }
    const pid_t child = Fork([&] {
      if (getuid() == 0) {
        for (std::string& name : files) name.insert(0, directory);
        files.insert(files.end(), {place.Path(), directory});
        for (const std::string& path : files) {
          if (chown(path.c_str(), 65534, 65534) != 0) return 1;
        }
        if (setgid(65534) != 0 || setuid(65534) != 0) return 2;
      }
      if (chmod(directory.c_str(), 0500) != 0) return 3;
      Store store(directory);
      for (int i = 0; i < 2; ++i) {
        if (store.settings.GetSetting("Options", "Interval", kMissing) != (with_log ? "8" : "7")) return 4;
        if (store.settings.SaveSetting("Options", "Interval", "9")) return 5;
      }
      // What has become writable is found again.
      chmod(directory.c_str(), 0700);
      usleep(1'100'000);
      return store.settings.SaveSetting("Options", "Interval", "9") ? 0 : 6;
    });
    EXPECT_EQ(StatusOf(child) >> 8, 0);
    EXPECT_EQ(Store(directory).settings.GetSetting("Options", "Interval", kMissing), "9");
  }
}

TEST_F(SettingsFileTest, ADamagedFileIsSetAside) {
  for (int number = 0; number < 200; ++number) ASSERT_TRUE(Save(KeyOf(number), ValueOf(number)));
  const std::string sound = directory_.Read("settings.db");
  std::string broken_pages = sound;
  for (std::size_t at = 4096; at < sound.size(); at += 64) broken_pages[at] = '\x7f';
  const std::pair<const char*, std::string> cases[] = {
      {"no database at all", "these are no settings"},
      {"every page broken but the first", broken_pages},
      {"cut off", sound.substr(0, 12'288)},
      {"somebody else's tables", Replaced(sound, "CREATE TABLE keys", "CREATE TABLE kegs")},
      {"header overwritten", std::string(200, '\0') + sound.substr(200)},
  };
  std::size_t aside = 0;
  for (const auto& [name, content] : cases) {
    SCOPED_TRACE(name);
    directory_.Write("settings.db", content);
    EXPECT_EQ(Get(KeyOf(150)), kMissing);
    EXPECT_TRUE(Save("Interval", "7"));
    EXPECT_EQ(Get("Interval"), "7");
    EXPECT_EQ(FilesAside().size(), ++aside);
    EXPECT_EQ(directory_.Read("settings.db.damaged-" + std::to_string(aside)), content);
  }
}

// Two that find the damage at once must not set the new file aside.
TEST_F(SettingsFileTest, ADamagedFileIsSetAsideOnce) {
  directory_.Write("settings.db", "these are no settings");
  std::vector<pid_t> children(4);
  for (int number = 0; number < 4; ++number) {
    children[number] = Fork([&] { return Save(KeyOf(number), ValueOf(number)) ? 0 : 1; });
  }
  for (const pid_t child : children) EXPECT_EQ(StatusOf(child), 0);
  for (int number = 0; number < 4; ++number) EXPECT_EQ(Get(KeyOf(number)), ValueOf(number));
  EXPECT_EQ(FilesAside().size(), 1U);
}

TEST_F(SettingsFileTest, AFileInUseStaysWhereItIs) {
  ASSERT_TRUE(Save("Interval", "7"));
  SqliteRegistry user(directory_.Path());
  ASSERT_EQ(CRegSettings(user).GetSetting("Options", "Interval"), "7");
  directory_.Write("settings.db", "these are no settings");
  Store store(directory_.Path());
  EXPECT_FALSE(store.settings.SaveSetting("Options", "Interval", "8"));
  EXPECT_EQ(store.settings.GetSetting("Options", "Interval", kMissing), kMissing);
  EXPECT_THAT(FilesAside(), testing::IsEmpty());
}

// Somebody else in the middle of a write is no damage, and is waited for once.
TEST_F(SettingsFileTest, AHangingWriterBlocksOnlyWrites) {
  ASSERT_TRUE(Save("Interval", "7"));
  SqliteDatabase other(directory_.Path("settings.db"), SQLITE_OPEN_READWRITE);
  other.Execute("BEGIN IMMEDIATE");
  Store store(directory_.Path());
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 20; ++i) EXPECT_FALSE(store.settings.SaveSetting("Options", "Interval", "8"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(6));
  EXPECT_EQ(store.settings.GetSetting("Options", "Interval"), "7");
  other.Execute("COMMIT");
  EXPECT_TRUE(store.settings.SaveSetting("Options", "Interval", "8"));
  EXPECT_THAT(FilesAside(), testing::IsEmpty());
}

TEST_F(SettingsFileTest, WithoutAPlaceCallsFailAndNothingElseHappens) {
  directory_.Write("file", "");
  std::filesystem::create_directories(directory_.Path("taken/settings.db"));
  std::filesystem::create_directory(directory_.Path("pipe"));
  ASSERT_EQ(mkfifo(directory_.Path("pipe/settings.db").c_str(), S_IRWXU), 0);
  for (const std::string& place : {std::string(), directory_.Path("file"), directory_.Path("file/below"),
                                   directory_.Path("taken"), directory_.Path("pipe"), std::string("/proc/quorvale")}) {
    SCOPED_TRACE(place);
    Store store(place);
    EXPECT_FALSE(store.settings.SaveSetting("Options", "Interval", "7"));
    EXPECT_EQ(store.settings.GetSetting("Options", "Interval", kMissing), kMissing);
    EXPECT_FALSE(store.settings.DeleteSetting("Options", "Interval"));
  }
  EXPECT_TRUE(std::filesystem::is_directory(directory_.Path("taken/settings.db")));
}

TEST(SettingsLocation, FollowsTheEnvironment) {
  const std::tuple<const char*, const char*, const char*> cases[] = {{"/c", "/h", "/c/quorvale"},
                                                                     {nullptr, "/h", "/h/.config/quorvale"},
                                                                     {"", "/h", "/h/.config/quorvale"},
                                                                     {"relative", "/h", "/h/.config/quorvale"}};
  // In a process of its own: the environment is everybody's.
  const pid_t child = Fork([&] {
    for (const auto& [config, home, expected] : cases) {
      config != nullptr ? setenv("XDG_CONFIG_HOME", config, 1) : unsetenv("XDG_CONFIG_HOME");
      setenv("HOME", home, 1);
      if (SettingsDirectory() != expected) return 1;
    }
    unsetenv("HOME");
    return SettingsDirectory().ends_with("/.config/quorvale") ? 0 : 2;
  });
  EXPECT_EQ(StatusOf(child), 0);
}

}  // namespace
}  // namespace quorvale
