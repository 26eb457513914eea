#include "toolkit/valuebox.h"

#include <QEvent>
#include <QStyleOptionFrame>

namespace moistair {

namespace {

/// So much of the one colour, the rest of the other.
QColor mixed(const QColor& one, const QColor& other, float part) {
  const auto mix = [part](float a, float b) { return part * a + (1 - part) * b; };
  return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()),
                          mix(one.blueF(), other.blueF()));
}

}  // namespace

QPalette framepalette(QPalette palette) {
  constexpr float textpart = 0.65F;  // leaves a contrast of three to one once a style has darkened it
  const QColor window = palette.color(QPalette::Window);
  const QColor text = palette.color(QPalette::WindowText);
  if (text.lightness() > window.lightness()) palette.setColor(QPalette::Window, mixed(text, window, textpart));
  return palette;
}

ValueBox::ValueBox(QWidget* parent) : QLineEdit(parent) { fadeplaceholder(); }

void ValueBox::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) fadeplaceholder();
  QLineEdit::changeEvent(event);
}

/// A platform's dark palette may leave this colour at that of a light one.
void ValueBox::fadeplaceholder() {
  constexpr float textpart = 0.55F;
  const QPalette now = palette();
  const QColor faded = mixed(now.color(QPalette::Text), now.color(QPalette::Base), textpart);
  if (now.color(QPalette::PlaceholderText) == faded) return;
  QPalette own;
  own.setColor(QPalette::PlaceholderText, faded);
  setPalette(own);
}

void ValueBox::initStyleOption(QStyleOptionFrame* option) const {
  QLineEdit::initStyleOption(option);
  option->palette = framepalette(option->palette);
}

}  // namespace moistair
