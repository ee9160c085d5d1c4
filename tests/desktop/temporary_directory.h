#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace quorvale {

// A directory of a test's own, gone with the object.
class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    std::string pattern = testing::TempDir() + "quorvaleXXXXXX";
    path_ = mkdtemp(pattern.data());
  }
  ~TemporaryDirectory() { std::filesystem::remove_all(path_); }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  std::string Path(const std::string& name = "") const { return name.empty() ? path_ : path_ + "/" + name; }

  void Write(const std::string& name, const std::string& content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
  }

  std::string Read(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::string path_;
};

}  // namespace quorvale
