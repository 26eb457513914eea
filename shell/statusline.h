/// \file
/// The status line at the bottom of the main window.
#pragma once

#include <QStatusBar>
#include <QTimer>
#include <array>
#include <optional>

#include "advice/pairnotes.h"
#include "advice/statustexts.h"
#include "text/error.h"
#include "toolkit/elidedlabel.h"
#include "toolkit/messageline.h"

namespace moistair {

class CellRow;

/// What the status line offers until it is done or of no use any more; of several the last one.
enum class Offer {
  previous,  ///< entries of the previous chart put on this one
  typed,     ///< what was typed in the boxes put back
};
inline constexpr std::size_t offerCount = 2;

/// Always shows the current pressure, the chart, the records of the log, the
/// document's name. To the left of them it speaks: a remark on the pair in the boxes, and for a while the answer to a
/// command. It shows what it is given and decides nothing.
///
/// Where there is not room for all, the document's name gives way first, then the chart, then the records, at last
/// wholly, before what is said is cut; the current pressure, a header that states another one, and limits that are not
/// drawn stay readable.
class StatusLine final : public QStatusBar {
  Q_OBJECT

public:
  explicit StatusLine(QWidget* parent = nullptr);

  void show(const StatusTexts& statusTexts, std::size_t records);
  using QStatusBar::show;

  bool headerDiffers() const { return !header_->text().isEmpty(); }

  void showDocument(const QString& caption);

  /// What is to be said of the boxes, until the next remark.
  void remark(const PairNotes& notes);

  /// The answer to a command, until the next key in a box, the next command, or for some seconds; a fault stays.
  void answer(const QString& words, BoxMark mark = BoxMark::none, const QString& tip = {});

  /// The same of a file: "chart written to room.png", or why it was not.
  void answerFile(const QString& what, const QString& path, const Outcome& outcome);

  /// Another command has been given.
  void endAnswer();

  /// @param words empty for nothing to offer
  void offer(Offer offer, const QString& words, const QString& tip = {});

  /// That unsaved work is not being kept, and why, until it is again.
  /// @param reason empty once it is
  void showUnkept(const QString& reason);

Q_SIGNALS:
  void headerchosen();  ///< the pressure that the header states is to be current again
  void exactChosen();   ///< the exact state of the remark is to go into the boxes
  void offerChosen(Offer offer);

private:
  void announce();
  std::size_t shownOffer() const;

  MessageLine *message_, *offer_, *unkept_, *pressure_, *header_, *changes_;
  ElidedLabel *chart_, *records_, *document_;
  CellRow* row_;
  PairNotes notes_;
  QString answer_;
  QString answerTip_;
  BoxMark answerMark_ = BoxMark::none;
  std::array<QString, offerCount> offers_;
  std::array<QString, offerCount> offerTips_;
  QTimer answered_;
};

}  // namespace moistair
