#pragma once

#include <cstdint>
#include <string>

#include "process/show_state.h"

namespace quorvale {

class CRegSettings;
class FileSystem;
class ListBox;
class Random;

// The file patterns, separated by semicolons, by which a directory entry is expanded. Those for pictures come from
// `kPictureFormats`, with `more_kinds` from all of its rows.
std::string PictureMask(bool more_kinds = false);
inline constexpr char kSoundMask[] = "*.wav";

// Sections of the settings store that hold the play lists, under the keys File0, File1 and so on.
inline constexpr char kPictureSection[] = "PictureFiles";
inline constexpr char kSoundSection[] = "SoundFiles";
inline constexpr char kFileKeyPrefix[] = "File";

// The paths of a list box's entries. Directory entries give the files that match `mask`, with `sub_folders` those of
// their whole trees.
Collection FillFromList(FileSystem& files, const ListBox& list, const std::string& mask, bool sub_folders = false);

// The same for a stored list.
Collection FillFromSettings(CRegSettings& settings, FileSystem& files, const std::string& section,
                            const std::string& mask, bool sub_folders = false);

// Adds the files of `directory` (which ends in a separator) that match `mask`: pattern by pattern, each in name order.
// If the directory becomes unreadable, the files found so far stay and no failure comes out.
void AddDirectoryFiles(FileSystem& files, Collection& collection, const std::string& directory,
                       const std::string& mask);

// The same for `directory` and all directories below it, depth first: its files, then each sub-folder with all below,
// in name order. Hidden sub-folders are left out. If several paths lead to a directory, as by links, only the first one
// counts. A directory that can't be read is left out.
void AddTreeFiles(FileSystem& files, Collection& collection, const std::string& directory, const std::string& mask);

// Orders a collection by the date of the files. Files without a date come last. Those with the same date, and those
// without one, keep their order.
void SortByDate(FileSystem& files, Collection& collection, bool newest_first);

// Puts a collection into random order by drawing entries without replacement. The draw is uneven: those at either
// end of the remaining entries come up half as often as the others.
void ShuffleCollection(Collection& collection, Random& random);

}  // namespace quorvale
