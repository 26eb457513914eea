#include "toolkit/valuebox.h"

#include <QEvent>
#include <QStyleOptionFrame>

namespace moistair {

namespace {

/// So much of the one color, the rest of the other.
QColor mixed(const QColor& one, const QColor& other, float part) {
  const auto mix = [part](float a, float b) { return part * a + (1 - part) * b; };
  return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()),
                          mix(one.blueF(), other.blueF()));
}

}  // namespace

QPalette framePalette(QPalette palette) {
  constexpr float textPart = 0.65F;  // leaves a contrast of three to one once a style has darkened it
  const QColor window = palette.color(QPalette::Window);
  const QColor text = palette.color(QPalette::WindowText);
  if (text.lightness() > window.lightness()) palette.setColor(QPalette::Window, mixed(text, window, textPart));
  return palette;
}

ValueBox::ValueBox(QWidget* parent) : QLineEdit(parent) { fadePlaceholder(); }

void ValueBox::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) fadePlaceholder();
  QLineEdit::changeEvent(event);
}

/// A platform's dark palette may leave this color at that of a light one.
void ValueBox::fadePlaceholder() {
  constexpr float textPart = 0.55F;
  const QPalette now = palette();
  const QColor faded = mixed(now.color(QPalette::Text), now.color(QPalette::Base), textPart);
  if (now.color(QPalette::PlaceholderText) == faded) return;
  QPalette own;
  own.setColor(QPalette::PlaceholderText, faded);
  setPalette(own);
}

void ValueBox::initStyleOption(QStyleOptionFrame* option) const {
  QLineEdit::initStyleOption(option);
  option->palette = framePalette(option->palette);
}

}  // namespace moistair
