// Measures the built program on the X server that DISPLAY names. scripts/bench.sh runs it.

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

#include "bench_files.h"
#include "groups.h"
#include "platform/desktop/toolkit/start_up.h"

namespace quorvale {
namespace {

struct Group {
  const char* name;
  void (*measure)(Bench&);
};

constexpr Group kGroups[] = {
    {"load", MeasureLoading},         {"kinds", MeasureKinds},
    {"metafiles", MeasureMetafiles},  {"memory", MeasureMemory},
    {"effects", MeasureEffects},      {"spotlight", MeasureSpotlight},
    {"lists", MeasureLists},          {"show", MeasureShow},
    {"preview", MeasurePreview},      {"start", MeasureStart},
    {"config", MeasureConfiguration},
};

struct CommandLine {
  bool quick = false;
  bool thorough = false;
  std::string json;
  std::vector<const Group*> groups;
};

bool Parse(int argc, char** argv, CommandLine& line) {
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    const auto* const group =
        std::find_if(std::begin(kGroups), std::end(kGroups), [&](const Group& g) { return argument == g.name; });
    if (argument == "--quick") {
      line.quick = true;
    } else if (argument == "--thorough") {
      line.thorough = true;
    } else if (argument == "--json" && i + 1 < argc) {
      line.json = argv[++i];
    } else if (group != std::end(kGroups)) {
      line.groups.push_back(group);
    } else {
      return false;
    }
  }
  return true;
}

void Run(const CommandLine& line) {
  UseOwnSettings();
  Report report(line.json);
  XDisplay display;
  Bench bench{report, display, line.quick, line.thorough};
  for (const Group* const group : line.groups) group->measure(bench);
}

}  // namespace
}  // namespace quorvale

int main(int argc, char** argv) {
  using namespace quorvale;
  CommandLine line;
  if (!Parse(argc, argv, line)) {
    std::fputs("Usage: quorvale-bench [--quick] [--thorough] [--json FILE] GROUP...\n", stderr);
    return 2;
  }
  TurnScalingOff();
  QGuiApplication::setQuitOnLastWindowClosed(false);
  int qt_argc = 1;
  const QApplication application(qt_argc, argv);
  try {
    Run(line);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "quorvale-bench: %s\n", failure.what());
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
