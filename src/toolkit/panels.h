#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/bitmap.h"
#include "toolkit/widget.h"

namespace quorvale {

// Holds other controls. With a caption or without, with a border or without.
class Frame : public Widget {
 public:
  Frame(Form& parent, WidgetDesign design, bool border);

  bool Border() const { return border_; }

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  bool border_;
};

// How a label looks beside its text.
struct LabelStyle {
  bool border = false;
  bool bold = false;
  bool centred = false;
  // Never goes on in a second line.
  bool one_line = false;
  float points = 0;  // 0 is the window's own size
};

// Text that can't be edited. The access key of its caption leads to the next control in tab order.
class Label : public Widget {
 public:
  Label(Form& parent, WidgetDesign design, LabelStyle style = {});

  const LabelStyle& Style() const { return style_; }
  // Without one it shows the window's own.
  bool HasBackColor() const { return has_back_colour_; }
  Colour BackColor() const { return back_colour_; }
  void SetBackColor(Colour colour);
  bool HasForeColor() const { return has_fore_colour_; }
  Colour ForeColor() const { return fore_colour_; }
  void SetForeColor(Colour colour);

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  LabelStyle style_;
  bool has_back_colour_ = false;
  bool has_fore_colour_ = false;
  Colour back_colour_ = kWhite;
  Colour fore_colour_ = kBlack;
};

// A straight line, level.
class Rule : public Widget {
 public:
  Rule(Form& parent, WidgetDesign design, Colour colour);

  Colour LineColor() const { return colour_; }

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  Colour colour_;
};

// Shows artwork at the size of its place.
class ImageView : public Widget {
 public:
  // With a `Click` it is a link and shows a hand.
  ImageView(Form& parent, WidgetDesign design, Artwork artwork);

  std::function<void()> Click;

  const Artwork& GetArtwork() const { return artwork_; }
  void SetArtwork(Artwork artwork);
  void UserClick();

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  Artwork artwork_;
};

// Tabs, of which one is selected; what they lead to is the form's business.
class TabStrip : public Widget {
 public:
  struct Tab {
    std::string caption;
    std::string tool_tip;
  };

  TabStrip(Form& parent, WidgetDesign design, std::vector<Tab> tabs);

  std::function<void()> Click;

  const std::vector<Tab>& Tabs() const { return tabs_; }
  // From 1.
  int SelectedItem() const { return selected_; }
  // The user clicked a tab, perhaps the one that is selected.
  void UserSelect(int index);

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  std::vector<Tab> tabs_;
  int selected_ = 1;
};

}  // namespace quorvale
