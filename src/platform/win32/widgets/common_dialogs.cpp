#include "platform/win32/widgets/common_dialogs.h"

#include <commdlg.h>
#include <objbase.h>
#include <shlobj.h>

#include <algorithm>
#include <array>
#include <memory>

#include "platform/win32/toolkit/wide_text.h"

namespace quorvale {
namespace {

// Room for some hundreds of files in any case.
constexpr int kLeastRoom = 65'536;

// A text and the NUL behind it, for a list that ends with one more.
std::wstring Zeroed(std::string text) {
  std::replace(text.begin(), text.end(), '|', '\0');
  return ToWide(text) + L'\0';
}

// All texts up to the first empty one, each with a NUL before it but the first.
std::string Joined(const wchar_t* texts) {
  std::string joined;
  for (const wchar_t* text = texts; *text != L'\0'; text += std::wstring_view(text).size() + 1) {
    if (!joined.empty()) joined += '\0';
    joined += FromWide(text);
  }
  return joined;
}

struct FreeTaskMemory {
  void operator()(void* memory) const { CoTaskMemFree(memory); }
};

}  // namespace

std::string ShowWin32FileDialog(HWND owner, const FileDialog& dialog) {
  std::wstring path = ToWide(dialog.start_name);
  path.resize(std::max(
      {path.size() + 1, static_cast<std::size_t>(dialog.max_file_size), static_cast<std::size_t>(kLeastRoom)}));
  const std::wstring filter = Zeroed(dialog.filter);
  const std::wstring title = ToWide(dialog.title);
  OPENFILENAMEW request{};
  request.lStructSize = sizeof request;
  request.hwndOwner = owner;
  request.lpstrFilter = dialog.filter.empty() ? nullptr : filter.c_str();
  request.nFilterIndex = static_cast<DWORD>(std::max(1, dialog.filter_index));
  request.lpstrFile = path.data();
  request.nMaxFile = static_cast<DWORD>(path.size());
  request.lpstrTitle = dialog.title.empty() ? nullptr : title.c_str();
  // Relative paths of the program stay what they are.
  request.Flags = dialog.flags | OFN_EXPLORER | OFN_NOCHANGEDIR;
  const bool is_chosen = (dialog.save ? GetSaveFileNameW(&request) : GetOpenFileNameW(&request)) != 0;
  if (!is_chosen) return {};
  // Behind a single answer there may be a rest of the name that the dialog began with.
  return (dialog.flags & kOfnAllowMultiSelect) != 0 ? Joined(path.c_str()) : FromWide(path.c_str());
}

Colour ShowWin32ColourDialog(HWND owner, Colour start) {
  std::array<COLORREF, 16> own_colours{};
  own_colours.fill(kWhite);
  CHOOSECOLORW request{};
  request.lStructSize = sizeof request;
  request.hwndOwner = owner;
  request.rgbResult = start;
  request.lpCustColors = own_colours.data();
  request.Flags = CC_RGBINIT;
  return ChooseColorW(&request) != 0 ? static_cast<Colour>(request.rgbResult) : start;
}

std::string BrowseWin32Folder(HWND owner, const std::string& title) {
  const std::wstring wide_title = ToWide(title);
  BROWSEINFOW request{};
  request.hwndOwner = owner;
  request.lpszTitle = wide_title.c_str();
  request.ulFlags = BIF_RETURNONLYFSDIRS;
  const std::unique_ptr<ITEMIDLIST, FreeTaskMemory> chosen(SHBrowseForFolderW(&request));
  std::array<wchar_t, MAX_PATH> path{};
  if (!chosen || SHGetPathFromIDListW(chosen.get(), path.data()) == 0) return {};
  return FromWide(path.data());
}

}  // namespace quorvale
