#pragma once

#include <QTimer>
#include <QWidget>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "acquisition/AcqScreen.h"
#include "acquisition/TarnAcq.h"
#include "ui/acquisition/RecordingMarks.h"
#include "ui/common/Guide.h"

class QLabel;
class QShortcut;
class QStatusBar;

namespace tarnlog {

class AcqCorner;
class AcqHeader;
class ConnectionWatch;
class HelpPanel;
class HotKeys;
class ListFilter;
class RecordLabel;
class ScrolledGraphs;
class SettingsStore;
class TabStrip;
class ValueListModel;
class ValueListView;

/// The acquisition as its user sees it: indicators, buttons, log, status bar, and the values as a list or as
/// graphs. Owns the `TarnAcq` that it shows.
///
/// Hiding the view ends the acquisition (a minimised window does not hide it); destroying it ends it and
/// closes its files. It must not be destroyed while a tick runs, that is from within an event that the host
/// lets in while it waits for the vehicle, and nothing on it may wait there in a loop of its own.
class AcqView : public QWidget, public AcqScreen {
  Q_OBJECT
 public:
  /// What it needs, and the session, outlive the view. In the settings it keeps how its user wants values
  /// shown; without them it forgets that at its end.
  explicit AcqView(AcqEnvironment environment, SettingsStore* settings = nullptr, QWidget* parent = nullptr);
  ~AcqView() override;

  TarnAcq& acq() { return *acq_; }

  /// Shows the values of this moment until further notice; the recorder goes on.
  void setPaused(bool paused);
  bool paused() const { return paused_; }

  /// For the help, before it is shown first.
  void setGuide(const Guide& guide) { guide_ = guide; }
  /// A click on a record file's path calls this with it.
  void setLookAtRecord(std::function<void(const std::string& path)> lookAt);
  void toggleHelp();

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

  void setState(AcquisitionState state) override;
  void setRecording(RecordingFact fact) override;
  void setRecordPath(std::string_view path) override;
  void setElapsed(std::int64_t milliseconds) override;
  void setEventNumber(std::int32_t number) override;
  void setEventProgress(EventProgress progress) override;
  void setOpenFailure(OpenFailure failure, std::string_view reason) override;
  void setWriteFailing(bool failing) override;
  void clearLog() override;
  void removeLogLine(int position) override;
  void appendLogLine(std::string_view line) override;
  void rebuildValueColumns() override;
  void clearValueRows() override;
  void addValueRow(std::string_view text, std::string_view unit) override;
  void setValueText(int row, std::string_view text) override;
  void setValueExtremes(int row, std::string_view least, std::string_view greatest) override;
  GraphArea* graphArea() override;
  void focusStartStop() override;
  void beep() override;

 signals:
  /// Start, stop or event was asked for while an acquisition runs but no values are polled: it has no effect.
  void pressedInVain();
  /// The acquisition has entered another state.
  void stateEntered();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void makeStatusBar();
  void makeValues(SettingsStore* settings);
  void connectList();
  void orderTabs();
  void connectControls();
  void addShortcuts();
  QShortcut* addShortcut(int key);
  void addLookBackKeys();

  void layOut();
  void placeCorner();
  void enterFilter();
  void showTab(const QString& key);
  void toggleFullScreen();
  void askForMenu();
  void answerPress();
  void addMark(const std::optional<RecordingMarks::Mark>& mark);
  void enableKeys();
  void showWindow();
  void showAge(qint64 seconds);

  std::unique_ptr<TarnAcq> acq_;
  HotKeys* keys_ = nullptr;
  ConnectionWatch* watch_ = nullptr;

  std::unique_ptr<AcqHeader> header_;
  QStatusBar* statusBar_ = nullptr;
  RecordLabel* recordPanel_ = nullptr;
  QLabel* acqTimePanel_ = nullptr;
  TabStrip* tabs_ = nullptr;
  ValueListModel* values_ = nullptr;
  ValueListView* valueList_ = nullptr;
  ScrolledGraphs* graphs_ = nullptr;
  ListFilter* filter_ = nullptr;
  std::unique_ptr<AcqCorner> corner_;
  Guide guide_;
  HelpPanel* help_ = nullptr;
  QShortcut* leaveFullScreen_ = nullptr;
  std::array<QShortcut*, 2> pageKeys_{};
  std::vector<QShortcut*> lookBackKeys_;
  QTimer windowTimer_;
  RecordingMarks marks_;
  char decimalSeparator_;
  bool paused_ = false;
};

}  // namespace tarnlog
