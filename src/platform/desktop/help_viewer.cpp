// quorvale-help: shows help pages. Standard input has their paths, one per line.

#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QSocketNotifier>
#include <QTextBrowser>
#include <QToolBar>
#include <QUrl>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "platform/desktop/toolkit/start_up.h"

namespace quorvale {
namespace {

constexpr int kUsageError = 2;
constexpr QSize kWindowSize(760, 620);

class HelpViewer : public QMainWindow {
 public:
  HelpViewer() {
    setWindowTitle("Quorvale Help");
    pages_.setOpenExternalLinks(true);
    setCentralWidget(&pages_);
    QToolBar* const bar = addToolBar("Navigation");
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    QAction* const back = bar->addAction("&Back", &pages_, &QTextBrowser::backward);
    back->setShortcut(QKeySequence::Back);
    back->setEnabled(false);
    connect(&pages_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    AddPage(*bar, "&Contents", "index.html");
    AddPage(*bar, "&Index", "search.html");
    auto* const close_window = new QAction(this);
    close_window->setShortcuts({QKeySequence(Qt::Key_Escape), QKeySequence::Close});
    connect(close_window, &QAction::triggered, this, &QWidget::close);
    addAction(close_window);
    connect(&input_, &QSocketNotifier::activated, this, [this] { ReadInput(); });
    resize(kWindowSize);
  }

  void Open(const QString& page) {
    pages_.setSource(QUrl::fromLocalFile(page));
    show();
    raise();
    activateWindow();
    pages_.setFocus();
  }

 private:
  // A button for a page in the folder of the current one.
  void AddPage(QToolBar& bar, const QString& caption, const QString& name) {
    connect(bar.addAction(caption), &QAction::triggered, this,
            [this, name] { pages_.setSource(pages_.source().resolved(QUrl(name))); });
  }

  void ReadInput() {
    std::array<char, 4096> buffer{};
    const ssize_t count = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count <= 0) {
      // The program that asked has ended. A visible window stays open for the user.
      input_.setEnabled(false);
      if (!isVisible()) QCoreApplication::quit();
      return;
    }
    pending_ += QByteArray(buffer.data(), static_cast<qsizetype>(count));
    const qsizetype end = pending_.lastIndexOf('\n');
    if (end < 0) return;
    const QByteArray line = pending_.left(end).split('\n').last();
    pending_.remove(0, end + 1);
    Open(QString::fromLocal8Bit(line));
  }

  QTextBrowser pages_;
  QSocketNotifier input_{STDIN_FILENO, QSocketNotifier::Read};
  QByteArray pending_;
};

}  // namespace
}  // namespace quorvale

int main(int argc, char** argv) {
  if (argc == 1 ? isatty(STDIN_FILENO) != 0 : argv[1][0] == '-') {
    std::fputs("Usage: quorvale-help PAGE, an HTML file. F1 in the windows of quorvale opens the help.\n", stderr);
    return quorvale::kUsageError;
  }
  const quorvale::DisplayProbe probe;
  if (!probe.HasDisplay()) quorvale::EndWithoutDisplay("quorvale-help");
  quorvale::EndWithoutPlatform("quorvale-help");
  QApplication application(argc, argv);
  quorvale::HelpViewer viewer;
  if (argc > 1) viewer.Open(QString::fromLocal8Bit(argv[1]));
  return QApplication::exec();
}
