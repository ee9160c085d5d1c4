#include "platform/headless/dialog_script.h"

#include <utility>

namespace quorvale {
namespace {

template <typename User>
User TakeFirst(std::deque<User>& users) {
  if (users.empty()) return nullptr;
  User first = std::move(users.front());
  users.pop_front();
  return first;
}

}  // namespace

void MessageBoxScript::Answer(MessageBoxAnswer answer) {
  users_.emplace_back([answer](const MessageBox&) { return answer; });
}

MessageBoxAnswer MessageBoxScript::Show(const MessageBox& box) {
  shown.push_back(box);
  if (users_.empty()) {
    unexpected.push_back(box);
    return MessageBoxAnswer::kNone;
  }
  const User user = std::move(users_.front());
  users_.pop_front();
  return user(box);
}

void DialogScript::AnswerFile(const std::string& chosen) {
  AnswerFile([chosen](const FileDialog&) { return chosen; });
}

void DialogScript::AnswerFolder(const std::string& chosen) {
  AnswerFolder([chosen](const std::string&) { return chosen; });
}

std::string DialogScript::File(const FileDialog& dialog) {
  files.push_back(dialog);
  const FileUser user = TakeFirst(file_users_);
  return user ? user(dialog) : std::string();
}

Colour DialogScript::ChooseColour(Colour start) {
  const ColourUser user = TakeFirst(colour_users_);
  return user ? user(start) : start;
}

std::string DialogScript::Folder(const std::string& title) {
  folders.push_back(title);
  const FolderUser user = TakeFirst(folder_users_);
  return user ? user(title) : std::string();
}

void DialogScript::Modal(WindowHandle window) {
  if (const ModalUser user = TakeFirst(modal_users_)) user(window);
}

}  // namespace quorvale
