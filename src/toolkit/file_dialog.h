#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

inline constexpr std::uint32_t kOfnOverwritePrompt = 0x2;
inline constexpr std::uint32_t kOfnHideReadOnly = 0x4;
inline constexpr std::uint32_t kOfnAllowMultiSelect = 0x200;
inline constexpr std::uint32_t kOfnFileMustExist = 0x1000;
inline constexpr std::uint32_t kOfnExplorer = 0x80000;
inline constexpr std::uint32_t kOfnLongNames = 0x200000;

// The properties of a file dialog.
struct FileDialog {
  bool save = false;
  std::string title = {};
  std::string start_name = {};
  // Pairs "description|patterns", joined by "|"; patterns are separated by ";".
  std::string filter = {};
  int filter_index = 0;  // from 1; 0 is the first as well
  std::uint32_t flags = 0;
  // Capacity for the answer, in characters. Platforms may allow more.
  int max_file_size = 260;
};

}  // namespace quorvale
