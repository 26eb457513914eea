#include "sheet/theme.h"

namespace moistair {

namespace {

constexpr Color rgb(unsigned number) {
  return {static_cast<std::uint8_t>(number >> 16), static_cast<std::uint8_t>((number >> 8) & 255),
          static_cast<std::uint8_t>(number & 255)};
}

constexpr Theme color = {
    .paper = rgb(0xffffff),
    .ink = rgb(0x1d2430),
    .faded = rgb(0x5a6472),
    .fineGrid = {0.5, rgb(0xe3e6ea), Dash::solid},
    .grid = {0.6, rgb(0xc6ccd4), Dash::solid},
    .frame = {1.0, rgb(0x1d2430), Dash::solid},
    .saturation = {2.4, rgb(0x12335f), Dash::solid},
    .scale = {0.7, rgb(0x1d2430), Dash::solid},
    .humidity = {0.8, rgb(0x2f8f5b), Dash::solid},
    .wetBulb = {0.65, rgb(0x4b83c4), Dash::solid},
    .enthalpy = {0.6, rgb(0xb9772f), Dash::dashed},
    .volume = {0.7, rgb(0xa4559a), Dash::dashed},
    .weather = rgb(0xe8701a),
    .mark = rgb(0xc8102e),
    .shade = rgb(0xeef1f5),
    .humidityText = rgb(0x1f7a49),
    .wetBulbText = rgb(0x2f6bb0),
    .enthalpyText = rgb(0x92561a),
    .volumeText = rgb(0x8f4086),
};

constexpr Theme gray = {
    .paper = rgb(0xffffff),
    .ink = rgb(0x111111),
    .faded = rgb(0x555555),
    .fineGrid = {0.5, rgb(0xe6e6e6), Dash::solid},
    .grid = {0.6, rgb(0xcccccc), Dash::solid},
    .frame = {1.0, rgb(0x111111), Dash::solid},
    .saturation = {2.6, rgb(0x000000), Dash::solid},
    .scale = {0.7, rgb(0x111111), Dash::solid},
    .humidity = {0.9, rgb(0x555555), Dash::solid},
    .wetBulb = {0.55, rgb(0x6c6c6c), Dash::solid},
    .enthalpy = {0.6, rgb(0x777777), Dash::dotted},
    .volume = {0.7, rgb(0x666666), Dash::dashed},
    .weather = rgb(0x555555),
    .isGray = true,
    .mark = rgb(0x000000),
    .shade = rgb(0xeeeeee),
    .humidityText = rgb(0x444444),
    .wetBulbText = rgb(0x5c5c5c),
    .enthalpyText = rgb(0x6a6a6a),
    .volumeText = rgb(0x555555),
};

constexpr Theme dark = {
    .paper = rgb(0x14181f),
    .ink = rgb(0xe8ebf0),
    .faded = rgb(0xa3adba),
    .fineGrid = {0.5, rgb(0x232a34), Dash::solid},
    .grid = {0.6, rgb(0x38424f), Dash::solid},
    .frame = {1.0, rgb(0xd5dae2), Dash::solid},
    .saturation = {2.4, rgb(0x9cc7ff), Dash::solid},
    .scale = {0.7, rgb(0xc4cbd6), Dash::solid},
    .humidity = {0.8, rgb(0x5fbf8a), Dash::solid},
    .wetBulb = {0.65, rgb(0x5b8fcc), Dash::solid},
    .enthalpy = {0.6, rgb(0xd79b57), Dash::dashed},
    .volume = {0.7, rgb(0xc07ab6), Dash::dashed},
    .weather = rgb(0xe8701a),
    .mark = rgb(0xff6b6b),
    .shade = rgb(0x222934),
    .humidityText = rgb(0x6fcb98),
    .wetBulbText = rgb(0x7aa9e0),
    .enthalpyText = rgb(0xd79b57),
    .volumeText = rgb(0xd08fc7),
};

}  // namespace

const Stroke& Theme::of(LineKind kind) const {
  switch (kind) {
    case LineKind::relativeHumidity: return humidity;
    case LineKind::wetBulb: return wetBulb;
    case LineKind::enthalpy: return enthalpy;
    case LineKind::specificVolume: break;
  }
  return volume;
}

Color Theme::textOf(LineKind kind) const {
  switch (kind) {
    case LineKind::relativeHumidity: return humidityText;
    case LineKind::wetBulb: return wetBulbText;
    case LineKind::enthalpy: return enthalpyText;
    case LineKind::specificVolume: break;
  }
  return volumeText;
}

Color Theme::lighter(Color color) const {
  const auto mean = [](int one, int other) { return static_cast<std::uint8_t>((one + other) / 2); };
  return {mean(color.red, paper.red), mean(color.green, paper.green), mean(color.blue, paper.blue)};
}

const Theme& themeOf(SheetColors colors) {
  switch (colors) {
    case SheetColors::color: return color;
    case SheetColors::gray: return gray;
    case SheetColors::dark: break;
  }
  return dark;
}

}  // namespace moistair
