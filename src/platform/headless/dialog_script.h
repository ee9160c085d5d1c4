#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "system/window_system.h"
#include "toolkit/dialogs.h"
#include "toolkit/units.h"

namespace quorvale {

// Answers message boxes instead of a user.
class MessageBoxScript {
 public:
  using User = std::function<MessageBoxAnswer(const MessageBox&)>;

  // Answers the next box that has no answer yet.
  void Answer(MessageBoxAnswer answer);
  // The same with a function that runs while the box is open.
  void Answer(User user) { users_.push_back(std::move(user)); }

  // A box without a prepared answer is recorded as unexpected and returns kNone.
  MessageBoxAnswer Show(const MessageBox& box);

  // All boxes so far, in order.
  std::vector<MessageBox> shown;
  std::vector<MessageBox> unexpected;
  // The number of unused answers.
  int Waiting() const { return static_cast<int>(users_.size()); }

 private:
  std::deque<User> users_;
};

// Operates dialogs and modal forms instead of a user. A dialog without a prepared answer is cancelled.
class DialogScript {
 public:
  using FileUser = std::function<std::string(const FileDialog&)>;
  using ColourUser = std::function<Colour(Colour start)>;
  using FolderUser = std::function<std::string(const std::string& title)>;
  using ModalUser = std::function<void(WindowHandle window)>;

  // The function's result answers the next dialog of that kind. It runs while the dialog is open.
  void AnswerFile(FileUser user) { file_users_.push_back(std::move(user)); }
  void AnswerFile(const std::string& chosen);
  void AnswerColour(ColourUser user) { colour_users_.push_back(std::move(user)); }
  void AnswerFolder(FolderUser user) { folder_users_.push_back(std::move(user)); }
  void AnswerFolder(const std::string& chosen);
  // Runs when the next form is shown modally. The form is closed afterwards if it is still open.
  void WorkModal(ModalUser user) { modal_users_.push_back(std::move(user)); }

  std::string File(const FileDialog& dialog);
  Colour ChooseColour(Colour start);
  std::string Folder(const std::string& title);
  void Modal(WindowHandle window);

  // All dialogs so far, in order.
  std::vector<FileDialog> files;
  std::vector<std::string> folders;

 private:
  std::deque<FileUser> file_users_;
  std::deque<ColourUser> colour_users_;
  std::deque<FolderUser> folder_users_;
  std::deque<ModalUser> modal_users_;
};

}  // namespace quorvale
