#include "platform/desktop/widgets/file_dialogs.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <algorithm>
#include <utility>

namespace quorvale {
namespace {

std::string Encoded(const QString& path) { return QFile::encodeName(path).toStdString(); }

// Qt's own dialog ignores case. For others each pattern is given in both cases.
QString ToPatterns(const QString& patterns) {
  QStringList result;
  for (const QString& pattern : patterns.split(';', Qt::SkipEmptyParts)) {
    // Also matches names without a dot.
    result << (pattern == "*.*" ? QStringLiteral("*") : pattern.trimmed());
    if (pattern.toUpper() != pattern) result << pattern.trimmed().toUpper();
  }
  return result.join(' ');
}

// Icons for files and folders that open none of them. Qt would read each file to find its kind, and a read from a
// device or a pipe may never return.
class PlainIcons : public QFileIconProvider {
 public:
  QIcon icon(IconType kind) const override { return QFileIconProvider::icon(kind); }
  QIcon icon(const QFileInfo& file) const override { return icon(file.isDir() ? Folder : File); }
  QString type(const QFileInfo& file) const override {
    if (file.isDir()) return QStringLiteral("Folder");
    return file.suffix().isEmpty() ? QStringLiteral("File") : file.suffix() + QStringLiteral(" File");
  }
};

// Qt's own dialog ties no labels to its drop-down lists.
void NameLists(const QFileDialog& dialog) {
  for (const auto& [label, list] : {std::pair{"lookInLabel", "lookInCombo"}, {"fileTypeLabel", "fileTypeCombo"}}) {
    if (auto* const found = dialog.findChild<QLabel*>(label)) found->setBuddy(dialog.findChild<QWidget*>(list));
  }
}

// Returns what was chosen. Qt's own dialog would not fit on a small screen.
QStringList Run(QFileDialog& dialog) {
  NameLists(dialog);
  PlainIcons icons;
  dialog.setIconProvider(&icons);
  dialog.setOption(QFileDialog::DontUseCustomDirectoryIcons);
  if (const QScreen* const screen = QGuiApplication::primaryScreen()) {
    constexpr int kFrame = 40;
    const QSize room = screen->availableGeometry().size() - QSize(kFrame, kFrame);
    dialog.setMinimumSize(dialog.minimumSize().boundedTo(room));
    dialog.resize(dialog.sizeHint().boundedTo(room));
    dialog.setMaximumSize(room);
  }
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
}

QFileDialog::FileMode ModeOf(const FileDialog& dialog) {
  if (dialog.save) return QFileDialog::AnyFile;
  return (dialog.flags & kOfnAllowMultiSelect) != 0 ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile;
}

}  // namespace

QStringList ToNameFilters(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) filters << parts[i] + " (" + ToPatterns(parts[i + 1]) + ')';
  return filters;
}

std::string ToAnswer(const QStringList& paths) {
  if (paths.isEmpty()) return {};
  if (paths.size() == 1) return Encoded(paths.first());
  const QDir folder = QFileInfo(paths.first()).dir();
  std::string answer = Encoded(folder.path());
  for (const QString& path : paths) answer += '\0' + Encoded(folder.relativeFilePath(path));
  return answer;
}

std::string FileDialogs::Choose(QWidget* owner, const FileDialog& dialog) {
  QFileDialog qt_dialog(owner, QString::fromStdString(dialog.title), folder_);
  qt_dialog.setAcceptMode(dialog.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  qt_dialog.setFileMode(ModeOf(dialog));
  // The descriptions name their patterns already.
  qt_dialog.setOption(QFileDialog::HideNameFilterDetails);
  qt_dialog.setOption(QFileDialog::DontConfirmOverwrite, (dialog.flags & kOfnOverwritePrompt) == 0);
  qt_dialog.setSupportedSchemes({"file"});
  const QStringList filters = ToNameFilters(dialog.filter);
  if (!filters.isEmpty()) {
    qt_dialog.setNameFilters(filters);
    qt_dialog.selectNameFilter(qt_dialog.nameFilters().value(std::max(dialog.filter_index - 1, 0)));
  }
  if (!dialog.start_name.empty()) qt_dialog.selectFile(QFile::decodeName(dialog.start_name.c_str()));
  const QStringList chosen = Run(qt_dialog);
  if (!chosen.isEmpty()) folder_ = QFileInfo(chosen.first()).path();
  return ToAnswer(chosen);
}

std::string FileDialogs::ChooseFolder(QWidget* owner, const std::string& title) {
  QFileDialog qt_dialog(owner, QString::fromStdString(title), folder_);
  qt_dialog.setFileMode(QFileDialog::Directory);
  qt_dialog.setOption(QFileDialog::ShowDirsOnly);
  qt_dialog.setSupportedSchemes({"file"});
  const QStringList chosen = Run(qt_dialog);
  if (chosen.isEmpty()) return {};
  folder_ = chosen.first();
  return Encoded(folder_);
}

}  // namespace quorvale
