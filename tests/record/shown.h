/// \file
/// What a window shows and offers, read from outside: nothing here knows which windows there are.
#pragma once

#include <QFont>
#include <QImage>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

namespace moistair::record {

using Lines = std::vector<std::string>;

/// One control to the line: name, texts, what a screen reader is told, tool tip, what it allows; then the order of Tab
/// and the rows in which it is all laid out. `brief` leaves out what does not change while the program runs.
Lines shown(QWidget& window, bool brief = false);

/// The entries of all menus below a menu or menu bar, as they are once it has opened.
Lines menus(QWidget& owner);

/// Texts in a picture, row by row, a bar between those of a row. Only such texts are seen as are looked for.
Lines readTexts(const QImage& picture, const QFont& font, const QStringList& texts);

/// A button or menu entry of a window and what presses it.
struct Offer {
  std::string name;
  std::function<void()> press;
};
std::vector<Offer> offersOf(QWidget& window);

}  // namespace moistair::record
