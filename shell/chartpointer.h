/// \file
/// The chart as an instrument: what pointer and keys do on it.
///
/// Watches the widget that shows a chart, keeps the reading under the pointer or the keys' cross hair, and shows it on
/// a layer above (windows/readinglayer.h). What it changes of the document it changes through `ChartCommands`, one step
/// each; what the strip has to do, as to take a place into its boxes, it asks for by signals. All that it knows of the
/// widget is where the plot of given limits lies on it, so a chart that is laid out otherwise can be read the same way.
#pragma once

#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QObject>
#include <QTimer>
#include <functional>
#include <optional>
#include <vector>

#include "model/chartcommands.h"
#include "model/marks.h"
#include "windows/readinglayer.h"

namespace moistair {

class ChartPointer final : public QObject {
  Q_OBJECT

public:
  /// What it asks for, at the moment it needs it.
  struct PlotGeometry {
    std::function<PlotBox(const ChartLimits&)> plot;  ///< where the plot lies on the widget
    std::function<WindowSize()> window;               ///< that changes of the document are laid out for
  };

  /// @param widget shows the chart; takes the focus
  ChartPointer(QWidget& widget, ChartCommands& chart, PlotGeometry geometry);

  /// Commands on the place that the cross hair is at, with their keys.
  void fillMenu(QMenu& menu);

  /// To be called after every change of the document and of the place where the plot lies.
  void follow();

Q_SIGNALS:
  /// A place was chosen: its texts belong into the two boxes.
  void chosen(const QString& dryBulb, const QString& ratio);
  /// And the point there is to be located.
  void located();
  /// An entry is to have its exact state.
  void exactChosen(std::size_t entry);
  /// Something was not drawn, in the words for the user.
  void refused(const QString& reason);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  /// What the cross hair is at.
  struct CrossHair {
    Reading reading;
    std::optional<std::size_t> mark;  ///< of `marks_`
  };

  struct Command;
  static const std::vector<Command>& commands();
  bool runCommand(QKeyCombination keys);

  bool onMouse(const QMouseEvent& event);
  bool onKey(const QKeyEvent& event);
  void onMove(Qt::KeyboardModifiers modifiers);
  void onLeave();
  void onFocus(Qt::FocusReason reason);
  bool isPulled() const;
  void press(const QMouseEvent& event);
  void release();
  void point(QPointF place, Qt::KeyboardModifiers modifiers);
  void drag(QPointF place, Qt::KeyboardModifiers modifiers);
  bool step(Qt::Key key, bool tenths);
  void showAt(const ChartCoordinates& place);
  void show(CrossHair crossHair, double atm);
  void hide();
  void announce();
  void setShape();
  QString titleOf(const CrossHair& crossHair, double atm) const;

  bool movable(std::size_t mark) const;
  const Entry& entryOf(std::size_t mark) const { return chart_.document().entries[marks_[mark].entry]; }

  void choose(const CrossHair& crossHair);
  void locate(const CrossHair& crossHair);
  void drop();
  void draw(LineKind kind, const CrossHair& crossHair);
  void pin(const CrossHair& crossHair);
  void dismiss(const CrossHair& crossHair);
  void erase(const CrossHair& crossHair);
  void rename(const CrossHair& crossHair);
  void copy(const CrossHair& crossHair);
  void openMenu(const QContextMenuEvent& event);
  void stayWith(QMenu& menu);
  std::vector<CrossHair> atSameCoordinates(const CrossHair& crossHair) const;
  void fillMenu(QMenu& menu, const CrossHair& crossHair);

  QWidget& widget_;
  ChartCommands& chart_;
  PlotGeometry geometry_;
  ReadingLayer* layer_;
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
  QTimer announceTimer_{this};
};

}  // namespace moistair
