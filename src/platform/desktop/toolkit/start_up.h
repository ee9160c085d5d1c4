#pragma once

#include <memory>

struct xcb_connection_t;

namespace quorvale {

// What has to happen before there is a QApplication.

// Finds out whether there is a display to open; Qt would end the process with an abort. Keep it until Qt
// is there: an X server without a client begins anew, and turns away who comes at that moment.
class DisplayProbe {
 public:
  DisplayProbe();

  bool HasDisplay() const { return has_display_; }

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const;
  };

  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  bool has_display_ = true;
};

// For a run in a window of another program: such windows are X11's, and Qt may prefer another window system
// where there are both. What the user has chosen stays.
void PreferX11();

// Makes a pixel of Qt's a pixel of the device, where Qt can do that. Gives by how much the user wants
// everything larger, so that text can still follow.
double TurnScalingOff();

}  // namespace quorvale
