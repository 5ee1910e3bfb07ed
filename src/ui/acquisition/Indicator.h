#pragma once

#include <QString>
#include <QWidget>
#include <cstdint>

#include "platform/screen/Controls.h"

namespace tarnlog {

/// A lamp with a caption. What the colour says is told by a sign as well, for those who do not see colours,
/// and in words by the tool tip.
class Indicator : public QWidget {
  Q_OBJECT
 public:
  enum class Sign : std::uint8_t { None, Ring, HalfDisc, RingWithDot, Disc };

  explicit Indicator(const QString& name, QWidget* parent = nullptr);

  void setCaption(const QString& caption);
  void setColour(Colour colour);
  /// The tool tip is kept in the words of assistive technology, too.
  void setMeaning(Sign sign, const QString& words);

  const QString& caption() const { return caption_; }
  Colour colour() const { return colour_; }
  Sign sign() const { return sign_; }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int signSize() const;
  void paintSign(QPainter& painter, const QRectF& square) const;

  QString caption_;
  Colour colour_ = kButtonFace;
  Sign sign_ = Sign::None;
};

}  // namespace tarnlog
