#pragma once

#include <QWidget>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/text/UserLocale.h"
#include "ui/review/RecordAlignment.h"
#include "ui/review/ReviewScene.h"

class QComboBox;
class QDoubleSpinBox;
class QHBoxLayout;

namespace tarnlog {

/// One of the records that are looked at. The first one gives the times; the others are laid over it.
class RecordLine : public QWidget {
  Q_OBJECT
 public:
  RecordLine(ReviewScene& scene, std::size_t position, const UserLocale& locale, QWidget* parent = nullptr);

  /// Offset and alignments, as they are in the scene now.
  void refresh();
  /// What it was made for.
  const std::string& record() const { return name_; }
  std::size_t recording() const { return recording_; }
  std::size_t recordings() const { return recordings_; }

 signals:
  void removeWanted();
  void recordingWanted(std::size_t recording);

 private:
  void addName(QHBoxLayout& line);
  void addRecordings(QHBoxLayout& line);
  void addAlignment(QHBoxLayout& line);
  void addRemove(QHBoxLayout& line);
  void align(int entry);
  QString alignmentText(const RecordAlignment& alignment) const;
  const LookedAtRecord& lookedAt() const { return scene_.records()[position_]; }

  ReviewScene& scene_;
  std::size_t position_;
  UserLocale locale_;
  std::string name_;
  std::size_t recording_;
  std::size_t recordings_;
  std::vector<RecordAlignment> alignments_;
  QComboBox* aligned_ = nullptr;      ///< of all but the first
  QDoubleSpinBox* offset_ = nullptr;  ///< the same
};

}  // namespace tarnlog
