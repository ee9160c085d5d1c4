#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "toolkit/message_box.h"

namespace quorvale {

// Answers message boxes in the user's place.
class MessageBoxScript {
 public:
  using User = std::function<MessageBoxAnswer(const MessageBox&)>;

  // The next box that has no answer yet gets this one.
  void Answer(MessageBoxAnswer answer);
  // The same, from a function that runs while the box is up.
  void Answer(User user) { users_.push_back(std::move(user)); }

  // A box that finds no answer is unexpected, and closes with none.
  MessageBoxAnswer Show(const MessageBox& box);

  // Every box so far, in order.
  std::vector<MessageBox> shown;
  std::vector<MessageBox> unexpected;
  // Answers that no box has taken.
  int Waiting() const { return static_cast<int>(users_.size()); }

 private:
  std::deque<User> users_;
};

}  // namespace quorvale
