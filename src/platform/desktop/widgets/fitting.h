#pragma once

#include <QFont>
#include <QString>
#include <string>

namespace quorvale {

// The font of the controls, which fills their places as the usual font does.
QFont DialogFont();
// The same at another size.
QFont DialogFont(float points);

// The font, made smaller until the text, whose "&" mark access keys, is no wider than `width`. What is too
// small to read is not made smaller still.
QFont FittingFont(const QFont& font, const QString& caption, int width);

// A length of the layout in Qt's pixels.
int Scaled(double pixels);

QString Caption(const std::string& caption);
// Without the "&" that mark access keys.
QString WithoutAccessKey(const QString& caption);

}  // namespace quorvale
