#include "ui/common/Icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <utility>

/// The macro works outside of namespaces only.
static void loadDrawings() { Q_INIT_RESOURCE(icons); }

namespace tarnlog {

namespace {

/// Draws an SVG whose "currentColor" is the palette's text colour of the moment. What was drawn is kept: a
/// list paints the same icon in every row.
class PaletteIconEngine : public QIconEngine {
 public:
  PaletteIconEngine(QString name, QByteArray svg) : name_(std::move(name)), svg_(std::move(svg)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const qreal ratio = painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect, pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state));
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override {
    const QString colour = colourName(mode);
    const QString key =
        QString("tarnlog/%1/%2x%3/%4").arg(name_).arg(size.width()).arg(size.height()).arg(colour);
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) return picture;
    picture = QPixmap(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QByteArray coloured = svg_;
    QSvgRenderer(coloured.replace("currentColor", colour.toLatin1())).render(&painter);
    painter.end();
    QPixmapCache::insert(key, picture);
    return picture;
  }

  QIconEngine* clone() const override { return new PaletteIconEngine(name_, svg_); }

 private:
  static QString colourName(QIcon::Mode mode) {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText;
    return QApplication::palette().color(group, role).name();
  }

  QString name_;
  QByteArray svg_;
};

}  // namespace

QIcon tarnIcon(const QString& name) {
  loadDrawings();
  QFile file(":/tarnlog/" + name + ".svg");
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QIcon(new PaletteIconEngine(name, file.readAll()));
}

}  // namespace tarnlog
