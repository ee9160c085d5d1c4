#include "platform/desktop/widgets/file_dialogs.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <algorithm>

namespace quorvale {
namespace {

std::string Encoded(const QString& path) { return QFile::encodeName(path).toStdString(); }

// Names match without regard to case in Qt's own dialog, and in others when both cases are asked for.
QString ToPatterns(const QString& patterns) {
  QStringList result;
  for (const QString& pattern : patterns.split(';', Qt::SkipEmptyParts)) {
    // A name without a dot is a file as well.
    result << (pattern == "*.*" ? QStringLiteral("*") : pattern.trimmed());
    if (pattern.toUpper() != pattern) result << pattern.trimmed().toUpper();
  }
  return result.join(' ');
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
  // The descriptions name their patterns.
  qt_dialog.setOption(QFileDialog::HideNameFilterDetails);
  qt_dialog.setOption(QFileDialog::DontConfirmOverwrite, (dialog.flags & kOfnOverwritePrompt) == 0);
  qt_dialog.setSupportedSchemes({"file"});
  const QStringList filters = ToNameFilters(dialog.filter);
  if (!filters.isEmpty()) {
    qt_dialog.setNameFilters(filters);
    qt_dialog.selectNameFilter(qt_dialog.nameFilters().value(std::max(dialog.filter_index - 1, 0)));
  }
  if (!dialog.start_name.empty()) qt_dialog.selectFile(QFile::decodeName(dialog.start_name.c_str()));
  if (qt_dialog.exec() != QDialog::Accepted) return {};
  const QStringList chosen = qt_dialog.selectedFiles();
  if (!chosen.isEmpty()) folder_ = QFileInfo(chosen.first()).path();
  return ToAnswer(chosen);
}

std::string FileDialogs::ChooseFolder(QWidget* owner, const std::string& title) {
  const QString chosen = QFileDialog::getExistingDirectory(owner, QString::fromStdString(title), folder_);
  if (!chosen.isEmpty()) folder_ = chosen;
  return Encoded(chosen);
}

}  // namespace quorvale
