// recorder KIND FOLDER [FIRST COUNT [full]]: writes the records of a kind into a folder. record.py runs it.
#include <QFont>

#include "record/recorder.h"
#include "windows/screen.h"

namespace {

/// The one family that the program names, hinted as Debian does by itself.
constexpr const char* fontconfig = R"(<fontconfig>
  <dir>/usr/share/fonts/truetype/dejavu</dir>
  <cachedir>/var/cache/fontconfig</cachedir>
  <match target="pattern"><edit name="hintstyle" mode="append"><const>hintslight</const></edit></match>
</fontconfig>)";

void useFonts(const QTemporaryDir& folder) {
  const std::filesystem::path file = folder.filePath(QStringLiteral("fonts.conf")).toStdString();
  std::ofstream(file) << fontconfig;
  setenv("FONTCONFIG_FILE", file.c_str(), 1);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const QTemporaryDir temporary;
  moistair::windowtest::useScreen(temporary);
  useFonts(temporary);
  setenv("TZ", "UTC", 1);
  setenv("HOME", temporary.path().toStdString().c_str(), 1);
  setenv("LC_ALL", "C.UTF-8", 1);
  QApplication application(argc, argv);
  QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
  const std::string kind = argv[1];
  const std::filesystem::path folder = argv[2];
  if (kind == "sheets") moistair::record::sheets(folder);
  if (kind == "windows") moistair::record::windows(folder);
  if (kind == "traces" && argc > 4) moistair::record::traces(folder, std::atoi(argv[3]), std::atoi(argv[4]), argc > 5);
  return 0;
}
