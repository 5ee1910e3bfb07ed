#pragma once

#include <QLabel>
#include <QString>
#include <cstdint>

#include "platform/screen/Controls.h"

namespace tarnlog {

/// A lamp whose text is its caption and whose background its colour. What the colour says is told by a sign
/// as well, for those who do not see colours, and in words by the tool tip.
class Indicator : public QLabel {
  Q_OBJECT
 public:
  enum class Sign : std::uint8_t { None, Ring, HalfDisc, RingWithDot, Disc, Warning };

  explicit Indicator(const QString& name, QWidget* parent = nullptr);

  void setColour(Colour colour);
  /// The tool tip is kept in the words of assistive technology, too.
  void setMeaning(Sign sign, const QString& words);

  Colour colour() const { return colour_; }
  Sign sign() const { return sign_; }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int signSize() const;
  void paintSign(QPainter& painter, const QRectF& square) const;
  static void paintWarning(QPainter& painter, const QRectF& square);

  Colour colour_ = kButtonFace;
  Sign sign_ = Sign::None;
};

}  // namespace tarnlog
