// The yardstick as a program, so that its memory can be measured. Shows one picture until it is ended by a signal.

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "yardstick/yardstick.h"

int main(int argc, char** argv) {
  using namespace quorvale;
  if (argc != 2) {
    std::fputs("Usage: quorvale-yardstick FILE\n", stderr);
    return EXIT_FAILURE;
  }
  try {
    XDisplay display;
    SharedWindow window(display);
    window.SetVisible(true);
    ShowByYardstick(argv[1], Fit::kStretched, window);
    pause();
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "quorvale-yardstick: %s\n", failure.what());
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
