#pragma once

#include <string>

namespace quorvale {

// The path of the program of that name that was built together with the bench.
std::string BuiltProgram(const std::string& name);

// A directory of the bench's own, beside the built programs. What lies there serves the next run too.
std::string BenchDirectory(const std::string& name);

// A directory with that many files: pictures by their names, and one other in ten.
std::string DirectoryOfFiles(int count);

// Makes this process and the programs that it starts keep their settings in a new store of the bench's own.
void UseOwnSettings();

}  // namespace quorvale
