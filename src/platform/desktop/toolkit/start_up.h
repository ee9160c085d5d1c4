#pragma once

#include <memory>

struct xcb_connection_t;

namespace quorvale {

// Calls for the time before there is a QApplication.

// Finds out whether there is a display; without one Qt would abort the process. Keep it until the QApplication exists:
// an X server that loses its last client resets, and refuses connections meanwhile.
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

// Says that there is no display, in a line that begins with the program's name, and ends the process with EXIT_FAILURE.
[[noreturn]] void EndWithoutDisplay(const char* program);

// Where a probe can't tell, as on Wayland, Qt finds it out: from now on that ends the process in the same way, not by
// abort(). `program` is kept.
void EndWithoutPlatform(const char* program);

// For a run in a window of another program. Such windows belong to X11, and where there is Wayland too Qt may prefer
// that. The user's own choice of a platform holds.
void PreferX11();

// Makes a Qt pixel a device pixel, where Qt can do that. Returns the user's scale factor, so that text can still follow
// it.
double TurnScalingOff();

}  // namespace quorvale
