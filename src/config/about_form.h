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
class AboutForm : public Form {
 public:
  explicit AboutForm(Process& process);

  ImageView film;
  Label title;
  Label legal_notice;
  ImageView web_link;
  Label web_address;
  Rule dark_line;
  Rule light_line;
  Label disclaimer;
  Button ok;
  Button system_info;

  // Starts the information tool that the registry names, or else the desktop's own, or says that there is none.
  void StartSysInfo();

  // Reads a registry value, a text or a 32-bit number, into `text`. Other types leave `text` unchanged. Returns
  // false and an empty text if the value can't be read or has more than 1024 bytes.
  bool GetKeyValue(std::uint32_t key_root, const std::string& key_name, const std::string& sub_key, std::string& text);

 protected:
  void Form_Load() override;

 private:
  void Image1_Click();
  // Empty if there is none.
  std::string FindSysInfo();

  Process& process_;
};

}  // namespace quorvale
