#pragma once

#include <string>

namespace quorvale {

class Application;
class Form;

// A part of a form: a member of the form's class, known there by its name.
class Control {
 public:
  Control(Form& parent, std::string name);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Form& Parent() const { return parent_; }
  const std::string& Name() const { return name_; }

 protected:
  friend class Form;

  // The form's window is there: make what the platform needs.
  virtual void CreatePeer() {}
  // Give up what the platform has, handing it to `Application::KeepUntilIdle`.
  virtual void ReleasePeer() {}

  Application& App() const;
  // Fails with kNotLoaded unless the form is loaded.
  void RequireLoaded() const;

 private:
  Form& parent_;
  std::string name_;
};

}  // namespace quorvale
