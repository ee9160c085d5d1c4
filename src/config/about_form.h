#pragma once

#include <cstdint>
#include <string>

#include "toolkit/buttons.h"
#include "toolkit/form.h"
#include "toolkit/panels.h"

namespace quorvale {

struct Process;

// The modal About dialog: product name and version, a link to the web page, and a button for the system's information
// tool.
class frmAbout : public Form {
 public:
  explicit frmAbout(Process& process);

  ImageView picIcon;
  Label lblTitle;
  Label lblVersion;
  ImageView Image1;
  Label Label2;
  Rule Line1_0;
  Rule Line1_1;
  Label lblDisclaimer;
  Button cmdOK;
  Button cmdSysInfo;

  // Starts the information tool that the registry names, or else the desktop's own, or says that there is none.
  void StartSysInfo();

  // Reads a registry value, a text or a 32-bit number, into `KeyVal`. Other types leave `KeyVal` unchanged. Returns
  // false and an empty text if the value can't be read or has more than 1024 bytes.
  bool GetKeyValue(std::uint32_t KeyRoot, const std::string& KeyName, const std::string& SubKeyRef,
                   std::string& KeyVal);

 protected:
  void Form_Load() override;

 private:
  void Image1_Click();
  // Empty if there is none.
  std::string FindSysInfo();

  Process& process_;
};

}  // namespace quorvale
