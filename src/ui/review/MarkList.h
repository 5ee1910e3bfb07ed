#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "platform/text/UserLocale.h"
#include "ui/review/MarkRows.h"
#include "ui/review/ReviewScene.h"

class QPushButton;

namespace tarnlog {

class HintedTreeView;
class MarkListModel;

/// The marks of the records: a click or Enter brings one into the middle, with the readout on it. The file of
/// an event can be laid over its record.
class MarkList : public QWidget {
  Q_OBJECT
 public:
  MarkList(ReviewScene& scene, const UserLocale& locale, QWidget* parent = nullptr);

  /// After the scene told of these changes. `paths` are the files of its records.
  void follow(unsigned changes, const std::vector<std::string>& paths);

 signals:
  /// The file of an event of this record is to be seen over it.
  void eventFileWanted(const QString& path, std::size_t record);

 private:
  void jump();
  void showButton();
  QString eventFile() const;
  const MarkRows::Row* current() const;

  ReviewScene& scene_;
  MarkRows rows_;
  MarkListModel* model_;
  HintedTreeView* list_;
  QPushButton* open_;
  std::vector<std::string> paths_;
};

}  // namespace tarnlog
