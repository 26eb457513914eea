#include "windows/about.h"

#include <QMessageBox>

namespace moistair {

void showAbout(QWidget* parent) {
  const QString text = QStringLiteral(
      "<h3>Moistair %1</h3>"
      "<p>Psychrometric charts in English units: states of moist air, lines, mixtures and air-handling processes.</p>"
      "<p>Copyright © 2026 the Moistair developers, under the MIT License.</p>"
      "<p>With Qt %2 (LGPL 3), Eigen (MPL 2.0), JSON for Modern C++ (MIT), CLI11 (BSD, 3 clauses), fontconfig (MIT) "
      "and libpng (libpng License), as Debian packages them; their licenses are in /usr/share/doc.</p>");
  QMessageBox::about(parent, QStringLiteral("About Moistair"),
                     text.arg(QStringLiteral(MOISTAIR_VERSION), QString::fromLatin1(qVersion())));
}

}  // namespace moistair
