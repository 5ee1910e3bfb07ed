#include "ui/live/TextLabel.h"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTextDocument>
#include <QTextLayout>
#include <QToolTip>
#include <algorithm>

#include "platform/controls/AxisTexts.h"
#include "platform/controls/Readable.h"
#include "ui/common/Convert.h"
#include "ui/live/LabelAccess.h"
#include "ui/live/LabelStyle.h"

namespace tarnlog {
namespace {

constexpr int kPadding = 3;
constexpr int kCellPoints = 10;
constexpr int kStep = 12;       ///< pixels by which a value takes room, so that it stands still
constexpr int kLeastStrip = 6;  ///< pixels; lower texts cannot be read

/// Units such as km/h stay in one piece when a caption wraps.
QString unbroken(QString text) {
  constexpr QChar kWordJoiner(0x2060);
  return text.replace(QLatin1Char('/'), QString(QLatin1Char('/')) + kWordJoiner);
}

/// Tool tips take a text that looks like HTML for HTML; a caption or value never is.
QString plainTip(const QString& text) {
  return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

/// With its unit, "(km/h)" at the end, as long as that leaves half of the room to the name.
QString elidedName(const QString& text, const QFontMetrics& metrics, int room) {
  const qsizetype unit = text.endsWith(QLatin1Char(')')) ? text.lastIndexOf(QLatin1Char('(')) : -1;
  const int wide = unit < 0 ? 0 : metrics.horizontalAdvance(text.mid(unit));
  if (unit <= 0 || wide > room / 2) return metrics.elidedText(text, Qt::ElideRight, room);
  const QString name = metrics.elidedText(text.left(unit).trimmed(), Qt::ElideRight, room - wide);
  return metrics.horizontalAdvance(text) <= room ? text : name + text.mid(unit);
}

/// Whole lines only; the last one that fits ends in an ellipsis when there is more.
void drawWrapped(QPainter& painter, const QRect& room, const QString& text) {
  const int line = painter.fontMetrics().height();
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  QTextLayout layout(text, painter.font());
  layout.setTextOption(option);
  layout.beginLayout();
  for (int top = room.top(); top + line <= room.bottom() + 1; top += line) {
    QTextLine part = layout.createLine();
    if (!part.isValid()) break;
    part.setLineWidth(room.width());
    const bool last = top + 2 * line > room.bottom() + 1;
    const QString shown = last ? elidedName(text.mid(part.textStart()), painter.fontMetrics(), room.width())
                               : text.mid(part.textStart(), part.textLength()).trimmed();
    painter.drawText(room.left(), top, room.width(), line, Qt::AlignLeft | Qt::AlignVCenter, shown);
  }
  layout.endLayout();
}

}  // namespace

TextLabel::TextLabel(Role role, QWidget* parent) : QWidget(parent), role_(role) {
  installLabelAccess();
  restyle();
}

void TextLabel::setText(std::string_view text) {
  if (text_ == text) return;
  text_ = text;
  if (!frozen_) pacer_.request(rect());
}

QString TextLabel::text() const { return frozen_ ? *frozen_ : toQString(text_); }

QString TextLabel::spokenText() const {
  if (role_ == Role::Caption || partner_ == nullptr) return text();
  return partner_->text() + QStringLiteral(": ") + text();
}

void TextLabel::setTextColour(Colour colour) {
  textColour_ = colour;
  restyle();
}

void TextLabel::setBackColour(Colour colour) {
  backColour_ = colour;
  restyle();
}

void TextLabel::setBorder(bool border) {
  border_ = border;
  update();
}

void TextLabel::setLabelFont(const QFont& font) {
  font_ = font;
  restyle();
}

void TextLabel::setFrozen(bool frozen) {
  frozen_ = frozen ? std::optional(text()) : std::nullopt;
  update();
}

void TextLabel::setOld(bool old) {
  old_ = old;
  ink_ = textColour();
  update();
}

/// Values are what a passenger looks for: bold beside a graph or bar, large in a cell of their own.
QFont TextLabel::usualFont() const {
  const QFont desktop = parentWidget()->font();
  if (backColour_) return screenFont(desktop, "MS Sans Serif", kCellPoints, false, false);
  QFont font = fittedFont(desktop, kLineHeight);
  font.setBold(role_ == Role::Value);
  return font;
}

void TextLabel::restyle() {
  setFont(font_ ? *font_ : usualFont());
  ink_ = textColour();
  fitted_ = {};
  elided_ = {};
  update();
}

/// Values are painted at every picture, so what depends on the room alone is kept.
const TextLabel::Fitted& TextLabel::fitted(int height) const {
  if (fitted_.height != height) {
    const QFont font = fittedFont(this->font(), height);
    const QFontMetrics metrics(font);
    elided_ = {};
    fitted_ = {height, font, metrics.ascent(), metrics.height(), metrics.horizontalAdvance(QLatin1Char('W'))};
  }
  return fitted_;
}

int TextLabel::naturalHeight(int width) const {
  const int line = fontMetrics().height();
  if (role_ == Role::Value) return line;
  const QRect room(0, 0, std::max(width - 2 * kPadding, 1), QWIDGETSIZE_MAX);
  return std::max(fontMetrics().boundingRect(room, Qt::TextWordWrap, unbroken(text())).height(), line);
}

bool TextLabel::covers(const TextLabel* other) const {
  return other != nullptr && other->isVisibleTo(parentWidget()) && other->x() < x() + width() &&
         x() < other->x() + other->width();
}

/// Height that a caption has for itself.
int TextLabel::captionRoom() const { return covers(partner_) ? partner_->y() - y() : height(); }

/// No line of this caption is left above its value. A pixel less than a line is enough for a smaller font.
bool TextLabel::squeezed() const { return covers(partner_) && captionRoom() + 1 < fontMetrics().height(); }

/// Values that share a small height begin where their captions do, and the first one not above its graph.
QRect TextLabel::valueStrip() const {
  if (!covers(partner_)) return rect();
  return rect().adjusted(0, std::clamp(partner_->y() - y(), 0, height()), 0, 0);
}

QColor TextLabel::background() const {
  return backColour_ ? cellColour(palette(), toQColor(*backColour_, palette()))
                     : palette().color(QPalette::Window);
}

QColor TextLabel::textColour() const {
  if (old_)
    return readable(blend(background(), palette().color(QPalette::WindowText), 0.5F), background(),
                    kTextContrast);
  if (!textColour_) return palette().color(QPalette::WindowText);
  const QColor colour = toQColor(*textColour_, palette());
  return readable(backColour_ ? cellColour(palette(), colour) : colour, background(), kTextContrast);
}

void TextLabel::paintEvent(QPaintEvent* event) {
  // Every new value asks for the pixels that it shares with its caption, where that has no text.
  const bool ruled = role_ == Role::Caption && !backColour_;
  if (ruled && !border_ && event->rect().top() > 0 && !captionArea().intersects(event->rect())) return;
  QPainter painter(this);
  // Names and values of neighbouring curves are kept apart.
  if (ruled)
    painter.fillRect(0, 0, width(), 1, blend(background(), palette().color(QPalette::WindowText), 0.2F));
  if (backColour_) painter.fillRect(rect(), background());
  painter.setPen(ink_);
  if (role_ == Role::Caption)
    paintCaption(painter);
  else
    paintValue(painter);
  if (!border_) return;
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

/// Empty when the value's line shows both.
QRect TextLabel::captionArea() const {
  if (squeezed()) return {};
  QRect area = rect().adjusted(kPadding, 0, -kPadding, 0);
  area.setHeight(std::min(height(), captionRoom()));
  return area;
}

void TextLabel::paintCaption(QPainter& painter) const {
  QRect room = captionArea();
  if (room.isEmpty()) return;
  const Fitted& fit = fitted(room.height());
  painter.setFont(fit.font);
  if (backColour_ && room.height() < 2 * fit.line) room.adjust(0, (room.height() - fit.line) / 2, 0, 0);
  drawWrapped(painter, room, unbroken(text()));
}

void TextLabel::paintValue(QPainter& painter) const {
  QRect room = valueStrip().adjusted(kPadding, 0, -kPadding, 0);
  if (room.height() < kLeastStrip) return;
  const QString value = text();
  if (partner_ == nullptr || !partner_->squeezed()) return drawLine(painter, room, value);
  // One pixel more than measured: measures are rounded. Enough is left to see what the value is of.
  const int measured = numberWidth(value, QFontMetrics(fitted(room.height()).font)) + 1;
  const int wide = std::min((measured + kStep - 1) / kStep * kStep, room.width() * 3 / 5);
  drawLine(painter, room.adjusted(room.width() - wide, 0, 0, 0), value);
  partner_->drawLine(painter, room.adjusted(0, 0, -wide - 2 * kPadding, 0), partner_->text());
}

/// From the left, elided when it is too long.
void TextLabel::drawLine(QPainter& painter, const QRect& room, const QString& text) const {
  const Fitted& fit = fitted(room.height());
  painter.setFont(fit.font);
  const int baseline = room.top() + (room.height() - fit.line) / 2 + fit.ascent;
  painter.drawText(room.left(), baseline, elided(text, room.width(), fit));
}

const QString& TextLabel::elided(const QString& text, int room, const Fitted& fit) const {
  if (text.size() * fit.widest <= room) return text;
  if (elided_.text != text || elided_.room != room)
    elided_ = {text, room, elidedName(text, QFontMetrics(fit.font), room)};
  return elided_.shown;
}

/// The tip that was set, else the texts that are shown here: they may be elided.
QString TextLabel::tip() const {
  if (!toolTip().trimmed().isEmpty()) return toolTip();
  return spokenText();
}

void TextLabel::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) ink_ = textColour();
  QWidget::changeEvent(event);
}

bool TextLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainTip(tip()), this);
  return true;
}

}  // namespace tarnlog
