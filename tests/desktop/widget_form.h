#pragma once

#include <memory>
#include <string>
#include <vector>

#include "toolkit/buttons.h"
#include "toolkit/entry_fields.h"
#include "toolkit/form.h"
#include "toolkit/list_box.h"
#include "toolkit/menu.h"
#include "toolkit/nonvisual_controls.h"
#include "toolkit/panels.h"
#include "toolkit/picture_box.h"

namespace quorvale {

// A dialog with a control of each kind, which records their events.
class WidgetForm : public Form {
 public:
  explicit WidgetForm(Application& application) : Form(application, "frm", WindowKind::kDialog, "Widgets") {
    MenuItem& file_menu = menus.Add("mnuFile", "&File");
    file_menu.Click = Log("File opens");
    file_menu.Add("mnuNew", "&New", "Ctrl+N").Click = Log("New");
    file_menu.Add("mnuLine", "-");
    file_menu.Add("mnuMore", "&More").Add("mnuDeep", "&Deep").Click = Log("Deep");
    menus.Add("mnuEdit", "&Edit").Click = Log("Edit opens");
    file.Click = Log("cmdFile");
    add.Click = Log("cmdAdd");
    ok.Click = Log("OK");
    ok.is_default = true;
    cancel.Click = Log("Cancel");
    cancel.is_cancel = true;
    chk.Click = Log("chk");
    opt1.Click = Log("opt1");
    opt2.Click = Log("opt2");
    tabs.Click = Log("tab");
    picture.Click = Log("picture");
    lst.Click = Log("lst");
    lst.DeletePressed = Log("Delete");
    lst.Dropped = [this](const std::vector<std::string>& paths) {
      for (const std::string& path : paths) log.push_back(path);
    };
    txt.KeyPress = [](int& code) {
      if (code != 8 && (code < '0' || code > '9')) code = 0;
    };
    hook.Message = [this](int message) { log.push_back(std::to_string(message)); };
    for (int i = 0; i < 10; ++i) lst.AddItem("Item " + std::to_string(i));
  }

  std::vector<std::string> log;

  MenuBar menus{*this, "Menus"};
  TabStrip tabs{*this, {.name = "tabs", .place = {0, 0, 3000, 600}, .tab_index = 0}, {{"&One", "first"}, {"T&wo", ""}}};
  Frame fra{*this, {.name = "fra", .caption = "Frame", .place = {0, 600, 6000, 4500}}, true};
  OptionButton opt1{*this, {.name = "opt1", .caption = "&1st", .place = At(300), .tab_index = 1, .container = &fra}};
  OptionButton opt2{*this, {.name = "opt2", .caption = "&2nd", .place = At(600), .tab_index = 2, .container = &fra}};
  Label text_label{*this,
                   {.name = "lblText", .caption = "&Text:", .place = At(900), .tab_index = 3, .container = &fra}};
  TextBox txt{*this, {.name = "txt", .place = At(1200), .tab_index = 4, .container = &fra}, 2};
  CheckBox chk{*this, {.name = "chk", .caption = "Chec&k", .place = At(1500), .tab_index = 5, .container = &fra}};
  ListBox lst{*this, {.name = "lst", .place = {3000, 300, 2500, 3600}, .tab_index = 6, .container = &fra}};
  Label colour_label{*this, {.name = "lblColour", .place = At(1800), .tab_index = 7, .container = &fra}};
  DropDownList cbo{*this, {.name = "cbo", .place = At(1800), .tab_index = 7, .container = &fra}, {"None", "Some"}};
  Slider sld{*this, {.name = "sld", .place = At(2100), .tab_index = 8, .container = &fra}, 1, 20};
  Button file{*this, {.name = "cmdFile", .caption = "&File...", .place = At(2500), .tab_index = 9, .container = &fra}};
  Button add{*this, {.name = "cmdAdd", .caption = "&Add", .place = At(2900), .tab_index = 10, .container = &fra}};
  ImageView picture{*this, {.name = "picture", .place = At(3300), .container = &fra}, nullptr};
  Button ok{*this, {.name = "cmdOK", .caption = "OK", .place = {0, 5200, 1200, 360}, .tab_index = 11}};
  Button cancel{*this, {.name = "cmdCancel", .caption = "&Cancel", .place = {1500, 5200, 1200, 360}, .tab_index = 12}};
  PictureBox pane{*this, "pane", {"Small Fonts", 4}};
  MessageHook hook{*this, "hook"};

 protected:
  void Form_Load() override {
    SetClientSize(6600, 5700);
    pane.Move(5800, 0, 600, 450);
    hook.SetHwnd(Hwnd());
    hook.Report(kWmExitMenuLoop);
    cbo.SetText("None");
    opt1.SetValue(true);
    log.clear();
  }
  void Form_QueryUnload(bool& /*cancel*/) override { log.emplace_back("unload"); }
  void Form_Help() override { log.emplace_back("help"); }

 private:
  static TwipRect At(float top) { return {150, top, 2400, 270}; }
  std::function<void()> Log(std::string what) {
    return [this, text = std::move(what)] { log.push_back(text); };
  }
};

}  // namespace quorvale
