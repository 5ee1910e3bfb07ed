#pragma once

#include <QString>
#include <functional>

#include "ui/common/ElidedLabel.h"

namespace tarnlog {

/// The path of the newest record file. Where records can be looked at, a click on it does. It never takes the
/// focus: that belongs to the hand on the space bar.
class RecordLabel : public ElidedLabel {
  Q_OBJECT
 public:
  using LookAt = std::function<void(const QString& path)>;

  explicit RecordLabel(QWidget* parent = nullptr) : ElidedLabel(parent) {}

  void setLookAt(LookAt lookAt) { lookAt_ = std::move(lookAt); }
  void setPath(const QString& path);
  /// In place of a path.
  void setNotice(const QString& text);

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void present(const QString& text, bool isLink);

  LookAt lookAt_;
  QString path_;
};

}  // namespace tarnlog
