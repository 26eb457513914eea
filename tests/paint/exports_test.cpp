#include "paint/exports.h"

#include <gtest/gtest.h>

#include <QColorSpace>
#include <QXmlStreamReader>
#include <cmath>

#include "paint/replay.h"

namespace moistair {
namespace {

constexpr QSize size(300, 200);

/// A line of each kind, a dot and two texts, the second at the right edge.
Drawing sample() {
  RecordingCanvas canvas;
  canvas.line(150, 1500, 3000, 1500);
  canvas.line(1500, 150, 1500, 2850, colors::majorLine);
  canvas.line(2400, 150, 2400, 2850, colors::relativeHumidity);
  canvas.circle(600, 600, 40, colors::pointMark);
  canvas.moveTo(150, 150);
  canvas.print("Atmos. pr=29.92126 In Hg");
  canvas.moveTo(4200, 2400);
  canvas.print("(lb/lb of air)");
  return canvas.drawing();
}

QByteArray content(const char* ending, const Drawing& drawing = sample()) {
  return formatOfName(ending)->content(drawing, size, 2);
}

/// Number of pixels in this color within a rectangle.
int count(const QImage& image, const QRect& part, QColor color) {
  int pixels = 0;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) pixels += image.pixelColor(x, y) == color ? 1 : 0;
  }
  return pixels;
}

TEST(Picture, HasCrispLinesAtEveryScale) {
  for (const int scale : {1, 2, 3}) {
    SCOPED_TRACE(scale);
    const QImage image = drawingImage(sample(), size, scale);
    ASSERT_EQ(image.size(), size * scale);
    const QRect acrossTheVertical(80 * scale, 150 * scale, 40 * scale, 1);
    EXPECT_EQ(count(image, acrossTheVertical, QColor(0, 0, 255)), scale);
    const QRect acrossTheGreen(150 * scale, 150 * scale, 40 * scale, 1);
    EXPECT_EQ(count(image, acrossTheGreen, QColor(0, 128, 0)), scale);
    const QRect about(37 * scale, 37 * scale, 6 * scale, 6 * scale);
    const QColor mark = image.copy(about).scaled(1, 1, {}, Qt::SmoothTransformation).pixelColor(0, 0);
    EXPECT_GT(mark.red(), mark.green() + 10) << "the mark is not red";
    const QRect acrossTheHorizontal(150 * scale, 80 * scale, 1, 40 * scale);
    EXPECT_EQ(count(image, acrossTheHorizontal, Qt::black), scale);
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
  }
}

TEST(Picture, HasLinesOfOneWidthAtScalesBetween) {
  for (const double scale : {1.0, 1.25, 1.5, 1.75}) {
    RecordingCanvas canvas;
    for (int i = 0; i < 20; ++i) canvas.line(100 + 203.7 * i, 150, 100 + 203.7 * i, 1500);
    const QImage image = drawingImage(canvas.drawing(), size, scale);
    const auto black = [&](int x) { return image.pixelColor(x, image.height() / 4) == Qt::black; };
    int pixels = 0;
    for (int x = 0; x < image.width(); ++x) {
      pixels = black(x) ? pixels + 1 : 0;
      EXPECT_TRUE(pixels == 0 || black(x + 1) || pixels == std::lround(scale)) << scale << " at " << x;
    }
  }
}

TEST(Picture, SmoothsACurveAsOneLine) {
  RecordingCanvas whole, parts;
  whole.line(150, 150, 3030, 2454);
  for (const double x : {150, 870, 1590, 2310}) parts.line(x, 0.8 * x + 30, x + 720, 0.8 * (x + 720) + 30);
  const QImage image = drawingImage(whole.drawing(), size), joined = drawingImage(parts.drawing(), size);
  for (int x = 0; x < 300; ++x) {
    for (int y = 0; y < 200; ++y)
      ASSERT_NEAR(qGray(joined.pixel(x, y)), qGray(image.pixel(x, y)), 20) << x << ", " << y;
  }
  EXPECT_GT(300 * 200 - count(image, image.rect(), Qt::black) - count(image, image.rect(), Qt::white), 300);
}

TEST(Picture, ShowsOneLineOfAnIdentification) {
  EXPECT_EQ(printable(QStringLiteral(u"K\u00FC\r\nb\t\x01\x7F\u0085\u2028\u2029\uFFFF")),
            QStringLiteral(u"K\u00FC  b      \uFFFD"));
}

TEST(Picture, KeepsATextAtTheRightEdgeWhole) {
  const QImage image = drawingImage(sample(), size);
  const int inside = count(image, QRect(210, 155, 88, 20), Qt::white);
  EXPECT_LT(inside, 88 * 20 - 60) << "the text stands left of the edge";
  EXPECT_EQ(count(image, QRect(299, 155, 1, 20), Qt::black), 0) << "and ends there";
}

TEST(Contents, RepeatByteForByte) {
  for (const char* ending : {".bmp", ".png", ".svg"}) {
    SCOPED_TRACE(ending);
    EXPECT_FALSE(content(ending).isEmpty());
    EXPECT_EQ(content(ending), content(ending));
  }
}

TEST(Contents, AreWhatTheirEndingsClaim) {
  const QByteArray bitmap = bmpContent(drawingImage(sample(), size));
  EXPECT_EQ(bitmap.left(2), "BM");
  EXPECT_EQ(bitmap.at(28), 24) << "bits to the pixel";
  EXPECT_EQ(QImage::fromData(bitmap, "BMP").convertToFormat(QImage::Format_RGB32), drawingImage(sample(), size));
  EXPECT_EQ(QImage::fromData(content("Chart.BMP"), "BMP").size(), size * 2);
  QImage picture = QImage::fromData(content("a.png"), "PNG").convertToFormat(QImage::Format_RGB32);
  picture.setColorSpace({});
  EXPECT_EQ(picture, drawingImage(sample(), size, 2));
  EXPECT_TRUE(content("a.svg").contains("<text")) << "text stays text";
  EXPECT_TRUE(content("a.PDF").startsWith("%PDF"));
  EXPECT_TRUE(content("a.pdf").contains("/MediaBox [0 0 225.000000 150.000000]")) << "300 x 200 at 96 to the inch";
  EXPECT_EQ(formatOfName("png"), nullptr) << "a name that is no ending";
}

/// A line joined to one that it does not touch, or drawn in the color of its neighbor, would show here.
TEST(Contents, OfSvgJoinLinesThatMeetInOneColour) {
  RecordingCanvas canvas;
  canvas.line(150, 1500, 3000, 1500);
  canvas.line(3000, 1500, 3000.5, 750);
  canvas.line(150, 1500, 3000, 1500);
  canvas.line(3000, 1500, 4500, 1500, colors::majorLine);
  const QByteArray svg = content(".svg", canvas.drawing());
  EXPECT_TRUE(svg.contains("<path stroke=\"#000000\" d=\"M10,100L200,100 200.033,50M10,100L200,100\"/>"));
  EXPECT_TRUE(svg.contains("<path stroke=\"#0000ff\" d=\"M200,100L300,100\"/>"));
}

TEST(Contents, ThatCannotBeMadeAreNone) {
  EXPECT_TRUE(bmpContent(QImage()).isEmpty());
  EXPECT_TRUE(formatOfName(".png")->content(sample(), QSize(1, 1), 0.1).isEmpty()) << "a picture without an area";
}

TEST(Contents, AreWholeWhateverAnIdentificationHolds) {
  RecordingCanvas canvas;
  canvas.print(
      "a\x01<b>\x1B&\xEF\xBF\xBF\xFF"
      "\n\xC3\xA9");
  QXmlStreamReader reader(content(".svg", canvas.drawing()));
  while (!reader.atEnd()) reader.readNext();
  EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
}

TEST(Paper, TakesTheWholeDrawing) {
  QImage page(800, 600, QImage::Format_RGB32);
  page.fill(Qt::white);
  QPainter painter(&page);
  paintFitted(sample(), size, painter, QRectF(0, 0, 800, 600));
  painter.end();
  EXPECT_GT(count(page, QRect(250, 300, 60, 1), QColor(0, 0, 255)), 1) << "the vertical, scaled with its width";
  EXPECT_EQ(count(page, QRect(0, 0, 800, 30), Qt::black), 0) << "centred, with a band left free above";
}

}  // namespace
}  // namespace moistair
