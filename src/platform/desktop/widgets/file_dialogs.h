#pragma once

#include <QString>
#include <QStringList>
#include <string>

#include "toolkit/file_dialog.h"

class QWidget;

namespace quorvale {

// Qt's filters for a filter in pairs of a description and patterns, all divided by "|".
QStringList ToNameFilters(const std::string& filter);

// The paths in the form in which a dialog answers.
std::string ToAnswer(const QStringList& paths);

// The dialogs for files and folders: the desktop's own, where Qt knows them. They start in the folder that was
// chosen from last.
class FileDialogs {
 public:
  std::string Choose(QWidget* owner, const FileDialog& dialog);
  std::string ChooseFolder(QWidget* owner, const std::string& title);

 private:
  QString folder_;
};

}  // namespace quorvale
