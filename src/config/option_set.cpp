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

namespace quorvale {
namespace {

// One option: how its control takes the stored text, and what of the control is stored.
struct OptionField {
  const char* key = "";
  const char* fallback = "";
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

OptionField Flag(const char* key, CheckBox& box) {
  return {.key = key,
          .show = [&box](const std::string& stored) { box.SetValue(RoundToInt16(LenientParse(stored))); },
          .value = [&box] { return std::to_string(box.Value()); }};
}

OptionField Number(const char* key, const char* fallback, TextBox& box) {
  return {.key = key,
          .fallback = fallback,
          .show = [&box](const std::string& stored) { box.SetText(NumberText(LenientParse(stored))); },
          .value = [&box] { return box.Text(); }};
}

OptionField Swatch(const char* key, const char* fallback, Label& label) {
  return {.key = key,
          .fallback = fallback,
          .show =
              [&label](const std::string& stored) {
                label.SetBackColor(static_cast<Colour>(RoundToInt32(LenientParse(stored))));
              },
          .value = [&label] { return std::to_string(static_cast<std::int32_t>(label.BackColor())); }};
}

OptionField Name(const char* key, const char* fallback, DropDownList& list) {
  return {.key = key,
          .fallback = fallback,
          .show = [&list](const std::string& stored) { list.SetText(stored); },
          .value = [&list] { return list.Text(); }};
}

OptionField Position(const char* key, const char* fallback, Slider& slider) {
  return {.key = key,
          .fallback = fallback,
          .show = [&slider](const std::string& stored) { slider.SetValue(RoundToInt32(LenientParse(stored))); },
          .value = [&slider] { return std::to_string(slider.Value()); }};
}

// In the order in which they are read and written.
std::vector<OptionField> FieldsOf(frmOptions& frm) {
  return {
      Flag("PicRandom", frm.chkPicRandom),
      Flag("ShowFileName", frm.chkShowFileName),
      Flag("SoundRandom", frm.chkSoundRandom),
      Flag("Stretch", frm.chkStretch),
      Number("Interval", "5", frm.txtInterval),
      Swatch("BackColor", "&H00000000&", frm.lblBackColor),
      Name("SwapAffect", "Random", frm.cboAffect),
      Position("TransSpeed", "20", frm.sldSpeed),
      Number("FrameThickness", "3", frm.txtFrameThickness),
      Swatch("FrameColor", "16777215", frm.lblFrameColor),
      Flag("ShowFrame", frm.chkShowFrame),
      Flag("ResetPicList", frm.chkResetPicList),
      Flag("ResetSoundList", frm.chkResetSoundList),
  };
}

// The first options whose failures go to the caller.
constexpr std::size_t kFailingFields = 6;

// Failures of the first `failing` options go to the caller, those of the others nowhere.
void Load(frmOptions& frm, std::size_t failing) {
  std::size_t index = 0;
  for (const OptionField& field : FieldsOf(frm)) {
    try {
      field.show(frm.TheProcess().Option(field.key, field.fallback));
    } catch (const Failure& failure) {
      if (index < failing) {
        throw Failure(failure.Number(), std::string(field.key) + ": " + failure.Description(), failure.Source());
      }
    }
    ++index;
  }
}

}  // namespace

void LoadOptions(frmOptions& frm) { Load(frm, kFailingFields); }

void LoadUsableOptions(frmOptions& frm) { Load(frm, 0); }

void SaveOptions(frmOptions& frm) {
  for (const OptionField& field : FieldsOf(frm)) frm.TheProcess().SetOption(field.key, field.value());
}

}  // namespace quorvale
