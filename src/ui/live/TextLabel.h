#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QWidget>
#include <optional>
#include <string>
#include <string_view>

#include "platform/controls/PaintPacer.h"
#include "platform/screen/Controls.h"

namespace tarnlog {

/// A label of the live display. A caption wraps and a value stands on one line; what does not fit is elided
/// and shown by the tool tip. The two labels of a curve may lie upon one another: the caption keeps clear of
/// its value, and where no line of it is left the value's line shows both.
class TextLabel : public QWidget {
  Q_OBJECT
 public:
  enum class Role { Caption, Value };

  TextLabel(Role role, QWidget* parent);

  /// Allocates nothing once it has shown a text of that length.
  void setText(std::string_view text);
  /// What is shown; while frozen not what was set last.
  QString text() const;
  /// A value with the caption that it belongs to.
  QString spokenText() const;
  void setTextColour(Colour colour);
  void setBackColour(Colour colour);
  void setBorder(bool border);
  /// Without one the label takes the desktop's font at the size of its lines.
  void setLabelFont(const QFont& font);
  void setFrozen(bool frozen);
  /// An old text is grey.
  void setOld(bool old);
  void restyle();

  /// Of the text in the label's width: a caption's lines, or one.
  int naturalHeight(int width) const;

  /// The other label of the same curve or block; null when there is none.
  void setPartner(const TextLabel* partner) { partner_ = partner; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  /// The label's font in a room of this height, and its measures.
  struct Fitted {
    int height = -1;
    QFont font;
    int ascent = 0;
    int line = 0;
    int widest = 1;
  };

  /// A text as it was drawn last: what does not change is not measured again.
  struct Elided {
    QString text;
    int room = -1;
    QString shown;
  };

  const Fitted& fitted(int height) const;
  const QString& elided(const QString& text, int room, const Fitted& fit) const;
  bool covers(const TextLabel* other) const;
  int captionRoom() const;
  bool squeezed() const;
  QRect valueStrip() const;
  QRect captionArea() const;
  void paintCaption(QPainter& painter) const;
  void paintValue(QPainter& painter) const;
  void drawLine(QPainter& painter, const QRect& room, const QString& text) const;
  QFont usualFont() const;
  QColor background() const;
  QColor textColour() const;
  QString tip() const;

  Role role_;
  std::string text_;
  std::optional<QString> frozen_;
  std::optional<Colour> textColour_;
  std::optional<Colour> backColour_;
  bool border_ = false;
  bool old_ = false;
  std::optional<QFont> font_;
  QColor ink_;
  mutable Fitted fitted_;
  mutable Elided elided_;
  const TextLabel* partner_ = nullptr;
  PaintPacer pacer_{this, PaintPacer::Pace::Texts};
};

}  // namespace tarnlog
