#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/failure.h"
#include "support/failure_of.h"
#include "toolkit/application.h"
#include "toolkit/form.h"
#include "toolkit/image_control.h"
#include "toolkit/nonvisual_controls.h"
#include "toolkit/picture_box.h"

namespace quorvale {

// A form whose handlers are given by the test. It writes down which of them ran.
class ScriptedForm : public Form {
 public:
  explicit ScriptedForm(Application& application, const std::string& name = "Form")
      : Form(application, name, WindowKind::kDialog, name + " caption") {
    box.Move(150, 0, 1500, 600);
    image_below.SetVisible(false);
    image_above.SetVisible(false);
  }

  Timer clock{*this, "Clock", 100};
  // 100 by 40 pixels, 10 from the left.
  PictureBox box{*this, "Box", {"Serif", 12}};
  ImageControl image_below{box, "ImageBelow", true};
  ImageControl image_above{box, "ImageAbove", false};
  ImageControl measure{*this, "Measure", false};

  std::vector<std::string> events;
  std::function<void()> on_load;
  std::function<void(bool& cancel)> on_query_unload;
  std::function<void()> on_unload;
  std::function<void(int key)> on_key;

 protected:
  void Form_Load() override {
    events.emplace_back("Load");
    if (on_load) on_load();
  }
  void Form_QueryUnload(bool& cancel) override {
    events.emplace_back("QueryUnload");
    if (on_query_unload) on_query_unload(cancel);
  }
  void Form_Unload() override {
    events.emplace_back("Unload");
    if (on_unload) on_unload();
  }
  void Form_KeyDown(int key) override {
    events.push_back("KeyDown " + std::to_string(key));
    if (on_key) on_key(key);
  }
  void Form_MouseDown() override { events.emplace_back("MouseDown"); }
  void Form_MouseMove() override { events.emplace_back("MouseMove"); }
};

}  // namespace quorvale
