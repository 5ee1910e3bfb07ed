#pragma once

#include <QByteArray>
#include <QWidget>

class QAction;
class QSplitter;
class QTabWidget;

namespace tarnlog {

class SettingsStore;

/// Where the parts stand: the list of data beside the graphs, panes below both; in a narrow window the list
/// is one of the panes. Their sizes are those that they had the last time.
class ReviewPanes : public QWidget {
  Q_OBJECT
 public:
  /// Takes the list and the graphs over. The settings, where there are some, outlive it.
  ReviewPanes(QWidget& list, QWidget& graphs, SettingsStore* settings, QWidget* parent);

  void addPane(QWidget& pane, const QString& title);
  /// Without a record there is nothing to list.
  void setEmpty(bool empty);

  /// With check marks: they show and hide the list, and the panes.
  QAction& dataAction() { return *showData_; }
  QAction& panesAction() { return *showPanes_; }

  /// Shows the list or a pane, in front of others.
  void bring(QWidget& part);
  /// To the next of list, graphs and panes that is seen, or with -1 to the one before, in a circle.
  void moveFocus(int step);

 signals:
  /// Whether it became narrow, or wide again.
  void narrowed(bool narrow);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QAction* makeAction(const QString& text, const QString& toolTip);
  void placeData(bool narrow);
  void showParts();
  void restoreSizes();
  void storeSizes();

  QWidget& data_;
  QWidget& graphs_;
  SettingsStore* settings_;
  QSplitter* across_;
  QTabWidget* panes_;
  QSplitter* down_;
  QAction* showData_;
  QAction* showPanes_;
  bool empty_ = true;
  bool narrow_ = false;
  QByteArray wideSizes_;  ///< while it is narrow: of list and graphs before
};

}  // namespace tarnlog
