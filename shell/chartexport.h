/// \file
/// The chart in vector files, as a picture and on paper.
///
/// Both are laid out for the size that they get: the chart fills it with even margins, without the room that the strip
/// of controls takes in the window.
#pragma once

#include <QPageLayout>
#include <QSize>
#include <QWidget>
#include <functional>
#include <optional>

#include "model/document.h"
#include "paint/exports.h"

class QPagedPaintDevice;
class QPainter;

namespace moistair {

class SessionLog;

/// Picture pixels to the logical pixel of an export: sharp when a report enlarges it.
inline constexpr double exportScale = 2;

/// A document laid out so that what it draws fills a picture with even margins. Without a chart there is nothing that
/// could fill it, and it is laid out as in a window of that size.
/// @param size [logical pixels]
Drawing fittedTo(const Document& document, QSize size);

/// Asks for a path and writes what `content` makes in the format of the path's ending or, where it has none of these,
/// of the filter chosen, whose ending is then added. Tells the user of a file that could not be written, and why.
/// Returns the path of one that was.
/// @param what as the user calls it; "Export what" is the title of the dialog
/// @param first ending of the format that the dialog offers first
std::optional<QString> exportPicture(QWidget* window, const SessionLog& log, const QString& what, const char* first,
                                     const std::function<QByteArray(const FileFormat& format)>& content);

/// The same for the chart.
/// @param size of the picture [logical pixels]
std::optional<QString> exportChart(QWidget* window, const SessionLog& log, const Document& document, QSize size);

/// The page of the first printing: the locale's paper, landscape.
QPageLayout firstPage();

/// The system's dialog for the page. Returns the page as it then is.
QPageLayout askPage(QWidget* window, const QPageLayout& page);

/// Paints on a device that has pages.
using PaintPages = std::function<void(QPagedPaintDevice&, QPainter&)>;

/// The system's print dialog, and what `paint` then paints, on paper or in a file, which may be any but the log's.
/// Returns the page as it then is.
QPageLayout printPages(QWidget* window, const SessionLog& log, const QPageLayout& page, const PaintPages& paint);

/// The same for the chart on one page.
QPageLayout printChart(QWidget* window, const SessionLog& log, const Document& document, const QPageLayout& page);

}  // namespace moistair
