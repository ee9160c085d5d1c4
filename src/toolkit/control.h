#pragma once

#include <string>

namespace quorvale {

class Application;
class Form;

// A control of a form. It is a member of the form's class and has a unique name there.
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

  // Called when the form's window exists. Creates the platform's peer.
  virtual void CreatePeer() {}
  // Passes the peer to `Application::KeepUntilIdle`.
  virtual void ReleasePeer() {}

  Application& App() const;
  // Fails with kNotLoaded unless the form is loaded.
  void RequireLoaded() const;

 private:
  Form& parent_;
  std::string name_;
};

}  // namespace quorvale
