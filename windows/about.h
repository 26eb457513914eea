/// \file
/// What the program is, and by whose work.
#pragma once

#include <QWidget>

namespace moistair {

/// Shows version and licenses, and waits for OK.
void showAbout(QWidget* parent);

}  // namespace moistair
