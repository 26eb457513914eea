/// \file
/// The log's controller: what is saved in this session, and what earlier ones have left.
///
/// It reads and writes the log and knows no window: what is to be shown and what has failed it says by signals.
#pragma once

#include <QObject>
#include <QString>
#include <string>
#include <utility>
#include <vector>

#include "files/inputfile.h"
#include "log/earliersessions.h"
#include "log/sessionlog.h"

namespace moistair {

class LogController final : public QObject {
  Q_OBJECT

public:
  /// Something that an earlier session has left.
  struct Kept {
    EarlierSession session;
    bool work = false;  ///< unsaved work, and not saved data
    QString caption;
  };

  explicit LogController(LogPlaces places, QObject* parent = nullptr) : QObject(parent), log_(std::move(places)) {}

  SessionLog& log() { return log_; }

  void view();
  void viewSession(const EarlierSession& session);

  /// What earlier sessions have left, the latest first, as it is now: other copies of the program add to it.
  std::vector<Kept> earlier() const;

  /// A copy in another file; false if it was not written.
  bool copyTo(const QString& path);

  void append(const std::vector<std::string>& lines);

Q_SIGNALS:
  void shown(const QString& content, const QString& title);  ///< title empty for this session's
  void unreadable(const QString& text);
  void appended(const QString& words);
  void notAppended(const QString& text);

private:
  SessionLog log_;
};

}  // namespace moistair
