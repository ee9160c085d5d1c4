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
    Box.Move(150, 0, 1500, 600);
    ImageBelow.SetVisible(false);
    ImageAbove.SetVisible(false);
  }

  Timer Clock{*this, "Clock", 100};
  // 100 by 40 pixels, 10 from the left.
  PictureBox Box{*this, "Box", {"Serif", 12}};
  ImageControl ImageBelow{Box, "ImageBelow", true};
  ImageControl ImageAbove{Box, "ImageAbove", false};
  ImageControl Measure{*this, "Measure", false};

  std::vector<std::string> events;
  std::function<void()> OnLoad;
  std::function<void(bool& cancel)> OnQueryUnload;
  std::function<void()> OnUnload;
  std::function<void(int key)> OnKey;

 protected:
  void Form_Load() override {
    events.emplace_back("Load");
    if (OnLoad) OnLoad();
  }
  void Form_QueryUnload(bool& cancel) override {
    events.emplace_back("QueryUnload");
    if (OnQueryUnload) OnQueryUnload(cancel);
  }
  void Form_Unload() override {
    events.emplace_back("Unload");
    if (OnUnload) OnUnload();
  }
  void Form_KeyDown(int key) override {
    events.push_back("KeyDown " + std::to_string(key));
    if (OnKey) OnKey(key);
  }
  void Form_MouseDown() override { events.emplace_back("MouseDown"); }
  void Form_MouseMove() override { events.emplace_back("MouseMove"); }
};

}  // namespace quorvale
