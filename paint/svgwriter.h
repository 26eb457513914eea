/// \file
/// The one writer of SVG text, for charts and for sheets.
///
/// It writes what it is given in the order given, in numbers to the thousandth of a pixel, which nobody sees. Lines of
/// one stroke that follow each other are one path.
#pragma once

#include <QPointF>
#include <QString>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "sheet/sheetdrawing.h"

namespace moistair {

struct SvgStroke {
  Color color;
  std::optional<double> width = std::nullopt;  ///< [pixels]; that of all lines, one pixel, if none is given
  Dash dash = Dash::solid;

  bool operator==(const SvgStroke&) const = default;
};

struct SvgText {
  QString characters;  ///< `printable`
  QPointF baseline;    ///< of its anchor
  Color color{0, 0, 0};
  std::optional<double> size = std::nullopt;  ///< [pixels]; that of its group if none is given
  bool bold = false;
  Anchor anchor = Anchor::start;
  double angle = 0;  ///< turned about its anchor, clockwise [degrees]
};

class SvgWriter {
public:
  /// A file of so many pixels of 1/96 inch.
  SvgWriter(double width, double height, const QString& title, const Color& ground);

  /// What follows, until the next group: how corners of lines look, and the font.
  struct Group {
    const char* lineJoin;
    std::string family;
    std::optional<double> size = std::nullopt;  ///< of texts [pixels]
    std::optional<double> top = std::nullopt;   ///< where it is put [pixels]
  };
  void begin(const Group& group);

  /// What follows in the group belongs to a part of it, by whose name others find it: "wet-bulb". A part that comes
  /// again has a number behind its name.
  void part(const std::string& name);

  /// A straight line, which goes on from the one before if that has its end where this begins.
  void line(const SvgStroke& stroke, QPointF from, QPointF to);
  void polyline(const SvgStroke& stroke, const std::vector<SheetPoint>& points);
  void area(const Color& color, const std::vector<SheetPoint>& outline);
  void circle(const Color& color, QPointF center, double radius);
  void text(const SvgText& text);

  /// The whole of the file; nothing can be added after it.
  std::string finished();

private:
  void openPath(const SvgStroke& stroke);
  void closePath();
  void closeGroup();
  void closePart();
  void points(const std::vector<SheetPoint>& points);

  std::string out_;
  std::optional<SvgStroke> path_;  ///< of the open path, if one is open
  std::optional<QPointF> end_;     ///< of the last line in it
  bool grouped_ = false;
  std::string part_;                   ///< that is open, if one is
  std::map<std::string, int> counts_;  ///< of the parts so far, by name
};

}  // namespace moistair
