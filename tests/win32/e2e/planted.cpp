// Writes "planted.txt" in its own directory when it is run or loaded. Built as a program and as a library.

#include <windows.h>

#include <array>
#include <fstream>
#include <string>

namespace {

struct Word {
  Word() {
    HMODULE self = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const char*>(this), &self);
    std::array<char, MAX_PATH> path{};
    GetModuleFileNameA(self, path.data(), MAX_PATH);
    const std::string name = path.data();
    std::ofstream(name.substr(0, name.rfind('\\') + 1) + "planted.txt", std::ios::app) << name << '\n';
  }
} const kWord;

}  // namespace

int main() { return 0; }
