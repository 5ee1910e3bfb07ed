#pragma once

#include <QDoubleSpinBox>
#include <QLocale>
#include <limits>
#include <optional>

class QAction;

namespace tarnlog {

/// Entry of a number with limits, in the widget's locale. Arrow keys step by `singleStep`, page keys by
/// `fastStep`. The entry is read as a whole when it is finished (Enter, leaving the field): a number beyond
/// the limits becomes the nearest one, and what is no number, or a fraction in a field without decimals, is
/// marked while it stands there and gives way to the value before it was typed. Unless keyboard tracking is
/// switched on, nothing that is typed counts earlier.
///
/// The other one of "." and "," is understood as the decimal separator where it is the only separator and
/// cannot be meant for grouping: 1,5 but not 1,500 where the point is the locale's own. Number pads have one
/// of the two only.
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
  /// The entry is marked as one that cannot be taken.
  bool refuses() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  /// The number that the whole entry says, whatever the limits; none when it says none.
  virtual std::optional<double> entered(const QString& text) const;

 private:
  void beginEntry();
  void finishEntry();
  void mark(bool refused);
  void moveBy(double difference);
  QLocale plainLocale() const;
  /// Without prefix and suffix.
  QString bare(QString text) const;
  QString withSeparator(QString number) const;
  bool mayBecomeNumber(const QString& text) const;

  QAction* refusal_;
  bool typing_ = false;
  double before_ = 0;  ///< the value when typing began
  double fastStep_ = 10;
  double lowestStep_ = -std::numeric_limits<double>::infinity();
  double highestStep_ = std::numeric_limits<double>::infinity();
};

}  // namespace tarnlog
