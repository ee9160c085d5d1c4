#pragma once

#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <csignal>
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

  XServer() {
    int ends[2] = {};
    if (pipe(ends) != 0) return;
    pid_ = fork();
    if (pid_ == 0) {
      close(ends[0]);
      dup2(ends[1], STDOUT_FILENO);
      close(ends[1]);
      execl(QUORVALE_SCRIPTS "/virtual-display.sh", "virtual-display.sh", "640x480", nullptr);
      _exit(127);
    }
    close(ends[1]);
    char digit = 0;
    while (read(ends[0], &digit, 1) == 1 && digit != '\n') display_ += digit;
    close(ends[0]);
  }
  ~XServer() { Stop(); }
  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;

  // False where Xvfb is missing.
  bool Runs() const { return !display_.empty(); }
  std::string Display() const { return ":" + display_; }
  Connection Connect() const { return Connection(xcb_connect(Display().c_str(), nullptr)); }

  void Stop() {
    if (pid_ <= 0) return;
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
    pid_ = 0;
  }

 private:
  pid_t pid_ = 0;
  std::string display_;
};

}  // namespace quorvale
