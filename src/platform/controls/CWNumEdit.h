#pragma once

#include <QDoubleSpinBox>
#include <limits>

namespace tarnlog {

/// Entry of a number with limits, in the widget's locale. Arrow keys step by `singleStep`, page keys by
/// `fastStep`.
class CWNumEdit : public QDoubleSpinBox {
  Q_OBJECT
  Q_PROPERTY(double fastStep READ fastStep WRITE setFastStep)

 public:
  explicit CWNumEdit(QWidget* parent = nullptr);
  double fastStep() const { return fastStep_; }
  void setFastStep(double step) { fastStep_ = step; }
  /// Limits for stepping only: a step from between them stays there, and any value of the range can be typed.
  void setStepRange(double lowest, double highest);
  void stepBy(int steps) override;
  /// Without trailing zeros.
  QString textFromValue(double value) const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void moveBy(double difference);

  double fastStep_ = 10;
  double lowestStep_ = -std::numeric_limits<double>::infinity();
  double highestStep_ = std::numeric_limits<double>::infinity();
};

}  // namespace tarnlog
