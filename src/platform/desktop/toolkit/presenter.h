#pragma once

#include <QObject>
#include <cstdint>

namespace quorvale {

// What shows a picture box, as far as the pauses of an effect go.
class Presenter {
 public:
  virtual ~Presenter() = default;
  // Whether it is on the screen, as far as the window system tells.
  virtual bool IsInSight() const = 0;
  // How often something has been presented.
  virtual std::uint64_t Presentations() const = 0;
  // The same thing as Qt's object, whose end can be watched.
  virtual QObject& Object() = 0;
};

}  // namespace quorvale
