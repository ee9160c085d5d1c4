#include "settings/options.h"

#include <algorithm>

#include "base/numbers.h"

namespace quorvale {
namespace {

constexpr char kSection[] = "Options";

}  // namespace

std::size_t OptionRow::ChoiceOf(std::string_view text) const {
  const auto found = std::ranges::find(choices, text);
  return found == choices.end() ? 0 : static_cast<std::size_t>(found - choices.begin());
}

Colour Options::WipeColour() const { return static_cast<Colour>(RoundToInt32(StrictNumber(Get(kBackColor.key, "0")))); }

std::int32_t Options::TransSpeed() const { return RoundToInt32(Number(kTransSpeed)); }

bool Options::IsAnyNumber(const OptionRow& row) const { return RoundToInt32(Number(row)) != 0; }

std::string Options::Get(const std::string& key, const std::string& fallback) const {
  return settings_.GetSetting(kSection, key, fallback, kHkeyCurrentUser);
}

bool Options::Set(const std::string& key, const std::string& text) {
  return settings_.SaveSetting(kSection, key, text, kHkeyCurrentUser);
}

bool Options::Read(const OptionRow& row, std::string& text) const {
  text = row.fallback;
  return settings_.ReadSetting(kSection, row.key, text, kHkeyCurrentUser) != SettingRead::kFailed;
}

bool Options::IsOn(const OptionRow& row) const { return quorvale::IsOn(Text(row)); }

double Options::Number(const OptionRow& row) const { return LenientParse(Text(row)); }

Colour Options::ColourOf(const OptionRow& row) const { return static_cast<Colour>(RoundToInt32(Number(row))); }

}  // namespace quorvale
