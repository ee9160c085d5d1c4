#pragma once

#include <QString>
#include <QStringList>
#include <string>

#include "toolkit/dialogs.h"

class QWidget;

namespace quorvale {

// Converts pairs of a description and patterns, all separated by "|", to Qt's filters.
QStringList ToNameFilters(const std::string& filter);

// The paths in the form that `Platform::ShowFileDialog` returns.
std::string ToAnswer(const QStringList& paths);

// The dialogs for files and folders, the desktop's own where Qt supports them. They start in the folder that was chosen
// from last.
class FileDialogs {
 public:
  std::string Choose(QWidget* owner, const FileDialog& dialog);
  std::string ChooseFolder(QWidget* owner, const std::string& title);

 private:
  QString folder_;
};

}  // namespace quorvale
