// What the system's loader reads of the program before it runs.

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "platform/win32/system/modules.h"
#include "platform/win32/windows_api.h"

namespace quorvale {
namespace {

class ProgramFileTest : public testing::Test {
 protected:
  void SetUp() override {
    const std::string own = ProgramPath();
    const std::string path = own.substr(0, own.rfind('\\') + 1) + "Quorvale.scr";
    module_ = LoadLibraryExA(path.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
    ASSERT_NE(module_, nullptr) << path;
  }
  ~ProgramFileTest() override { FreeLibrary(module_); }

  template <typename Type>
  const Type* At(ULONGLONG offset) const {
    return reinterpret_cast<const Type*>(reinterpret_cast<const char*>(module_) + offset);
  }
  const IMAGE_NT_HEADERS& Headers() const {
    return *At<IMAGE_NT_HEADERS>(static_cast<ULONGLONG>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
  }

  std::vector<std::string> Imports() const {
    std::vector<std::string> names;
    const DWORD table = Headers().OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(table); library->Name != 0; ++library) {
      for (const auto* entry = At<IMAGE_THUNK_DATA>(library->OriginalFirstThunk); entry->u1.AddressOfData != 0;
           ++entry) {
        if (IMAGE_SNAP_BY_ORDINAL(entry->u1.Ordinal)) continue;
        names.emplace_back(reinterpret_cast<const char*>(At<IMAGE_IMPORT_BY_NAME>(entry->u1.AddressOfData)->Name));
      }
    }
    return names;
  }

  HMODULE module_ = nullptr;
};

TEST_F(ProgramFileTest, SaysWhatItIsMadeFor) {
  const IMAGE_OPTIONAL_HEADER& header = Headers().OptionalHeader;
  EXPECT_EQ(header.MajorSubsystemVersion, 6);
  EXPECT_EQ(header.MinorSubsystemVersion, 0);
  EXPECT_EQ(header.Subsystem, IMAGE_SUBSYSTEM_WINDOWS_GUI);
  constexpr WORD kWanted = IMAGE_DLLCHARACTERISTICS_TERMINAL_SERVER_AWARE | IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE |
                           IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
  EXPECT_EQ(header.DllCharacteristics & kWanted, kWanted);
  EXPECT_NE(Headers().FileHeader.Characteristics & IMAGE_FILE_LARGE_ADDRESS_AWARE, 0);
}

// A Windows that lacks an imported function does not start the program: such functions are looked for at run time.
TEST_F(ProgramFileTest, ImportsWhatEveryWindowsHas) {
  const std::vector<std::string> imports = Imports();
  EXPECT_THAT(imports, testing::Contains("CreateFileW"));
  for (const char* const name :
       {"GetSystemTimePreciseAsFileTime", "GetDpiForWindow", "GetDpiForSystem", "AdjustWindowRectExForDpi",
        "SetThreadDpiAwarenessContext", "GetWindowDpiAwarenessContext", "CreateFile2", "WaitOnAddress"}) {
    EXPECT_THAT(imports, testing::Not(testing::Contains(name)));
  }
}

}  // namespace
}  // namespace quorvale
