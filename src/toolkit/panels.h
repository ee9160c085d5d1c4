#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/bitmap.h"
#include "toolkit/control.h"

namespace quorvale {

// A container for other controls, with an optional caption and border.
class Frame : public Widget {
 public:
  Frame(Form& parent, WidgetDesign design, bool border);

  bool Border() const { return border_; }
  bool Acts() const override { return false; }

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  bool border_;
};

// The look of a label.
struct LabelStyle {
  bool border = false;
  bool bold = false;
  bool centred = false;
  // Never wraps.
  bool one_line = false;
  float points = 0;  // 0 is the window's own size
};

// Text that can't be edited. The access key of its caption leads to the next control in tab order.
class Label : public Widget {
 public:
  Label(Form& parent, WidgetDesign design, LabelStyle style = {});

  const LabelStyle& Style() const { return style_; }
  // If not, it shows the window's background.
  bool HasBackColor() const { return has_back_colour_; }
  Colour BackColor() const { return back_colour_; }
  void SetBackColor(Colour colour);
  bool HasForeColor() const { return has_fore_colour_; }
  Colour ForeColor() const { return fore_colour_; }
  void SetForeColor(Colour colour);
  bool Acts() const override { return false; }

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  LabelStyle style_;
  bool has_back_colour_ = false;
  bool has_fore_colour_ = false;
  Colour back_colour_ = kWhite;
  Colour fore_colour_ = kBlack;
};

// A horizontal line.
class Rule : public Widget {
 public:
  Rule(Form& parent, WidgetDesign design, Colour colour);

  Colour LineColor() const { return colour_; }
  bool Acts() const override { return false; }

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  Colour colour_;
};

// Shows artwork, scaled to the control.
class ImageView : public Widget {
 public:
  // If it has a `Click` handler, it is a link and shows a hand cursor.
  ImageView(Form& parent, WidgetDesign design, Artwork artwork);

  std::function<void()> Click;

  const Artwork& GetArtwork() const { return artwork_; }
  void SetArtwork(Artwork artwork);
  bool Acts() const override { return Click != nullptr; }
  void UserClick();

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  Artwork artwork_;
};

// A row of tabs, one of them selected. The form shows and hides the pages.
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
  // The user asked for the next tab or the one before. The first comes after the last.
  void UserTurn(bool backwards);

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  std::vector<Tab> tabs_;
  int selected_ = 1;
};

}  // namespace quorvale
