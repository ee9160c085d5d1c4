#include "saver/monitor_forms.h"

#include <algorithm>
#include <utility>

#include "process/process.h"
#include "show/slide_tick.h"
#include "toolkit/platform.h"

namespace quorvale {
namespace {

using Forms = std::vector<std::shared_ptr<MonitorForm>>;

// Takes the form at this place out of `forms`; if there is none, any form, which then has lost its own monitor.
std::shared_ptr<MonitorForm> TakeFormAt(Forms& forms, const PixelRect& place, bool or_any) {
  auto found = std::ranges::find(forms, place, &MonitorForm::Place);
  if (found == forms.end() && or_any) found = forms.begin();
  if (found == forms.end()) return nullptr;
  auto form = std::move(*found);
  forms.erase(found);
  return form;
}

}  // namespace

MonitorForm::MonitorForm(Process& process, const PixelRect& place, const MonitorEvents& events, Turns& turns)
    : ShowForm(process, "MonitorForm", WindowKind::kMonitor, "", SaverFont()),
      place_(place),
      events_(events),
      turns_(turns) {
  PicBase.KeyDown = [this](int /*key*/) { events_.ended(); };
  PicBase.MouseDown = [this] { events_.ended(); };
  PicBase.MouseMove = [this] { events_.mouse_move(); };
  PicPreview.MouseDown = PicBase.MouseDown;
  PicPreview.MouseMove = PicBase.MouseMove;
}

void MonitorForm::MoveTo(const PixelRect& place) {
  place_ = place;
  CoverPlace();
}

void MonitorForm::Close() {
  is_closing_ = true;
  Unload();
}

ScreenSize MonitorForm::Screen() const { return {.width = Width(), .height = Height()}; }

void MonitorForm::Form_Load() { CoverPlace(); }

void MonitorForm::CoverPlace() {
  const auto twips = [](int pixels) { return static_cast<float>(pixels) * kTwipsPerPixel; };
  Move(twips(place_.left), twips(place_.top), twips(place_.width), twips(place_.height));
  PicBase.Move(0, 0, Width(), Height());
}

// Only the show closes it. A request to close this form ends the whole show.
void MonitorForm::Form_QueryUnload(bool& cancel) {
  if (!is_closing_) events_.ended();
  cancel = !is_closing_;
}

void MonitorForm::Form_Unload() {
  turns_.Leave(tmrSwitch);
  tmrSwitch.SetEnabled(false);
}

// The main form ticks first, since only its first tick may restart a list.
void MonitorForm::tmrSwitch_Timer() {
  if (process_.show.stop_requested) return;
  if (process_.show.first_tick_over) {
    turns_.Take(tmrSwitch, [this] { SlideTick(process_, *this); });
  } else {
    turns_.Wait(tmrSwitch);
  }
}

// A form whose monitor is still there stays on it, with its picture. A monitor that changes in size or place gets the
// form of one that is gone: it is mostly the same.
void MonitorForms::Follow() {
  Forms before = std::exchange(forms_, {});
  std::vector<PixelRect> uncovered;
  for (const PixelRect& place : process_.app.GetPlatform().FurtherMonitors()) {
    if (auto form = TakeFormAt(before, place, false)) {
      forms_.push_back(std::move(form));
    } else {
      uncovered.push_back(place);
    }
  }
  for (const PixelRect& place : uncovered) {
    auto form = TakeFormAt(before, place, true);
    if (form) {
      form->MoveTo(place);
    } else {
      form = std::make_shared<MonitorForm>(process_, place, events_, turns_);
    }
    forms_.push_back(std::move(form));
  }
  for (const auto& form : before) form->Close();
  // Showing a window may deliver events, which may change the list or end the show.
  for (const auto& form : Forms(forms_)) {
    if (form->IsClosing()) continue;
    if (!form->IsLoaded()) form->Show();
    if (show_.tmrSwitch.Enabled() && !form->tmrSwitch.Enabled()) JoinShow(*form, show_);
  }
}

void MonitorForms::Close() {
  for (const auto& form : std::exchange(forms_, {})) form->Close();
}

}  // namespace quorvale
