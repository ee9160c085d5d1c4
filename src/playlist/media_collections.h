#pragma once

#include <cstdint>
#include <string>

#include "process/collection.h"

namespace quorvale {

class CRegSettings;
class FileSystem;
class ListBox;

// What a directory in a list stands for: patterns with semicolons between. That of the pictures joins those of
// `kPictureFormats`.
std::string PictureMask();
inline constexpr char kSoundMask[] = "*.wav";

// Sections of the settings store that hold the play lists, under the keys File0, File1 and so on.
inline constexpr char kPictureSection[] = "PictureFiles";
inline constexpr char kSoundSection[] = "SoundFiles";
inline constexpr char kFileKeyPrefix[] = "File";

// The paths of a list box's entries, directories expanded by `mask`.
Collection FillFromList(FileSystem& files, const ListBox& list, const std::string& mask);

// The same of a section of the settings store.
Collection FillFromSettings(CRegSettings& settings, FileSystem& files, const std::string& section,
                            const std::string& mask);

// Adds the files of one directory, given with its final separator, that match `mask`: pattern by
// pattern, each in name order. A directory that can't be read ends it quietly; what was added stays.
void AddDirectoryFiles(FileSystem& files, Collection& collection, const std::string& directory,
                       const std::string& mask);

}  // namespace quorvale
