#pragma once

#include <xcb/xcb.h>

#include <QProcess>
#include <memory>
#include <string>

namespace quorvale {

// An X server for one test.
class XServer {
 public:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };
  using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

  explicit XServer(const QStringList& arguments = {}) {
    server_.start(QUORVALE_SCRIPTS "/virtual-display.sh", QStringList("640x480") + arguments);
    while (!server_.canReadLine() && server_.waitForReadyRead()) {
    }
    display_ = server_.readLine().trimmed().toStdString();
  }
  ~XServer() { Stop(); }

  // False where Xvfb is missing.
  bool Runs() const { return !display_.empty(); }
  std::string Display() const { return ":" + display_; }
  Connection Connect() const { return Connection(xcb_connect(Display().c_str(), nullptr)); }

  void Stop() {
    server_.terminate();
    server_.waitForFinished();
  }

 private:
  QProcess server_;
  std::string display_;
};

}  // namespace quorvale
