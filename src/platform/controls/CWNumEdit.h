#pragma once

#include <QDoubleSpinBox>

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
  /// Without trailing zeros.
  QString textFromValue(double value) const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  double fastStep_ = 10;
};

}  // namespace tarnlog
