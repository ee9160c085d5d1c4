#include "config/about_form.h"

#include <array>

#include "base/failure.h"
#include "config/application_info.h"
#include "config/artwork.h"
#include "config/center_form.h"
#include "process/process.h"
#include "settings/version_record.h"
#include "system/file_system.h"
#include "system/programs.h"
#include "system/registry.h"

namespace quorvale {
namespace {

constexpr float kClientWidth = 6120;
constexpr float kClientHeight = 3948;
constexpr TwipRect kFilmPlace = {240, 240, 624, 1812};
constexpr TwipRect kIconPlace = {1080, 2160, 624, 624};
// Smaller than its control, so that it does not touch the line below.
constexpr float kIconSide = 32;
constexpr Colour kBlue = 0xFF0000;
constexpr Colour kGrey = 0x808080;
constexpr Colour kLightGrey = 0xE0E0E0;
constexpr char kWebPageHint[] = "Opens the maker's web page.";
constexpr char kDisclaimer[] =
    "This program comes without any warranty, as far as the law allows. Pictures and sounds in your play lists "
    "belong to their makers; the licence that came with the program says what you may do with it.";

constexpr std::uint32_t kInfoAccess = 0x2003F;
constexpr std::size_t kValueSize = 1024;
constexpr char kInfoKey[] = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
constexpr char kInfoPathValue[] = "PATH";
constexpr char kToolsKey[] = R"(SOFTWARE\Microsoft\Shared Tools Location)";
constexpr char kInfoFolderValue[] = "MSINFO";
constexpr char kInfoProgram[] = "\\MSINFO32.EXE";

// A little-endian 32-bit number in decimal. Missing bytes count as 0.
std::string DecimalOf(const std::string& bytes) {
  constexpr std::size_t kNumberSize = 4;
  std::uint32_t number = 0;
  std::uint32_t shift = 0;
  for (const char byte : bytes.substr(0, kNumberSize)) {
    number |= static_cast<std::uint32_t>(static_cast<unsigned char>(byte)) << shift;
    shift += 8;
  }
  return std::to_string(static_cast<std::int32_t>(number));
}

}  // namespace

frmAbout::frmAbout(Process& process)
    : Form(process.app, "frmAbout", WindowKind::kDialog, "About"),
      picIcon(*this, {.name = "picIcon", .place = kFilmPlace},
              FilmArtwork(kFilmPlace.width / kTwipsPerPixel, kFilmPlace.height / kTwipsPerPixel)),
      lblTitle(*this, {.name = "lblTitle", .caption = "Application Title", .place = {1056, 240, 4236, 480}},
               {.one_line = true}),
      lblVersion(*this, {.name = "lblVersion", .caption = "Version", .place = {1080, 780, 3612, 228}}),
      Image1(*this, {.name = "Image1", .place = kIconPlace, .tool_tip = kWebPageHint, .tab_index = 2},
             IconArtwork(kIconSide)),
      Label2(*this, {.name = "Label2", .caption = kWebAddress, .place = {1920, 2280, 2292, 228}}),
      Line1_0(*this, {.name = "Line1(0)", .place = {100, 2688, 5560, 0}}, kGrey),
      Line1_1(*this, {.name = "Line1(1)", .place = {100, 2712, 5560, 0}}, kLightGrey),
      lblDisclaimer(*this, {.name = "lblDisclaimer", .caption = kDisclaimer, .place = {252, 2868, 3876, 828}}),
      cmdOK(*this, {.name = "cmdOK", .caption = "OK", .place = {4245, 2868, 1260, 345}, .tab_index = 0}),
      cmdSysInfo(
          *this,
          {.name = "cmdSysInfo", .caption = "&System Info...", .place = {4260, 3312, 1245, 345}, .tab_index = 1}),
      process_(process) {
  SetClientSize(kClientWidth, kClientHeight);
  SetIcon(IconArtwork(kIconSide));
  Label2.SetForeColor(kBlue);
  cmdOK.Default = true;
  cmdOK.Cancel = true;

  cmdOK.Click = [this] { Unload(); };
  cmdSysInfo.Click = [this] { StartSysInfo(); };
  Image1.Click = [this] { Image1_Click(); };
}

void frmAbout::Form_Load() {
  CenterForm(*this);
  const std::string product = kProductName;
  SetCaption("About " + product);
  lblVersion.SetCaption(kLegalNotice);
  lblTitle.SetCaption(product + "   Version " + std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) +
                      "." + std::to_string(kVersionRevision));
}

void frmAbout::StartSysInfo() {
  try {
    const std::string tool = FindSysInfo();
    if (tool.empty()) throw Failure(FailureNumber::kNotFound, "No information tool", Name());
    process_.system.programs.Start(tool, kWindowNormalFocus);
  } catch (const Failure&) {
    App().ShowMessageBox({.text = "System Information Is Unavailable At This Time"});
  }
}

std::string frmAbout::FindSysInfo() {
  std::string path;
  if (GetKeyValue(kHkeyLocalMachine, kInfoKey, kInfoPathValue, path)) return path;
  if (GetKeyValue(kHkeyLocalMachine, kToolsKey, kInfoFolderValue, path)) {
    path += kInfoProgram;
    return process_.system.files.FindFile(path, kAttributeNormal).empty() ? std::string() : path;
  }
  return process_.system.programs.SystemInformationTool();
}

bool frmAbout::GetKeyValue(std::uint32_t KeyRoot, const std::string& KeyName, const std::string& SubKeyRef,
                           std::string& KeyVal) {
  Registry& registry = process_.system.registry;
  RegistryKey key = 0;
  const std::int32_t opened = registry.RegOpenKeyEx(KeyRoot, KeyName, kInfoAccess, key);
  const OpenRegistryKey open_key(registry, key);

  std::uint32_t type = 0;
  std::array<char, kValueSize> buffer = {};
  std::uint32_t size = kValueSize;
  if (opened != kErrorSuccess ||
      registry.RegQueryValueEx(open_key.Get(), SubKeyRef, type, buffer.data(), size) != kErrorSuccess) {
    KeyVal.clear();
    return false;
  }
  std::string value(buffer.data(), size);
  if (value.ends_with('\0')) value.pop_back();
  if (type == kRegSz) KeyVal = value;
  if (type == kRegDword) KeyVal = DecimalOf(value);
  return true;
}

// Where no browser opens it, the address still stands on the form.
void frmAbout::Image1_Click() {
  try {
    process_.system.programs.ShellExecute("Open", kWebAddress, kWindowNormalFocus);
  } catch (const Failure&) {
    return;
  }
}

}  // namespace quorvale
