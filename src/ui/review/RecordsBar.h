#pragma once

#include <QWidget>
#include <cstddef>
#include <vector>

#include "platform/text/UserLocale.h"
#include "ui/review/RecordAlignment.h"
#include "ui/review/ReviewScene.h"

class QLabel;
class QProgressBar;
class QVBoxLayout;

namespace tarnlog {

class RecordLine;

/// The records that are looked at, a line each: which recording of the file, how it is laid over the first
/// one, and the way to take it away. Below them, how far reading has come.
class RecordsBar : public QWidget {
  Q_OBJECT
 public:
  RecordsBar(ReviewScene& scene, const UserLocale& locale, QWidget* parent = nullptr);

  void follow(unsigned changes);
  /// A file is being read: `part` is 0 to 1.
  void showProgress(const QString& name, double part);
  void hideProgress();

 signals:
  void removeWanted(std::size_t record);
  void recordingWanted(std::size_t record, std::size_t recording);
  void cancelWanted();

 private:
  QWidget* makeProgress();
  void buildLines();
  bool sameLines() const;

  ReviewScene& scene_;
  UserLocale locale_;
  QVBoxLayout* lines_;
  std::vector<RecordLine*> shown_;
  QWidget* progress_ = nullptr;
  QLabel* reading_ = nullptr;
  QProgressBar* part_ = nullptr;
};

}  // namespace tarnlog
