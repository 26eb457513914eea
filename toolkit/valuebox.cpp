#include "toolkit/valuebox.h"

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

void ValueBox::initStyleOption(QStyleOptionFrame* option) const {
  QLineEdit::initStyleOption(option);
  option->palette = framepalette(option->palette);
}

}  // namespace moistair
