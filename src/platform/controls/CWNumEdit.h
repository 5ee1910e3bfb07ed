#pragma once

#include <QDoubleSpinBox>
#include <QLocale>
#include <limits>

namespace tarnlog {

/// Entry of a number with limits, in the widget's locale. Arrow keys step by `singleStep`, page keys by
/// `fastStep`. A number beyond the limits becomes the nearest one when it is finished (Enter, leaving the
/// field), and what is no number gives way to the value before; unless keyboard tracking is switched on,
/// nothing that is typed counts earlier. A point is taken as the locale's decimal separator: number pads have
/// no other.
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
  /// As many decimals as the value needs; very large values with an exponent.
  QString textFromValue(double value) const override;
  double valueFromText(const QString& text) const override;
  QValidator::State validate(QString& text, int& position) const override;
  void fixup(QString& text) const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void moveBy(double difference);
  QLocale plainLocale() const;
  /// Without prefix and suffix.
  QString numberIn(QString text) const;

  double fastStep_ = 10;
  double lowestStep_ = -std::numeric_limits<double>::infinity();
  double highestStep_ = std::numeric_limits<double>::infinity();
};

}  // namespace tarnlog
