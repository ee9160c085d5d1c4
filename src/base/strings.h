#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

// The texts that the core shows to the user, grouped by window. A translation replaces this file. Stored values, keys
// and names of controls are not translated, so they stay where they are used.
//
// An "&" in a caption marks the access key. "%1" to "%9" are places for values, see `Fill`.
namespace quorvale::strings {

// The text with "%1" replaced by the first value, and so on. A place without a value stays. Values are inserted as they
// are: a "%1" in one of them is not replaced.
std::string Fill(std::string_view text, std::initializer_list<std::string_view> values);

// The caption and the tool tip of a control.
struct ControlText {
  const char* caption = "";
  const char* tip = "";
};

// A failure of a step of the program's start or of the set-up.
namespace program_error {

inline constexpr char kTitle[] = "Program Error";
// The failure's number, its description and its source.
inline constexpr char kText[] =
    "The following error was encountered:\r%1: %2%3\rPlease report this error to the manufacturer.";

}  // namespace program_error

// Descriptions of failures that a box may show. Those that only a fault of the program can cause stand where it fails.
namespace failures {

inline constexpr char kOverflow[] = "Overflow";
inline constexpr char kNotANumber[] = "Not a number";
inline constexpr char kListIsFull[] = "The list is full";
inline constexpr char kCancelled[] = "Cancel was selected.";

}  // namespace failures

// The configuration window.
namespace configuration {

inline constexpr char kTitle[] = "Screen Saver Properties";

inline constexpr char kPlayList[] = "Play List";
inline constexpr char kPlayListNamed[] = "Play List - [%1]";
inline constexpr ControlText kViewPictures{"&Picture Files",
                                           "Display the list of pictures that will be displayed in your screen saver."};
inline constexpr ControlText kViewSounds{"&Sound Files",
                                         "Display the list of sounds that will be played in your screen saver."};
inline constexpr char kListTip[] = "Pictures or sound files/directories that will play when screen saver is active.";
inline constexpr ControlText kAddFiles{
    "Add &File(s)...", "Offers a dialog for selecting one or more files to add to the Picture or Sound list."};
inline constexpr ControlText kAddDirectory{
    "Add Direc&tory...", "Offers a dialog for adding an entire directory to the Picture or Sound list."};
inline constexpr ControlText kRemove{"&Remove", "Removes currently selected item(s) from the Play List."};
inline constexpr ControlText kMoveUp{"&Up", "Moves currently selected item up one position in the Play List."};
inline constexpr ControlText kMoveDown{"&Down", "Moves currently selected item down one position in the Play List."};
inline constexpr char kPreview[] = "Preview";
inline constexpr char kPathTitle[] = "File Path";
inline constexpr char kPathTip[] = "Displays the entire path of selected item in Play List.";
inline constexpr ControlText kOk{"OK", "Save Properties."};
inline constexpr ControlText kCancel{"&Cancel", "Close and do not save the Properties."};

inline constexpr char kUnread[] =
    "Your settings can't be read. The lists that this window shows are not the stored ones, and OK will not put them "
    "in their place.";
inline constexpr char kListIsLonger[] =
    "A Play List is full: it shows the first %1 of its entries. The others stay in the settings and are played.";
inline constexpr char kUnreadNotSaved[] =
    "Nothing was saved: your settings could not be read when this window opened, and what was not read is not "
    "replaced. The menu File keeps the lists in a Play List file.";
inline constexpr char kNotSaved[] =
    "Your settings can't be saved, and are what they were. The disk may be full, or another program may hold them.";
// The procedure, the failure's number and its source.
inline constexpr char kProcedureFailed[] = "sProcNm=%1 Num=%2 Src=%3";
inline constexpr char kNoHelp[] = "Unable to display Help Contents. There is no Help associated with this project.";

}  // namespace configuration

// The menus of the configuration window.
namespace menus {

inline constexpr char kFile[] = "&File";
inline constexpr char kNew[] = "&New Play List";
inline constexpr char kOpen[] = "&Open Play List...";
inline constexpr char kSave[] = "&Save Play List...";
inline constexpr char kSaveAs[] = "Save Play List &As...";
inline constexpr char kMerge[] = "A&dd Play List...";
inline constexpr char kExit[] = "E&xit";
inline constexpr char kPlayList[] = "&Play List";
inline constexpr char kAddFiles[] = "Add &Files...";
inline constexpr char kAddDirectory[] = "Add &Directory...";
inline constexpr char kRemove[] = "&Remove File";
inline constexpr char kMoveUp[] = "Move &Up";
inline constexpr char kMoveDown[] = "Move Do&wn";
inline constexpr char kView[] = "&View";
inline constexpr char kViewPictures[] = "&Picture Files";
inline constexpr char kViewSounds[] = "&Sound Files";
inline constexpr char kOptions[] = "&Options...";
inline constexpr char kHelp[] = "&Help";
inline constexpr char kHelpContents[] = "&Contents";
inline constexpr char kHelpSearch[] = "&Search for Help On...";
inline constexpr char kAbout[] = "&About Quorvale...";

}  // namespace menus

// Adding entries to the lists.
namespace adding {

inline constexpr char kSelectFiles[] = "Select One or More Files to Add";
// The patterns, for the user and for the dialog.
inline constexpr char kPictureFilter[] = "Pictures (%1)|%1|All Files(*.*)|*.*";
inline constexpr char kSoundFilter[] = "Sounds (%1)|%1|All Files(*.*)|*.*";
inline constexpr char kSelectDirectory[] = "Select Directory";

inline constexpr char kNotAdded[] = "Not added to the Play List:\n";
// A name and the reason.
inline constexpr char kNotAddedName[] = "\n%1: %2.";
inline constexpr char kMoreNotAdded[] = "\n... and %1 more.";
inline constexpr char kHasLineEnd[] = "it has a line end in it";
inline constexpr char kNameTooLong[] = "it is longer than %1 characters";
inline constexpr char kDirectoryTooLong[] = "its directory is longer than %1 characters";
inline constexpr char kHasOuterBlank[] = "a play list can't hold a blank at the start or the end of a name";
inline constexpr char kEndsInSeparator[] = "a play list can't hold a separator at the end of a file's name";
inline constexpr char kListIsFull[] = "the list is full";

}  // namespace adding

// Play list files.
namespace files {

inline constexpr char kOpenTitle[] = "Select Play List";
inline constexpr char kOpenFilter[] = "Play Lists (*.qvl)|*.qvl|All Files(*.*)|*.*";
inline constexpr char kSaveTitle[] = "Save Play List";
inline constexpr char kSaveFilter[] = "Play List Files (*.qvl)|*.qvl|All Files(*.*)|*.*";
// The failure's description follows.
inline constexpr char kNotWritten[] = "Unable to write to Play List File.  %1";
inline constexpr char kNotRead[] = "Unable to Read Play List File.  %1";
inline constexpr char kSaveChanges[] = "Your Play List has been changed.  Do you want to save your changes?";
inline constexpr char kSaveChangesNamed[] = "Your Play List [%1] has been changed.  Do you want to save your changes?";

}  // namespace files

// The dialog for the options.
namespace options {

inline constexpr char kTitle[] = "Screen Saver Options";

inline constexpr char kPages[] = "Pages";
inline constexpr ControlText kPicturesPage{"&Pictures", "Set Picture Options"};
inline constexpr ControlText kInterval{"S&wap Interval (Sec.):", "Number of seconds between image and sound changes."};
inline constexpr ControlText kPicRandom{"&Random Order", "Randomize pictures in Play List."};
inline constexpr ControlText kShowFileName{"Sho&w Picture's File Name",
                                           "Display picture's file name at the bottom of the screen."};
inline constexpr ControlText kStretch{"S&tretch Picture to Fit Screen",
                                      "Size all images to completely fill the screen."};
inline constexpr ControlText kResetPicList{"Reset Play List when Started",
                                           "When started, play your pictures from the beginning of the list"};
inline constexpr ControlText kBackColor{"&Background Color...",
                                        "Displays a dialog for selecting the background color."};
inline constexpr char kBackColorShown[] = "Current background color.";
inline constexpr char kEffect[] = "Transition &Effect";
inline constexpr char kEffectTip[] = "Select the affect to transisition between image changes.";
inline constexpr ControlText kSpeed{"Spee&d", "Adjust Transition Speed"};
inline constexpr char kSlow[] = "Slow";
inline constexpr char kFast[] = "Fast";
inline constexpr ControlText kShowFrame{"S&how Picture Frame", "Put a frame around the pictures."};
inline constexpr ControlText kThickness{"Thic&kness:", "Width of picture's frame"};
inline constexpr ControlText kFrameColor{"&Frame Color...", "Displays a dialog for selecting the frame color."};
inline constexpr char kFrameColorShown[] = "Current background color.";

inline constexpr ControlText kSoundsPage{"&Sounds", "Set Sound Options"};
inline constexpr ControlText kSoundRandom{"Ra&ndom Order", "Randomize sounds in Play List."};
inline constexpr ControlText kResetSoundList{"Reset Play List when Started",
                                             "When started, play your sounds from the beginning of the list"};

inline constexpr ControlText kMorePage{"&More", "Set More Options"};
inline constexpr ControlText kScaling{"P&roportions:",
                                      "Show each picture whole, or let it fill the screen, without distorting it."};
// The entries of this list and of those below: a text for each value that is stored, in the same order.
inline constexpr const char* kScalings[] = {"As Set Under Pictures", "Fit", "Fill"};
inline constexpr ControlText kFitBackdrop{"Bl&urred Picture beside a Fitted One",
                                          "Fill the bars beside a picture that is shown whole."};
inline constexpr ControlText kCaptionText{"Text &below the Picture:",
                                          "What stands at the bottom of the screen while the file name is shown."};
inline constexpr const char* kCaptionTexts[] = {"File Name", "Date Taken", "File Name and Date"};
inline constexpr ControlText kSubFolders{"Include Sub-&Folders",
                                         "Show and play what is in the folders inside a directory of the lists, too."};
inline constexpr ControlText kOrder{"Or&der of the Pictures:",
                                    "Sort the pictures by the dates of their files, unless their order is random."};
inline constexpr const char* kOrders[] = {"As Listed", "Newest First", "Oldest First"};
inline constexpr ControlText kMoreKinds{
    "More &Kinds of Pictures",
    "Find PNG, WebP, HEIC, AVIF, JPEG XL and TIFF pictures in directories and file dialogs, too."};
inline constexpr ControlText kMonitors{"Mo&nitors:", "Show pictures on all monitors, or leave all but one black."};
inline constexpr const char* kMonitorChoices[] = {"Primary Only", "A Picture on Each"};

inline constexpr ControlText kOk{"&OK", "Save changes."};
inline constexpr ControlText kCancel{"&Cancel", "Close without saving changes."};
inline constexpr ControlText kHelp{"&Help", "Displays publisher's information."};

inline constexpr char kIntervalRange[] = "Swap Interval must be between 2 and 60 seconds.";
inline constexpr char kThicknessRange[] = "Frame thickness must be between 1 and 20.";
// The key and the failure's description.
inline constexpr char kNotShown[] =
    "A stored option can't be shown.\n\n%1\n\nOK stores what the dialog shows in its place.";
inline constexpr char kUnread[] =
    "Your settings can't be read. The options that this dialog shows are not the stored ones, and OK will not put them "
    "in their place.";
inline constexpr char kUnreadNotSaved[] =
    "Nothing was saved: your settings could not be read when this dialog opened, and what was not read is not "
    "replaced.";
inline constexpr char kNotSaved[] =
    "Your settings can't be saved. The disk may be full, or another program may hold them.";

}  // namespace options

// The about box.
namespace about {

inline constexpr char kTitle[] = "About";
// The product, and its version in three numbers.
inline constexpr char kTitleNamed[] = "About %1";
inline constexpr char kVersion[] = "%1   Version %2.%3.%4";
inline constexpr char kLegalNotice[] = "Copyright (C) Halvern Inc. and contributors";
inline constexpr char kFilm[] = "Film";
inline constexpr char kWebPageTip[] = "Opens the maker's web page.";
inline constexpr char kDisclaimer[] =
    "This program comes without any warranty, as far as the law allows. Pictures and sounds in your play lists belong "
    "to their makers; the licence that came with the program says what you may do with it.";
inline constexpr char kOk[] = "OK";
inline constexpr char kSystemInfo[] = "&System Info...";
inline constexpr char kNoSystemInfo[] = "System Information Is Unavailable At This Time";

}  // namespace about

// The set-up.
namespace set_up {

inline constexpr char kSamplesNotAdded[] =
    "The sample pictures were not added: your settings can't be saved, and are what they were. The disk may be full, "
    "or another program may hold them.";

}  // namespace set_up

}  // namespace quorvale::strings
