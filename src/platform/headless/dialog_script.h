#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "system/window_system.h"
#include "toolkit/file_dialog.h"
#include "toolkit/units.h"

namespace quorvale {

// Works the modal windows in the user's place. A dialog that finds no answer is cancelled.
class DialogScript {
 public:
  using FileUser = std::function<std::string(const FileDialog&)>;
  using ColourUser = std::function<Colour(Colour start)>;
  using FolderUser = std::function<std::string(const std::string& title)>;
  using ModalUser = std::function<void(WindowHandle window)>;

  // The next dialog of that kind gets what the function gives, which runs while it is up.
  void AnswerFile(FileUser user) { file_users_.push_back(std::move(user)); }
  void AnswerFile(const std::string& chosen);
  void AnswerColour(ColourUser user) { colour_users_.push_back(std::move(user)); }
  void AnswerFolder(FolderUser user) { folder_users_.push_back(std::move(user)); }
  void AnswerFolder(const std::string& chosen);
  // Works the next form that is shown modally; one that is still open after that is closed.
  void WorkModal(ModalUser user) { modal_users_.push_back(std::move(user)); }

  std::string File(const FileDialog& dialog);
  Colour ChooseColour(Colour start);
  std::string Folder(const std::string& title);
  void Modal(WindowHandle window);

  // Every dialog so far, in order.
  std::vector<FileDialog> files;
  std::vector<std::string> folders;

 private:
  std::deque<FileUser> file_users_;
  std::deque<ColourUser> colour_users_;
  std::deque<FolderUser> folder_users_;
  std::deque<ModalUser> modal_users_;
};

}  // namespace quorvale
