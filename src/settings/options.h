#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "settings/reg_settings.h"
#include "toolkit/units.h"

namespace quorvale {

enum class OptionKind {
  kFlag,    // "1" is on
  kNumber,  // as the user typed it
  kColour,  // 0x00BBGGRR
  kName,    // of an effect
  kChoice,  // one of `choices`
  kOther,   // not in the dialog
};

// One option: a text under its key in the section "Options".
struct OptionRow {
  const char* key;
  OptionKind kind;
  // The value when nothing is stored.
  const char* fallback;
  // All values of a choice, in the order of its enumeration. The first is the fallback, also for any other text.
  std::span<const char* const> choices = {};

  // The place of `text` in `choices`.
  std::size_t ChoiceOf(std::string_view text) const;
};

// How a picture is fitted to the screen.
enum class Scaling {
  kAsSet,  // by `Stretch`
  kFit,    // as large as it can be seen whole
  kFill,   // as small as it covers the screen, cut evenly
};
inline constexpr const char* kScalings[] = {"As Set Under Pictures", "Fit", "Fill"};

// What stands in the picture's bottom line.
enum class CaptionText { kFileName, kDateTaken, kFileNameAndDate };
inline constexpr const char* kCaptionTexts[] = {"File Name", "Date Taken", "File Name and Date"};

// Which pictures come first.
enum class Order {
  kAsListed,
  kNewestFirst,  // by the date of the file
  kOldestFirst,
};
inline constexpr const char* kOrders[] = {"As Listed", "Newest First", "Oldest First"};

// Where the full-screen show has its pictures.
enum class Monitors {
  kPrimaryOnly,    // the others are black
  kPictureOnEach,  // each has pictures of its own, by turns
};
inline constexpr const char* kMonitorChoices[] = {"Primary Only", "A Picture on Each"};

// The options. The comments name the readers.

inline constexpr OptionRow kPicRandom{"PicRandom", OptionKind::kFlag, ""};        // the show's start
inline constexpr OptionRow kShowFileName{"ShowFileName", OptionKind::kFlag, ""};  // the layout
inline constexpr OptionRow kSoundRandom{"SoundRandom", OptionKind::kFlag, ""};    // the show's start
inline constexpr OptionRow kStretch{"Stretch", OptionKind::kFlag, ""};            // the layout
inline constexpr OptionRow kInterval{"Interval", OptionKind::kNumber, "5"};       // the tick; seconds, 2 to 60
// The show's start, and each transition, where a text that is not a number fails.
inline constexpr OptionRow kBackColor{"BackColor", OptionKind::kColour, "&H00000000&"};
inline constexpr OptionRow kSwapAffect{"SwapAffect", OptionKind::kName, "Random"};         // each transition
inline constexpr OptionRow kTransSpeed{"TransSpeed", OptionKind::kNumber, "20"};           // the show's start; 1 to 20
inline constexpr OptionRow kFrameThickness{"FrameThickness", OptionKind::kNumber, "3"};    // the layout; 1 to 20
inline constexpr OptionRow kFrameColor{"FrameColor", OptionKind::kColour, "&H00000000&"};  // the layout
inline constexpr OptionRow kShowFrame{"ShowFrame", OptionKind::kFlag, ""};                 // the layout
// The process's first tick; any number other than 0 means on.
inline constexpr OptionRow kResetPicList{"ResetPicList", OptionKind::kFlag, ""};
inline constexpr OptionRow kResetSoundList{"ResetSoundList", OptionKind::kFlag, ""};
inline constexpr OptionRow kScaling{"Scaling", OptionKind::kChoice, kScalings[0], kScalings};  // the layout
inline constexpr OptionRow kFitBackdrop{"FitBackdrop", OptionKind::kFlag, "0"};                // the layout, with `Fit`
// The layout, while `ShowFileName` is on.
inline constexpr OptionRow kCaptionText{"CaptionText", OptionKind::kChoice, kCaptionTexts[0], kCaptionTexts};
// The show's start: directory entries stand for their sub-folders too.
inline constexpr OptionRow kSubFolders{"SubFolders", OptionKind::kFlag, "0"};
// The show's start, unless `PicRandom` is on.
inline constexpr OptionRow kOrder{"Order", OptionKind::kChoice, kOrders[0], kOrders};
// The show's start and the dialog for pictures: whether they include the kinds that `kPictureFormats` names as further.
inline constexpr OptionRow kMoreKinds{"MoreKinds", OptionKind::kFlag, "0"};
// The start of the full-screen show.
inline constexpr OptionRow kMonitors{"Monitors", OptionKind::kChoice, kMonitorChoices[0], kMonitorChoices};

// The dialog's own default: while no frame colour is stored, it offers white, but the show draws black.
inline constexpr OptionRow kFrameColorInDialog{kFrameColor.key, OptionKind::kColour, "16777215"};

// The options of the dialog, in its order of reading and writing.
inline constexpr const OptionRow* kDialogOptions[] = {
    &kPicRandom,   &kShowFileName,   &kSoundRandom,        &kStretch,   &kInterval,     &kBackColor,      &kSwapAffect,
    &kTransSpeed,  &kFrameThickness, &kFrameColorInDialog, &kShowFrame, &kResetPicList, &kResetSoundList, &kScaling,
    &kFitBackdrop, &kCaptionText,    &kSubFolders,         &kOrder,     &kMoreKinds,    &kMonitors,
};

// From this one on they stand on the page "More". They are stored only when they change, so that the store stays as it
// was while the user turns on none of them.
inline constexpr const OptionRow* kFirstOnMorePage = &kScaling;

// The position last shown or played in each list, from 1. Read and written by the tick.
inline constexpr OptionRow kLastPicture{"LastPicture", OptionKind::kOther, "0"};
inline constexpr OptionRow kLastSound{"LastSound", OptionKind::kOther, "0"};
// The play list file that the configuration window has open: its path.
inline constexpr OptionRow kPlayList{"PlayList", OptionKind::kOther, ""};
// The directory given to the set-up. Written only.
inline constexpr OptionRow kInstallPath{"InstallPath", OptionKind::kOther, ""};

// Reads and writes the options. Caches nothing: every call goes to the store, so a change takes effect at the next use.
// Numbers out of range fail with kOverflow. Text that is not a number reads as 0 unless a reader says otherwise.
class Options {
 public:
  explicit Options(CRegSettings& settings) : settings_(settings) {}

  bool PicRandom() const { return IsOn(kPicRandom); }
  bool SoundRandom() const { return IsOn(kSoundRandom); }
  bool ShowFileName() const { return IsOn(kShowFileName); }
  bool Stretch() const { return IsOn(kStretch); }
  bool ShowFrame() const { return IsOn(kShowFrame); }
  bool SubFolders() const { return IsOn(kSubFolders); }
  bool MoreKinds() const { return IsOn(kMoreKinds); }
  Order OrderChoice() const { return static_cast<Order>(Choice(kOrder)); }
  Monitors MonitorsChoice() const { return static_cast<Monitors>(Choice(kMonitors)); }
  // Seconds.
  double Interval() const { return Number(kInterval); }
  Colour BackColor() const { return ColourOf(kBackColor); }
  // `BackColor` for transitions. Fails with kNotANumber when the text is not a number.
  Colour WipeColour() const;
  std::string SwapAffect() const { return Text(kSwapAffect); }
  std::int32_t TransSpeed() const;
  Scaling ScalingChoice() const { return static_cast<Scaling>(Choice(kScaling)); }
  bool FitBackdrop() const { return IsOn(kFitBackdrop); }
  CaptionText CaptionChoice() const { return static_cast<CaptionText>(Choice(kCaptionText)); }
  double FrameThickness() const { return Number(kFrameThickness); }
  Colour FrameColor() const { return ColourOf(kFrameColor); }

  // For flags where any whole number other than 0 means on.
  bool IsAnyNumber(const OptionRow& row) const;

  std::string Text(const OptionRow& row) const { return Get(row.key, row.fallback); }
  // True when it is stored.
  bool SetText(const OptionRow& row, const std::string& text) { return Set(row.key, text); }

  // The same by key, for callers without a row.
  std::string Get(const std::string& key, const std::string& fallback) const;
  bool Set(const std::string& key, const std::string& text);

  // Sets `text` to the stored text or the row's fallback. False when the store could not be read.
  bool Read(const OptionRow& row, std::string& text) const;

 private:
  bool IsOn(const OptionRow& row) const;
  double Number(const OptionRow& row) const;
  std::size_t Choice(const OptionRow& row) const { return row.ChoiceOf(Text(row)); }
  Colour ColourOf(const OptionRow& row) const;

  CRegSettings& settings_;
};

}  // namespace quorvale
