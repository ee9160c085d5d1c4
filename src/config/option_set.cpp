#include "config/option_set.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/failure.h"
#include "base/numbers.h"
#include "base/text.h"
#include "config/options_form.h"
#include "process/process.h"
#include "settings/options.h"

namespace quorvale {
namespace {

// One option: sets its control from the stored text, and gives the text to store.
struct OptionField {
  OptionRow row;
  std::function<void(const std::string& stored)> show;
  std::function<std::string()> value;
};

// The number with up to 15 digits, as in "5", "0.5" and "1E+20".
std::string NumberText(double number) {
  if (!std::isfinite(number)) throw Failure(FailureNumber::kOverflow, "Overflow", "OptionSet");
  constexpr int kDigits = 15;
  std::array<char, 32> text = {};
  const auto result =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, kDigits);
  return UpperCase({text.data(), result.ptr});
}

OptionField Flag(const OptionRow& row, CheckBox& box) {
  return {.row = row,
          .show = [&box](const std::string& stored) { box.SetValue(RoundToInt16(LenientParse(stored))); },
          .value = [&box] { return std::to_string(box.Value()); }};
}

OptionField Number(const OptionRow& row, TextBox& box) {
  return {.row = row,
          .show = [&box](const std::string& stored) { box.SetText(NumberText(LenientParse(stored))); },
          .value = [&box] { return box.Text(); }};
}

OptionField Swatch(const OptionRow& row, Label& label) {
  return {.row = row,
          .show =
              [&label](const std::string& stored) {
                label.SetBackColor(static_cast<Colour>(RoundToInt32(LenientParse(stored))));
              },
          .value = [&label] { return std::to_string(static_cast<std::int32_t>(label.BackColor())); }};
}

OptionField Name(const OptionRow& row, DropDownList& list) {
  return {.row = row,
          .show = [&list](const std::string& stored) { list.SetText(stored); },
          .value = [&list] { return list.Text(); }};
}

OptionField Position(const OptionRow& row, Slider& slider) {
  return {.row = row,
          .show = [&slider](const std::string& stored) { slider.SetValue(RoundToInt32(LenientParse(stored))); },
          .value = [&slider] { return std::to_string(slider.Value()); }};
}

// In the order of reading and writing.
std::vector<OptionField> FieldsOf(frmOptions& frm) {
  return {
      Flag(kPicRandom, frm.chkPicRandom),
      Flag(kShowFileName, frm.chkShowFileName),
      Flag(kSoundRandom, frm.chkSoundRandom),
      Flag(kStretch, frm.chkStretch),
      Number(kInterval, frm.txtInterval),
      Swatch(kBackColor, frm.lblBackColor),
      Name(kSwapAffect, frm.cboAffect),
      Position(kTransSpeed, frm.sldSpeed),
      Number(kFrameThickness, frm.txtFrameThickness),
      Swatch(kFrameColorInDialog, frm.lblFrameColor),
      Flag(kShowFrame, frm.chkShowFrame),
      Flag(kResetPicList, frm.chkResetPicList),
      Flag(kResetSoundList, frm.chkResetSoundList),
  };
}

// The number of options, from the first, whose failures are passed on.
constexpr std::size_t kFailingFields = 6;

// Failures of the first `failing` options are passed on, those of the others ignored. False when a stored text could
// not be read.
bool Load(frmOptions& frm, std::size_t failing) {
  bool read = true;
  std::size_t index = 0;
  for (const OptionField& field : FieldsOf(frm)) {
    std::string stored;
    if (!frm.TheProcess().options.Read(field.row, stored)) read = false;
    try {
      field.show(stored);
    } catch (const Failure& failure) {
      if (index < failing) {
        throw Failure(failure.Number(), std::string(field.row.key) + ": " + failure.Description(), failure.Source());
      }
    }
    ++index;
  }
  return read;
}

}  // namespace

bool LoadOptions(frmOptions& frm) { return Load(frm, kFailingFields); }

bool LoadUsableOptions(frmOptions& frm) { return Load(frm, 0); }

bool SaveOptions(frmOptions& frm) {
  return frm.TheProcess().Settings.SaveTogether([&frm] {
    for (const OptionField& field : FieldsOf(frm)) frm.TheProcess().options.SetText(field.row, field.value());
  });
}

}  // namespace quorvale
