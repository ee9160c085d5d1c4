#pragma once

#include <string>
#include <vector>

#include "toolkit/platform.h"

namespace quorvale {

// Records the events of a form's window and of its picture box in words.
class LoggedEvents : public WindowEvents, public SurfaceEvents {
 public:
  void OnKeyDown(int key) override { log.push_back("key " + std::to_string(key)); }
  void OnMouseDown() override { log.emplace_back("form press"); }
  void OnMouseMove() override { log.emplace_back("form move"); }
  void OnCloseRequested() override { log.emplace_back("close"); }
  void OnHelpRequested() override { log.emplace_back("help"); }
  void OnDeactivated() override { log.emplace_back("deactivated"); }
  void OnScreenChanged() override { log.emplace_back("screen"); }
  void OnMouseDown(int x, int y) override { log.push_back("box press " + At(x, y)); }
  void OnMouseMove(int x, int y) override { log.push_back("box move " + At(x, y)); }
  void OnScaleChanged() override { log.emplace_back("scale"); }

  std::vector<std::string> log;

 private:
  static std::string At(int x, int y) { return std::to_string(x) + ' ' + std::to_string(y); }
};

}  // namespace quorvale
