/// \file
/// The pointer's controller: what pointer and keys do on a chart.
///
/// It keeps the reading under the pointer or the keys' cross hair. What it changes of the document it changes through
/// `ChartCommands`, one step each; what the strip has to do, as to take a place into its boxes, it asks for by signals,
/// and so is what it shows. It knows no widget, only where the plot of given limits lies, so a chart that is laid out
/// otherwise can be read the same way. `ChartPointer` hands it the events of a widget.
#pragma once

#include <QObject>
#include <QPointF>
#include <QString>
#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "model/marks.h"
#include "shell/chartcontroller.h"
#include "windows/readinglayer.h"

namespace moistair {

class PointerController final : public QObject {
  Q_OBJECT

public:
  /// What the cross hair is at.
  struct CrossHair {
    Reading reading;
    std::optional<std::size_t> mark;  ///< that it is on, by its number
  };

  /// A command on the place of the cross hair, with its key.
  struct Command {
    const char* text;
    const char* keyName;
    std::array<QKeyCombination, 2> keys;
    bool (*possible)(const CrossHair& crossHair);
    void (PointerController::*run)(const CrossHair& crossHair);
  };
  static const std::vector<Command>& commands();

  /// Where the plot of limits lies, at the moment it is needed.
  using Plot = std::function<PlotBox(const ChartLimits&)>;

  /// @param drag how far the pointer goes with the button down before that is no click [pixels]
  PointerController(ChartController& chart, Plot plot, int drag, QObject* parent = nullptr);

  /// To be called when the plot lies elsewhere while the document is the same.
  void follow();

  /// The pointer is at a place of the widget, where one of these then happens: a move, or something with the left
  /// button.
  void setPointer(QPointF place) { pointer_ = place; }
  void move(Qt::KeyboardModifiers modifiers);
  void press(Qt::KeyboardModifiers modifiers);
  void release();
  void doubleClick();
  void leave();
  void focus(Qt::FocusReason reason);
  /// A modifier has been pressed or released.
  void modify(Qt::KeyboardModifiers modifiers);
  /// Whether the key is one of the chart's.
  bool key(QKeyCombination keys, bool isRepeat);

  const std::optional<CrossHair>& crossHair() const { return crossHair_; }
  bool isDragging() const { return dragging_; }
  /// Where the cross hair is on the widget.
  QPointF cross() const;
  /// The reading in words, for who cannot see it.
  QString description() const;

  /// The place of a mark's entry in the document, the entry itself, and whether the mark can be put elsewhere.
  std::size_t placeOf(std::size_t mark) const { return marks_[mark].entry; }
  const Entry& entryOf(std::size_t mark) const { return chart_.document().entries[placeOf(mark)]; }
  bool movable(std::size_t mark) const { return isPoint(entryOf(mark)); }
  /// The same place with each mark that is there, one of a kind of entry after the other.
  std::vector<CrossHair> atSameCoordinates(const CrossHair& crossHair) const;

  bool run(const Command& command);
  void locate(const CrossHair& crossHair);
  void draw(LineKind kind, const CrossHair& crossHair);
  void pin(const CrossHair& crossHair);
  void copy(const CrossHair& crossHair);
  void erase(const CrossHair& crossHair);

Q_SIGNALS:
  /// A place was chosen: its texts belong into the two boxes.
  void chosen(const QString& dryBulb, const QString& ratio);
  /// And the point there is to be located.
  void located();
  /// Something was not drawn, in the words for the user.
  void refused(const QString& reason);
  void copied(const QString& text);

  void shown(const ShownReading& reading);
  void hidden();
  void shaped(Qt::CursorShape shape);
  void described(bool atOnce);  ///< `description` is another one; not at once while a pointer is on its way

private:
  bool isPulled() const;
  void moveTo(Qt::KeyboardModifiers modifiers);
  void point(QPointF place, Qt::KeyboardModifiers modifiers);
  void drag(QPointF place, Qt::KeyboardModifiers modifiers);
  bool step(Qt::Key key, bool tenths);
  void showAt(const ChartCoordinates& place);
  void show(CrossHair crossHair, double atm);
  void hide();
  void setShape();
  void choose(const CrossHair& crossHair);
  void drop();
  void dismiss(const CrossHair&) { hide(); }
  QString titleOf(const CrossHair& crossHair, double atm) const;

  ChartController& chart_;
  Plot plot_;
  int dragDistance_;
  std::optional<Setting> currentChart_;  ///< the chart that is read
  std::vector<Mark> marks_;
  std::vector<ChartCoordinates> targets_;  ///< the marks' places
  std::optional<CrossHair> crossHair_;
  ChartCoordinates last_;  ///< where the keys begin; of no use before `hasLast_`
  bool hasLast_ = false;
  bool byKeys_ = false;   ///< whether the cross hair is where keys have put it
  bool steered_ = false;  ///< and they have done so since the chart has had the focus
  std::optional<QPointF> pressed_;
  QPointF pointer_;
  bool dragging_ = false;
  std::optional<std::size_t> grabbed_;  ///< the mark under the pointer when the button went down
  QString title_;                       ///< what is shown above the reading
};

}  // namespace moistair
