#include "live_show.h"

#include <QCoreApplication>

#include "base/failure.h"
#include "base/numbers.h"
#include "measure.h"
#include "platform/desktop/toolkit/x11_session.h"
#include "playlist/media_collections.h"
#include "saver/control_form.h"
#include "saver/main_form.h"

namespace quorvale {
namespace {

constexpr int kNoTick = 60'000;  // milliseconds

}  // namespace

bool ShowsBackground(const XDisplay& display) { return display.Centre() == ToPixel(kShowBackground); }

void ClearScreen(XDisplay& display) {
  display.SetBackground(kBareScreen);
  WaitUntil("the bare screen", [&] { return display.Centre() == kBareScreen; });
}

void WaitForPicture(const XDisplay& display) {
  WaitUntil("a picture", [&] {
    const Pixel centre = display.Centre();
    return centre != kBareScreen && centre != ToPixel(kShowBackground) && centre != ToPixel(kBlack);
  });
}

void ShowStore::Set(const ShowSettings& show) {
  settings_.DeleteSetting(kPictureSection);
  for (std::size_t i = 0; i < show.pictures.size(); ++i) {
    settings_.SaveSetting(kPictureSection, kFileKeyPrefix + std::to_string(i), show.pictures[i]);
  }
  SetOption("LastPicture", "0");
  SetOption("BackColor", std::to_string(kShowBackground));
  SetOption("SwapAffect", show.effect);
  SetOption("Stretch", show.stretch ? "1" : "0");
  SetOption("Interval", std::to_string(show.interval));
  SetOption("TransSpeed", std::to_string(show.speed));
}

void ShowStore::SetOption(const std::string& key, const std::string& value) {
  settings_.SaveSetting("Options", key, value);
}

int ShowStore::PicturesShown() {
  return static_cast<int>(LenientParse(settings_.GetSetting("Options", "LastPicture", "0")));
}

LiveShow::LiveShow(XDisplay& display, const PassLengths& pass_lengths, WindowHandle host)
    : display_(display), desktop_(pass_lengths) {
  ShowForms(host);
  form_->tmrSwitch.Elapsed = [this, tick = form_->tmrSwitch.Elapsed] {
    since_event_ = Stopwatch();
    tick();
    ticked_ = true;
  };
  form_->tmrSwitch.SetInterval(kNoTick);
  WaitUntil("the show's window", [&] {
    Present();
    return ShowsBackground(display_);
  });
}

void LiveShow::ShowForms(WindowHandle host) {
  if (host == 0) {
    form_ = std::make_shared<MainForm>(Core());
    form_->Show();
    return;
  }
  Core().mode = RunMode::kPreview;
  Core().screen_twips_x = RoundToInt16(Core().app.Screen().twips_per_pixel_x);
  Core().screen_twips_y = RoundToInt16(Core().app.Screen().twips_per_pixel_y);
  Core().system_hwnd = static_cast<std::int32_t>(host);
  form_ = std::make_shared<ControlForm>(Core());
  form_->Load();
}

double LiveShow::Tick() {
  ticked_ = false;
  form_->tmrSwitch.SetInterval(1);
  while (!ticked_) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  Present();
  const double milliseconds = since_event_.Milliseconds();
  form_->tmrSwitch.SetInterval(kNoTick);
  RequirePicture();
  return milliseconds;
}

void LiveShow::Present() {
  desktop_.core.app.PumpEvents();
  RoundTrip(X11Connection());
}

void LiveShow::RequirePicture() {
  const Surface& surface = form_->PicBase.Pixels();
  const Pixel drawn = surface.At(surface.Width() / 2, surface.Height() / 2) | 0xFF000000U;
  if (drawn == ToPixel(kShowBackground) || display_.Centre() != drawn) {
    throw Failure(FailureNumber::kInternal, "The picture is not on the screen", "bench");
  }
}

}  // namespace quorvale
