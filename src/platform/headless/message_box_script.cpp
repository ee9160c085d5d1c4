#include "platform/headless/message_box_script.h"

#include <utility>

namespace quorvale {

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

}  // namespace quorvale
