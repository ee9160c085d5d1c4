#include "config/options_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>

#include "base/failure.h"
#include "base/numbers.h"
#include "base/strings.h"
#include "base/text.h"
#include "settings/options.h"
#include "toolkit/buttons.h"
#include "toolkit/entry_fields.h"
#include "toolkit/form.h"
#include "transitions/effects.h"

namespace quorvale {
namespace {

namespace option_texts = strings::options;

constexpr int kNumberLength = 2;
constexpr int kSlowest = 1;
constexpr int kFastest = 20;

// `Load` fails for the options up to this one. The controls of later ones keep what they show.
constexpr const OptionRow* kLastFailing = &kBackColor;

// The number with up to 15 digits, as in "5", "0.5" and "1E+20".
std::string NumberText(double number) {
  if (!std::isfinite(number)) throw Failure(FailureNumber::kOverflow, strings::failures::kOverflow, "OptionsTable");
  constexpr int kDigits = 15;
  std::array<char, 32> text = {};
  const auto result =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, kDigits);
  return UpperCase({text.data(), result.ptr});
}

// How each kind of control holds an option: a flag, a number as typed, a colour, one of several names, a position.

OptionField FieldOf(const OptionRow* option, CheckBox& box) {
  return {.option = option,
          .show = [&box](const std::string& stored) { box.SetValue(RoundToInt16(LenientParse(stored))); },
          .value = [&box] { return std::to_string(box.Value()); }};
}

OptionField FieldOf(const OptionRow* option, TextBox& box) {
  return {.option = option,
          .show = [&box](const std::string& stored) { box.SetText(NumberText(LenientParse(stored))); },
          .value = [&box] { return box.Text(); }};
}

OptionField FieldOf(const OptionRow* option, Label& swatch) {
  return {.option = option,
          .show =
              [&swatch](const std::string& stored) {
                swatch.SetBackColor(static_cast<Colour>(RoundToInt32(LenientParse(stored))));
              },
          .value = [&swatch] { return std::to_string(static_cast<std::int32_t>(swatch.BackColor())); }};
}

OptionField FieldOf(const OptionRow* option, DropDownList& list) {
  return {.option = option,
          .show =
              [&list, option](const std::string& stored) {
                list.SetText(option->kind == OptionKind::kChoice ? list.Items()[option->ChoiceOf(stored)] : stored);
              },
          .value =
              [&list, option] {
                const int index = list.ListIndex();
                return option->kind == OptionKind::kChoice && index >= 0
                           ? option->choices[static_cast<std::size_t>(index)]
                           : list.Text();
              }};
}

OptionField FieldOf(const OptionRow* option, Slider& slider) {
  return {.option = option,
          .show = [&slider](const std::string& stored) { slider.SetValue(RoundToInt32(LenientParse(stored))); },
          .value = [&slider] { return std::to_string(slider.Value()); }};
}

template <typename ControlType>
concept HoldsOption = requires(const OptionRow* option, ControlType& control) {
  FieldOf(option, control);
};

struct Made {
  std::unique_ptr<Widget> control;
  std::optional<OptionField> field = {};
};

// Makes the control of a row.
struct Maker {
  std::function<Made(Form& form, WidgetDesign design, const OptionRow* option)> make;
  // Other controls lie on it.
  bool is_ground = false;
};

// A control of this type, with the parameters that its constructor takes after the design.
template <typename ControlType, typename... Parameters>
Maker A(const Parameters&... parameters) {
  return {.make =
              [parameters...](Form& form, WidgetDesign design, const OptionRow* option) {
                auto control = std::make_unique<ControlType>(form, std::move(design), parameters...);
                Made made;
                if constexpr (HoldsOption<ControlType>) {
                  if (option != nullptr) made.field = FieldOf(option, *control);
                }
                made.control = std::move(control);
                return made;
              },
          .is_ground = std::is_same_v<ControlType, TabStrip> || std::is_same_v<ControlType, Frame>};
}

struct ControlRow {
  const char* name;
  // The name of its frame; empty is the form itself.
  const char* container;
  Maker maker;
  strings::ControlText text;
  TwipRect place;
  const OptionRow* option = nullptr;
};

// A tab and the frame that it shows.
struct PageRow {
  strings::ControlText text;
  const char* frame = nullptr;
};

constexpr PageRow kPages[] = {
    {option_texts::kPicturesPage, "Frame1(1)"},
    {option_texts::kSoundsPage, "Frame1(2)"},
    {option_texts::kMorePage, "Frame1(3)"},
};

constexpr TwipRect kPagePlace = {216, 480, 5784, 3000};

std::vector<TabStrip::Tab> Tabs() {
  std::vector<TabStrip::Tab> tabs;
  for (const PageRow& page : kPages) tabs.push_back({.caption = page.text.caption, .tool_tip = page.text.tip});
  return tabs;
}

// The page "More" is a column of rows, from 0 on: check boxes, or lists with their labels beside them.
constexpr float MoreTop(int row) { return 120.0F + 390.0F * static_cast<float>(row); }
constexpr TwipRect MoreLabel(int row) { return {120, MoreTop(row) + 42, 2280, 228}; }
constexpr TwipRect MoreCheck(int row) { return {120, MoreTop(row) + 30, 5484, 252}; }
constexpr TwipRect MoreList(int row) { return {2460, MoreTop(row), 3144, 315}; }

// The texts of a choice, one for each of its stored values.
template <std::size_t Count>
std::vector<std::string> Texts(const char* const (&texts)[Count], const char* const (&/*values*/)[Count]) {
  return {std::begin(texts), std::end(texts)};
}

std::vector<std::string> EffectNames() {
  std::vector<std::string> names = {kNoEffect, kRandomEffect};
  for (const Effect& effect : Effects()) names.emplace_back(effect.name);
  return names;
}

// In tab order. Frames and labels count, though the tab key passes over them.
std::vector<ControlRow> Rows() {
  const Maker label = A<Label>();
  const Maker centred = A<Label>(LabelStyle{.centred = true});
  const Maker title = A<Label>(LabelStyle{.bold = true, .centred = true});
  const Maker swatch = A<Label>(LabelStyle{.border = true});
  const Maker number = A<TextBox>(kNumberLength);
  const Maker check_box = A<CheckBox>();
  const Maker button = A<Button>();
  const Maker group = A<Frame>(true);
  const Maker page = A<Frame>(false);
  const Maker effects = A<DropDownList>(EffectNames());
  const Maker scalings = A<DropDownList>(Texts(option_texts::kScalings, kScalings));
  const Maker captions = A<DropDownList>(Texts(option_texts::kCaptionTexts, kCaptionTexts));
  const Maker orders = A<DropDownList>(Texts(option_texts::kOrders, kOrders));
  const Maker monitors = A<DropDownList>(Texts(option_texts::kMonitorChoices, kMonitorChoices));
  const Maker speed = A<Slider>(kSlowest, kFastest);
  const auto caption = [](const strings::ControlText& text) { return strings::ControlText{text.caption}; };
  const auto tip = [](const char* text) { return strings::ControlText{"", text}; };
  return {
      {"TabStrip1", "", A<TabStrip>(Tabs()), {option_texts::kPages}, {120, 120, 5976, 3444}},
      {"Label1(0)", "Frame1(1)", label, caption(option_texts::kInterval), {120, 150, 1740, 228}},
      {"txtInterval", "Frame1(1)", number, tip(option_texts::kInterval.tip), {1920, 108, 480, 300}, &kInterval},
      {"chkPicRandom", "Frame1(1)", check_box, option_texts::kPicRandom, {120, 570, 2760, 252}, &kPicRandom},
      {"chkShowFileName", "Frame1(1)", check_box, option_texts::kShowFileName, {120, 960, 2760, 252}, &kShowFileName},
      {"chkStretch", "Frame1(1)", check_box, option_texts::kStretch, {120, 1350, 2760, 252}, &kStretch},
      {"chkResetPicList", "Frame1(1)", check_box, option_texts::kResetPicList, {120, 1740, 2760, 252}, &kResetPicList},
      {"cmdBackColor", "Frame1(1)", button, option_texts::kBackColor, {120, 2460, 1908, 372}},
      {"lblBackColor", "Frame1(1)", swatch, tip(option_texts::kBackColorShown), {2148, 2460, 612, 372}, &kBackColor},
      {"Frame3", "Frame1(1)", group, {option_texts::kEffect}, {2940, 60, 2724, 1560}},
      {"cboAffect", "Frame3", effects, tip(option_texts::kEffectTip), {120, 288, 2484, 315}, &kSwapAffect},
      {"Label2", "Frame3", title, caption(option_texts::kSpeed), {120, 708, 2484, 228}},
      {"sldSpeed", "Frame3", speed, tip(option_texts::kSpeed.tip), {120, 936, 2484, 330}, &kTransSpeed},
      {"chkShowFrame", "Frame1(1)", check_box, option_texts::kShowFrame, {3060, 1704, 2040, 252}, &kShowFrame},
      {"lblThickness", "Frame4", label, caption(option_texts::kThickness), {120, 270, 1020, 228}},
      {"txtFrameThickness",
       "Frame4",
       number,
       tip(option_texts::kThickness.tip),
       {1200, 228, 480, 300},
       &kFrameThickness},
      {"cmdFrameColor", "Frame4", button, option_texts::kFrameColor, {120, 636, 1740, 372}},
      {"lblFrameColor",
       "Frame4",
       swatch,
       tip(option_texts::kFrameColorShown),
       {1992, 636, 612, 372},
       &kFrameColorInDialog},
      {"Frame1(1)", "", page, {}, kPagePlace},
      {"chkSoundRandom", "Frame1(2)", check_box, option_texts::kSoundRandom, {120, 180, 3600, 252}, &kSoundRandom},
      {"chkResetSoundList",
       "Frame1(2)",
       check_box,
       option_texts::kResetSoundList,
       {120, 570, 3600, 252},
       &kResetSoundList},
      {"Frame1(2)", "", page, {}, kPagePlace},
      {"Frame4", "Frame1(1)", group, {}, {2940, 1830, 2724, 1128}},
      {"lblScaling", "Frame1(3)", label, caption(option_texts::kScaling), MoreLabel(0)},
      {"cboScaling", "Frame1(3)", scalings, tip(option_texts::kScaling.tip), MoreList(0), &kScaling},
      {"chkFitBackdrop", "Frame1(3)", check_box, option_texts::kFitBackdrop, MoreCheck(1), &kFitBackdrop},
      {"lblCaptionText", "Frame1(3)", label, caption(option_texts::kCaptionText), MoreLabel(2)},
      {"cboCaptionText", "Frame1(3)", captions, tip(option_texts::kCaptionText.tip), MoreList(2), &kCaptionText},
      {"chkSubFolders", "Frame1(3)", check_box, option_texts::kSubFolders, MoreCheck(3), &kSubFolders},
      {"lblOrder", "Frame1(3)", label, caption(option_texts::kOrder), MoreLabel(4)},
      {"cboOrder", "Frame1(3)", orders, tip(option_texts::kOrder.tip), MoreList(4), &kOrder},
      {"chkMoreKinds", "Frame1(3)", check_box, option_texts::kMoreKinds, MoreCheck(5), &kMoreKinds},
      {"lblMonitors", "Frame1(3)", label, caption(option_texts::kMonitors), MoreLabel(6)},
      {"cboMonitors", "Frame1(3)", monitors, tip(option_texts::kMonitors.tip), MoreList(6), &kMonitors},
      {"Frame1(3)", "", page, {}, kPagePlace},
      {"cmdOK", "", button, option_texts::kOk, {2568, 3648, 1095, 360}},
      {"cmdCancel", "", button, option_texts::kCancel, {3783, 3648, 1095, 360}},
      {"cmdHelp", "", button, option_texts::kHelp, {4998, 3648, 1095, 360}},
      {"Label3", "Frame3", label, {option_texts::kSlow}, {120, 1272, 600, 228}},
      {"Label4", "Frame3", centred, {option_texts::kFast}, {2124, 1272, 480, 228}},
  };
}

std::size_t Rank(const OptionField& field) {
  return static_cast<std::size_t>(std::ranges::find(kDialogOptions, field.option) - std::begin(kDialogOptions));
}

// Where `failing`, passes on failures up to `kLastFailing`; ignores all others. False if the store can't be read.
bool LoadFields(const std::vector<OptionField>& fields, const Options& options, bool failing) {
  bool was_read = true;
  for (const OptionField& field : fields) {
    std::string stored;
    if (!options.Read(*field.option, stored)) was_read = false;
    try {
      field.show(stored);
    } catch (const Failure& failure) {
      if (failing) {
        throw Failure(failure.Number(), std::string(field.option->key) + ": " + failure.Description(),
                      failure.Source());
      }
    }
    failing = failing && field.option != kLastFailing;
  }
  return was_read;
}

}  // namespace

// Creates the controls of the rows. What is created later lies on top, so that frames come first, the outer ones before
// the inner.
class OptionsTable::Builder {
 public:
  Builder(OptionsTable& table, Form& form) : table_(table), form_(form) {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      if (rows_[i].maker.is_ground) Create(i);
    }
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      if (!rows_[i].maker.is_ground) Create(i);
    }
    for (const PageRow& page : kPages) table_.pages_.push_back(frames_.at(page.frame));
    for (Frame* const frame : table_.pages_) frame->SetVisible(frame == table_.pages_.front());
    std::ranges::sort(table_.fields_, {}, Rank);
  }

 private:
  void Create(std::size_t index) {
    const ControlRow& row = rows_[index];
    if (frames_.contains(row.name)) return;
    Made made = row.maker.make(form_,
                               {.name = row.name,
                                .caption = row.text.caption,
                                .place = row.place,
                                .tool_tip = row.text.tip,
                                .tab_index = static_cast<int>(index),
                                .container = FrameNamed(row.container)},
                               row.option);
    if (auto* const frame = dynamic_cast<Frame*>(made.control.get())) frames_[row.name] = frame;
    if (made.field) table_.fields_.push_back(std::move(*made.field));
    table_.controls_.push_back(std::move(made.control));
  }

  Frame* FrameNamed(std::string_view name) {
    if (name.empty()) return nullptr;
    if (!frames_.contains(name)) {
      const auto row = std::ranges::find(rows_, name, &ControlRow::name);
      Create(static_cast<std::size_t>(row - rows_.begin()));
    }
    return frames_.at(std::string(name));
  }

  OptionsTable& table_;
  Form& form_;
  const std::vector<ControlRow> rows_ = Rows();
  std::map<std::string, Frame*, std::less<>> frames_;
};

OptionsTable::OptionsTable(Form& form) { const Builder builder(*this, form); }

bool OptionsTable::Load(const Options& options) const { return LoadFields(fields_, options, true); }

bool OptionsTable::LoadUsable(const Options& options) const { return LoadFields(fields_, options, false); }

void OptionsTable::Save(Options& options) const {
  bool on_more_page = false;
  for (const OptionField& field : fields_) {
    on_more_page = on_more_page || field.option == kFirstOnMorePage;
    const std::string value = field.value();
    if (on_more_page && value == options.Text(*field.option)) continue;
    options.SetText(*field.option, value);
  }
}

}  // namespace quorvale
