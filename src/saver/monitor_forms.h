#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "show/show_form.h"
#include "show/turns.h"
#include "toolkit/units.h"

namespace quorvale {

// The font of file names on a whole screen.
inline Font SaverFont() { return {.name = "MS Serif", .points = 12}; }

// What happens at a form on a further monitor, for the show's main form.
struct MonitorEvents {
  // A key, a press of a mouse button, or a request to close: the show is to end.
  std::function<void()> ended;
  std::function<void()> mouse_move;
};

// The full-screen show on one monitor beside the primary one. It has pictures of its own, and takes each from the list
// when its timer fires. Sounds, lists and the decision when the show ends are the main form's.
class MonitorForm : public ShowForm {
 public:
  // `place` in the toolkit's pixels, from the corner of the primary monitor. `events` and `turns` outlive the form's
  // time on the screen.
  MonitorForm(Process& process, const PixelRect& place, const MonitorEvents& events, Turns& turns);

  const PixelRect& Place() const { return place_; }
  // The current picture is not laid out again; the next tick lays out the next one.
  void MoveTo(const PixelRect& place);
  // For the main form: unloads this one.
  void Close();
  bool IsClosing() const { return is_closing_; }

  ScreenSize Screen() const override;
  bool& TransitionArmed() override { return is_armed_; }
  bool PlaysSounds() const override { return false; }

 protected:
  void Form_Load() override;
  void Form_QueryUnload(bool& cancel) override;
  void Form_Unload() override;
  void Form_KeyDown(int /*key*/) override { events_.ended(); }
  void Form_MouseDown() override { events_.ended(); }
  void Form_MouseMove() override { events_.mouse_move(); }
  void tmrSwitch_Timer() override;

 private:
  void CoverPlace();

  PixelRect place_;
  const MonitorEvents& events_;
  Turns& turns_;
  bool is_armed_ = false;
  bool is_closing_ = false;
};

// The forms on all monitors but the primary one. They are not among the program's forms, so that the rules that count
// those see the main form alone.
class MonitorForms {
 public:
  // `show` is the main form, on which the show starts. It outlives this object.
  MonitorForms(Process& process, ShowForm& show, MonitorEvents events)
      : process_(process), show_(show), events_(std::move(events)) {}
  ~MonitorForms() { Close(); }
  MonitorForms(const MonitorForms&) = delete;
  MonitorForms& operator=(const MonitorForms&) = delete;

  // Gives each monitor that there is now a form, and closes those that are left over. Once the show has started, each
  // form takes part in it. To be called at the start and when monitors change.
  void Follow();
  void Close();

  // The turns of all forms, the main one included.
  Turns& AllTurns() { return turns_; }

 private:
  Process& process_;
  ShowForm& show_;
  MonitorEvents events_;
  Turns turns_;
  std::vector<std::shared_ptr<MonitorForm>> forms_;
};

}  // namespace quorvale
