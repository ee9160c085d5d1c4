#pragma once

#include <string>
#include <vector>

#include "toolkit/platform.h"

namespace quorvale {

// Records the events of a form's window and of its picture box in words.
class LoggedEvents : public WindowEvents, public SurfaceEvents {
 public:
  void OnKeyDown(int key) override { Log("key " + std::to_string(key)); }
  void OnMouseDown() override { Log("form press"); }
  void OnMouseMove() override { Log("form move"); }
  void OnCloseRequested() override { Log("close"); }
  void OnHelpRequested() override { Log("help"); }
  void OnDeactivated() override { Log("deactivated"); }
  void OnScreenChanged() override { Log("screen"); }
  void OnMouseDown(int x, int y) override { Log("box press " + At(x, y)); }
  void OnMouseMove(int x, int y) override { Log("box move " + At(x, y)); }
  void OnScaleChanged() override { Log("scale"); }

  std::vector<std::string> log;

 protected:
  virtual void Log(const std::string& what) { log.push_back(what); }

 private:
  static std::string At(int x, int y) { return std::to_string(x) + ' ' + std::to_string(y); }
};

}  // namespace quorvale
