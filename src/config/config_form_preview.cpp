#include "config/config_form.h"
#include "config/monitor_artwork.h"
#include "config/told_failure.h"
#include "process/process.h"
#include "show/slide_tick.h"
#include "show/start_show.h"

namespace quorvale {

// Centres the monitor and puts the picture box on its screen. Both are placed on whole pixels.
void frmConfig::PlacePreviewPane() {
  const auto twips_x = static_cast<float>(process_.ScreenTwipsX);
  const auto twips_y = static_cast<float>(process_.ScreenTwipsY);
  Image1.SetArtwork(&MonitorOnBackground);
  TwipRect monitor = Image1.Place();
  monitor.left = (Width() - monitor.width) / 2;
  monitor.height = static_cast<float>(kMonitorHeight) * twips_y;
  Image1.Move(monitor);
  PicBase.Move(monitor.left + static_cast<float>(kMonitorScreenOffset) * twips_x,
               monitor.top + static_cast<float>(kMonitorScreenOffset) * twips_y,
               static_cast<float>(kMonitorScreenWidth) * twips_x, static_cast<float>(kMonitorScreenHeight) * twips_y);
  PicPreview.SetTop(0);
  PicPreview.SetLeft(0);
  PicPreview.SetWidth(PicBase.Width());
  PicPreview.SetHeight(PicBase.Height());
}

void frmConfig::PausePreview(bool on) { tmrSwitch.SetEnabled(!on); }

void frmConfig::RefreshPreview() { InitShow(process_, *this, lstList[0], lstList[1]); }

void frmConfig::tmrSwitch_Timer() {
  // The window is still hidden while a box reports a failure of the load. The tick would close it as an orphan.
  if (!Visible()) return;
  TellFailure(App(), "tmrSwitch_Timer", [this] { SlideTick(process_, *this); });
  process_.show.PreviewSuspended = false;
}

}  // namespace quorvale
