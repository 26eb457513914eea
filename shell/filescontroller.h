/// \file
/// The files' controller: the document and its file.
///
/// Knows where the document belongs and whether it is saved; reads, writes and remembers files, and asks before unsaved
/// work would go. What is not saved is also kept next to the session log every few seconds, under the log's name, and
/// with it goes where the log goes: it is there for the next start after a crash, and among the earlier sessions after
/// a normal end. What it asks and warns of goes through functions, so that it knows no window; what it opens the
/// chart's controller takes.
#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <filesystem>
#include <optional>
#include <vector>

#include "log/sessionlog.h"
#include "model/documentfile.h"
#include "shell/chartcontroller.h"
#include "shell/filedialogs.h"

namespace moistair {

class FilesController final : public QObject {
  Q_OBJECT

public:
  FilesController(ChartController& chart, const SessionLog& log, FileDialogs dialogs, QObject* parent = nullptr);

  void startNew();
  void askOpen();
  bool save();
  bool saveAs();

  /// Paths of the documents last opened or saved, the latest first; or why the list cannot be used.
  struct Recent {
    QStringList paths;
    QString fault;  ///< why there are none, though there is a list
  };
  Recent recent() const;

  /// Reads a file in place of the current document, with a question if that is not saved. A file that cannot be read is
  /// reported, with place and reason, and changes nothing. Returns whether it was opened.
  bool open(const QString& path);

  /// "room.moistair *", or "Untitled"; the star says that it is not saved.
  QString caption() const;

  /// Takes what sessions left behind that did not close normally and keeps it among the earlier sessions. To be called
  /// once the log has been made; before that, nothing here touches a file of unsaved work, since its name may belong to
  /// such a session, or to another copy that is running.
  void collectRecoveredWork();

  /// Offers to open the latest of it, if there was any.
  void offerRecoveredWork();

  /// The program ends and asks nothing: what is not saved is kept among the earlier sessions.
  void end();

  /// Reads one of those that were kept so. It is unsaved as it was.
  void openRecovered(const std::filesystem::path& kept);

Q_SIGNALS:
  void captionChanged();
  /// Unsaved work could not be kept, and why; empty once it could.
  void keepTried(const QString& failure);

private:
  void follow();
  bool writeTo(const QString& path);
  bool mayReplace();
  bool unsaved() const;
  bool read(const QString& path, bool kept);
  void settle(const QString& path);
  void autosave();
  std::filesystem::path workFile() const;
  std::filesystem::path recentFile() const;
  void remember(const QString& path);

  ChartController& chart_;
  const SessionLog& log_;
  FileDialogs dialogs_;
  QString path_;                         ///< of the document's file; empty for none
  std::filesystem::path recoveredWork_;  ///< to be offered; empty for none
  QTimer timer_;
  bool stale_ = false;      ///< whether the work kept with the log is not the document as it is
  bool collected_ = false;  ///< whether what was left has been collected
  bool hasLog_ = false;     ///< whose name that work has
};

/// The pressure of a document's file; none if it cannot be read.
std::optional<Pressure> pressureOfFile(const QString& path);

}  // namespace moistair
