#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "ui/review/CurveColumns.h"
#include "ui/review/ReviewScene.h"

class QAction;
class QHBoxLayout;
class QLabel;
class QToolButton;

namespace tarnlog {

class DataList;
class FiguresTable;
class FindBar;
class HandOn;
class HelpPanel;
class MarkList;
class NoticeBar;
class OverviewStrip;
class RecordsBar;
class ReviewGraphs;
class ReviewPanes;
class ReviewSources;
struct FileQuestion;
struct ReviewEnvironment;

/// Looks at records that were made, whole, for a place on a host's window: graphs over the whole of them or
/// any stretch, values and figures between two cursors, marks, search, other records laid over, and ways to
/// hand on what is seen. A record that is still being written is followed. Nothing is written but what the
/// user saves. One thread, the user interface's; files are read in threads of their own, which end with it.
/// While it has the focus itself, keys act as on a graph.
class TarnReview : public QWidget {
  Q_OBJECT
 public:
  /// With the settings, dialogs and locale of this system.
  explicit TarnReview(QWidget* parent = nullptr);
  /// With those that it is given, which outlive it.
  explicit TarnReview(const ReviewEnvironment& environment, QWidget* parent = nullptr);
  ~TarnReview() override;

  /// Looks at these files (UTF-8 paths), of which the second and third are laid over the first, in place of
  /// what was looked at. Returns at once; what cannot be read is told in a bar.
  void open(const std::vector<std::string>& paths);
  void open(const std::string& path) { open(std::vector<std::string>{path}); }
  /// Lays this file over what is looked at.
  void layOver(const std::string& path);
  /// Asks for a file and opens it.
  void askOpen();
  void askLayOver();
  void closeRecords();

  /// A file is being read; what is written to one that is followed does not count.
  bool reading() const;
  /// Shows or closes the keys; F1 does the same.
  void toggleHelp();

  /// What is looked at: a host may set graphs, cursors and the span.
  ReviewScene& scene() { return scene_; }
  NoticeBar& notices() { return *notices_; }

  QSize sizeHint() const override { return {1100, 750}; }

 signals:
  /// For the window's title: the names of the records.
  void titleChanged(const QString& title);
  /// The file turned out to be a record: one for the list of those opened last.
  void opened(const QString& path);
  /// All that the file had is there. What is written to it later is followed.
  void finishedLoading(const QString& path);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  class OwnEnvironment;
  TarnReview(std::unique_ptr<OwnEnvironment> own, QWidget* parent);

  void create();
  QWidget* makeTools();
  QToolButton* addTool(QHBoxLayout& line, const char* name, const QString& text, const QString& toolTip);
  void addCompare(QHBoxLayout& line);
  /// A menu below a button. One of the button's own would wait for the choice.
  static void popUp(QToolButton& button, const QList<QAction*>& actions);
  QWidget* makePicture();
  void makePanes();
  void makeHandOn();
  void addKeys();
  void follow(unsigned changes);

  void connectSources();
  FileQuestion recordQuestion(const QString& title) const;
  void showProgress();
  bool hasRoomFor(const QString& path);
  void tellFailed(const QString& path, const QString& why, bool foreignTable);
  void askForeign(const QString& path);
  void layEventOver(const QString& path, std::size_t record);
  void showTitle();
  void offerDropped(const std::vector<std::string>& paths, const QPoint& place);

  std::unique_ptr<OwnEnvironment> own_;
  const ReviewEnvironment& environment_;
  ReviewScene scene_;
  CurveColumns columns_{scene_};
  ReviewSources* sources_ = nullptr;

  NoticeBar* notices_ = nullptr;
  RecordsBar* records_ = nullptr;
  ReviewPanes* panes_ = nullptr;
  OverviewStrip* overview_ = nullptr;
  ReviewGraphs* graphs_ = nullptr;
  QLabel* hint_ = nullptr;  ///< in its place, while there is no record
  DataList* data_ = nullptr;
  FiguresTable* figures_ = nullptr;
  MarkList* marks_ = nullptr;
  FindBar* find_ = nullptr;
  HandOn* handOn_ = nullptr;
  HelpPanel* help_ = nullptr;
  QToolButton* back_ = nullptr;
  QToolButton* fit_ = nullptr;
  QToolButton* showData_ = nullptr;
  QToolButton* showPanes_ = nullptr;
  QAction* layOver_ = nullptr;
  QAction* difference_ = nullptr;
};

}  // namespace tarnlog
