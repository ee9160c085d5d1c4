#pragma once

#include <QObject>
#include <functional>

class QScreen;

namespace quorvale {

// Tells when monitors have come, gone, or changed in size or place. They come and go together with the rest of the
// layout, so it tells once, when all of that is over.
class ScreenWatch : public QObject {
  Q_OBJECT

 public:
  explicit ScreenWatch(std::function<void()> changed);

 private:
  void Watch(QScreen& screen);
  void TellSoon();

  std::function<void()> changed_;
  bool is_telling_ = false;
};

}  // namespace quorvale
