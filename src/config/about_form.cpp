#include "config/about_form.h"

#include <array>

#include "base/application_info.h"
#include "base/failure.h"
#include "base/strings.h"
#include "config/artwork.h"
#include "process/process.h"
#include "system/file_system.h"
#include "system/programs.h"
#include "system/registry.h"

namespace quorvale {
namespace {

namespace about_texts = strings::about;

constexpr TwipSize kAboutSize = {6120, 3948};
constexpr TwipRect kFilmPlace = {240, 240, 624, 1812};
// Smaller than its control, so that it does not touch the line below.
constexpr float kIconShown = 32;
constexpr Colour kBlue = 0xFF0000;
constexpr Colour kDarkLine = 0x808080;
constexpr Colour kLightGrey = 0xE0E0E0;

constexpr std::uint32_t kInfoAccess = 0x2003F;
constexpr std::size_t kValueSize = 1024;
constexpr char kInfoKey[] = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
constexpr char kInfoPathValue[] = "PATH";
constexpr char kToolsKey[] = R"(SOFTWARE\Microsoft\Shared Tools Location)";
constexpr char kInfoFolderValue[] = "MSINFO";
constexpr char kInfoProgram[] = "\\MSINFO32.EXE";

}  // namespace

AboutForm::AboutForm(Process& process)
    : Form(process.app, "frmAbout", WindowKind::kDialog, about_texts::kTitle),
      film(*this, {.name = "picIcon", .caption = about_texts::kFilm, .place = kFilmPlace},
           FilmArtwork(kFilmPlace.width / kTwipsPerPixel, kFilmPlace.height / kTwipsPerPixel)),
      title(*this, {.name = "lblTitle", .place = {1056, 240, 4236, 480}}, {.one_line = true}),
      legal_notice(*this,
                   {.name = "lblVersion", .caption = about_texts::kLegalNotice, .place = {1080, 780, 3612, 228}}),
      web_link(
          *this,
          {.name = "Image1", .place = {1080, 2160, 624, 624}, .tool_tip = about_texts::kWebPageTip, .tab_index = 2},
          IconArtwork(kIconShown)),
      web_address(*this, {.name = "Label2", .caption = kWebAddress, .place = {1920, 2280, 2292, 228}}),
      dark_line(*this, {.name = "Line1(0)", .place = {100, 2688, 5560, 0}}, kDarkLine),
      light_line(*this, {.name = "Line1(1)", .place = {100, 2712, 5560, 0}}, kLightGrey),
      disclaimer(*this,
                 {.name = "lblDisclaimer", .caption = about_texts::kDisclaimer, .place = {252, 2868, 3876, 828}}),
      ok(*this, {.name = "cmdOK", .caption = about_texts::kOk, .place = {4245, 2868, 1260, 345}, .tab_index = 0}),
      system_info(*this, {.name = "cmdSysInfo",
                          .caption = about_texts::kSystemInfo,
                          .place = {4260, 3312, 1245, 345},
                          .tab_index = 1}),
      process_(process) {
  SetClientSize(kAboutSize.width, kAboutSize.height);
  SetIcon(IconArtwork(kIconShown));
  web_address.SetForeColor(kBlue);
  ok.is_default = true;
  ok.is_cancel = true;

  ok.Click = [this] { Unload(); };
  system_info.Click = [this] { StartSysInfo(); };
  web_link.Click = [this] { Image1_Click(); };
}

void AboutForm::Form_Load() {
  CenterOnScreen();
  SetCaption(strings::Fill(about_texts::kTitleNamed, {kProductName}));
  title.SetCaption(strings::Fill(
      about_texts::kVersion,
      {kProductName, std::to_string(kVersionMajor), std::to_string(kVersionMinor), std::to_string(kVersionRevision)}));
}

void AboutForm::StartSysInfo() {
  try {
    const std::string tool = FindSysInfo();
    if (tool.empty()) throw Failure(FailureNumber::kNotFound, "No information tool", Name());
    process_.system.programs.Start(tool, kWindowNormalFocus);
  } catch (const Failure&) {
    App().ShowMessageBox({.text = about_texts::kNoSystemInfo});
  }
}

std::string AboutForm::FindSysInfo() {
  std::string path;
  if (GetKeyValue(kHkeyLocalMachine, kInfoKey, kInfoPathValue, path)) return path;
  if (GetKeyValue(kHkeyLocalMachine, kToolsKey, kInfoFolderValue, path)) {
    path += kInfoProgram;
    return process_.system.files.FindFile(path, kAttributeNormal).empty() ? std::string() : path;
  }
  return process_.system.programs.SystemInformationTool();
}

bool AboutForm::GetKeyValue(std::uint32_t key_root, const std::string& key_name, const std::string& sub_key,
                            std::string& text) {
  Registry& registry = process_.system.registry;
  RegistryKey key = 0;
  const std::int32_t opened = registry.RegOpenKeyEx(key_root, key_name, kInfoAccess, key);
  const OpenRegistryKey open_key(registry, key);

  std::uint32_t type = 0;
  std::array<char, kValueSize> buffer = {};
  std::uint32_t size = kValueSize;
  if (opened != kErrorSuccess ||
      registry.RegQueryValueEx(open_key.Get(), sub_key, type, buffer.data(), size) != kErrorSuccess) {
    text.clear();
    return false;
  }
  std::string value(buffer.data(), size);
  if (value.ends_with('\0')) value.pop_back();
  if (type == kRegSz) text = value;
  if (type == kRegDword) text = std::to_string(static_cast<std::int32_t>(DwordOf(value)));
  return true;
}

// Where no browser opens it, the address still stands on the form.
void AboutForm::Image1_Click() {
  try {
    process_.system.programs.ShellExecute("Open", kWebAddress, kWindowNormalFocus);
  } catch (const Failure&) {
    return;
  }
}

}  // namespace quorvale
