#include "shell/startup.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <cstdlib>
#include <string_view>

#include "paint/replay.h"
#include "toolkit/messages.h"

namespace moistair {

bool checkRez(int pixelWidth, int pixelHeight, int screenWidth, int screenHeight) {
  constexpr int twips = static_cast<int>(twipsPerPixel);
  if (screenWidth < pixelWidth * twips) return false;
  return screenHeight >= pixelHeight * twips;
}

bool leavesForSmallScreen(QWidget* parent) {
  const QScreen& primary = *QGuiApplication::primaryScreen();
  const QSize screen = primary.size() * primary.devicePixelRatio() * static_cast<int>(twipsPerPixel);
  if (checkRez(neededWidth, neededHeight, screen.width(), screen.height())) return false;
  return question(parent, QStringLiteral("DELETE"),
                  QStringLiteral("You must set screen size to 1024x768 or higher if your monitor size is less than 15 "
                                 "inch. Do you want to exit the program and reset your screen reolution now ?"));
}

QString helpPath() {
  const QDir program(QCoreApplication::applicationDirPath());
  for (const QString& name : {QStringLiteral("Psychrometric chart-English Units.chm"),
                              QStringLiteral("../share/doc/moistair/manual/index.html")}) {
    if (program.exists(name)) return QDir::cleanPath(program.filePath(name));
  }
  return {};
}

std::optional<std::string> wantedText(int argc, char** argv) {
  constexpr const char* version = "moistair " MOISTAIR_VERSION "\n";
  constexpr const char* usage =
      "Usage: moistair [OPTIONS] [FILE]\n\n"
      "Opens the window for psychrometric charts in English units, with a document (.moistair) if one is given.\n\n"
      "  --help     Print this and exit\n"
      "  --version  Print the version and exit\n\n"
      "For scripts and tables there is moistair-cli.\n";
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    if (word == "--help" || word == "-h") return usage;
    if (word == "--version") return version;
  }
  return std::nullopt;
}

bool hasDisplay() {
  const auto isSet = [](const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
  };
  return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

}  // namespace moistair
