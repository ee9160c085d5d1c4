#pragma once

#include <cstdint>
#include <string>

#include "process/collection.h"

namespace quorvale {

class Form;
class ListBox;
struct Process;

// What a directory in a list stands for: patterns with semicolons between. That of the pictures joins those of
// `kPictureFormats`.
std::string PictureMask();
inline constexpr char kSoundMask[] = "*.wav";

// Sections of the settings store that hold the play lists, under the keys File0, File1 and so on.
inline constexpr char kPictureSection[] = "PictureFiles";
inline constexpr char kSoundSection[] = "SoundFiles";
inline constexpr char kFileKeyPrefix[] = "File";

// Prepares a form for a show: builds both collections, in random order where the options say so, takes
// over the background colour and the transition speed, and starts the form's timer at 500 milliseconds.
// The lists come from the form's list boxes when `fromSettings` is 0, else from the settings store.
void InitShow(Process& process, std::int32_t fromSettings, Form& frm);

// The paths of a list box's entries, directories expanded by `mask`.
Collection FillFromList(Process& process, const ListBox& list, const std::string& mask);

// The same of a section of the settings store.
Collection FillFromSettings(Process& process, const std::string& section, const std::string& mask);

// Adds the files of one directory, given with its final separator, that match `mask`: pattern by
// pattern, each in name order. A directory that can't be read ends it quietly; what was added stays.
void AddDirectoryFiles(Process& process, Collection& collection, const std::string& directory, const std::string& mask);

}  // namespace quorvale
