/// \file
/// What a program without a display runs on, the same on every machine.
#pragma once

#include <QApplication>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdlib>

namespace moistair::windowtest {

/// A screen of 1366 x 768 pixels: the platform's own is too small for the program not to ask about it.
inline void useScreen(const QTemporaryDir& folder) {
  QFile file(folder.filePath(QStringLiteral("screen.json")));
  if (!file.open(QIODevice::WriteOnly)) std::abort();
  file.write(R"({"synchronousWindowSystemEvents": false, "windowFrameMargins": false,
                 "screens": [{"name": "s", "x": 0, "y": 0, "width": 1366, "height": 768,
                              "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
  setenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + file.fileName().toStdString()).c_str(), 1);
  setenv("QT_STYLE_OVERRIDE", "Fusion", 1);
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
  // Offscreen windows cannot be raised and have no hints to pass on; nobody needs to read that.
  qputenv("QT_LOGGING_RULES", "qt.qpa.*=false;default.warning=false");
}

}  // namespace moistair::windowtest
