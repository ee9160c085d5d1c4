#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "common/logged_events.h"
#include "platform/win32/win32_platform.h"
#include "toolkit/picture.h"
#include "toolkit/surface.h"

namespace quorvale {

class NoPictures : public PictureLoader {
 public:
  std::shared_ptr<Picture> Load(const std::string& /*path*/, const PicturePlace& /*place*/) override { return nullptr; }
};

// A show's window with one picture box, and a log of the events that they report.
class PlatformFixture : public testing::Test, public LoggedEvents {
 protected:
  static constexpr PixelRect kBounds{0, 0, 200, 100};

  explicit PlatformFixture(PassLengths lengths = {})
      : platform_({"Title of the program", PixelKind::kPhysical, lengths}, pictures_) {
    window_ = platform_.CreateWindowPeer(WindowKind::kSaver, *this);
    window_->SetBounds(kBounds);
    surface_.Resize(kBounds.width, kBounds.height, ToPixel(kBlack));
    box_ = platform_.CreateSurfacePeer(*window_, surface_, *this);
    box_->SetBounds(kBounds);
  }

  void Show() {
    window_->SetVisible(true);
    platform_.PumpEvents();
  }

  HWND FormWindow() const { return reinterpret_cast<HWND>(window_->Handle()); }
  HWND BoxWindow() const { return reinterpret_cast<HWND>(box_->Handle()); }

  COLORREF OnScreen(int x, int y) const {
    const HDC context = GetDC(BoxWindow());
    const COLORREF colour = GetPixel(context, x, y);
    ReleaseDC(BoxWindow(), context);
    return colour;
  }

  // Runs events until `condition`, or for some seconds.
  template <typename Condition>
  bool RunUntil(Condition condition) {
    const ULONGLONG deadline = GetTickCount64() + 10'000;
    while (!condition() && GetTickCount64() < deadline) {
      platform_.PumpEvents();
      MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    }
    return condition();
  }

  // Runs events until the show has found twice that it holds the screen.
  void Settle() {
    const ULONGLONG settled = GetTickCount64() + 1200;
    RunUntil([settled] { return GetTickCount64() >= settled; });
  }

  NoPictures pictures_;
  Win32Platform platform_;
  Surface surface_;
  std::unique_ptr<WindowPeer> window_;
  std::unique_ptr<SurfacePeer> box_;
  bool handlers_throw_ = false;
  std::function<void()> on_deactivated_ = [] {};

 private:
  void Log(const std::string& what) override {
    LoggedEvents::Log(what);
    if (handlers_throw_) throw std::runtime_error("A handler that fails");
  }
  void OnDeactivated() override {
    on_deactivated_();
    LoggedEvents::OnDeactivated();
  }
};

}  // namespace quorvale
