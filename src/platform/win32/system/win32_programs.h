#pragma once

#include "system/programs.h"

namespace quorvale {

class Win32Programs : public Programs {
 public:
  void Start(const std::string& command_line, int window_style) override;
  void OpenDisplaySettings() override;
  void SendKeys(const std::string& keys) override;
};

}  // namespace quorvale
