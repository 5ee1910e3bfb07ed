#include "ui/common/Icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>
#include <utility>

/// The macro works outside of namespaces only.
static void loadDrawings() { Q_INIT_RESOURCE(icons); }

namespace tarnlog {

namespace {

/// Draws an SVG whose "currentColor" is the palette's text colour of the moment.
class PaletteIconEngine : public QIconEngine {
 public:
  explicit PaletteIconEngine(QByteArray svg) : svg_(std::move(svg)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText;
    QByteArray coloured = svg_;
    coloured.replace("currentColor", QApplication::palette().color(group, role).name().toLatin1());
    QSvgRenderer(coloured).render(painter, QRectF(rect));
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new PaletteIconEngine(svg_); }

 private:
  QByteArray svg_;
};

}  // namespace

QIcon tarnIcon(const QString& name) {
  loadDrawings();
  QFile file(":/tarnlog/" + name + ".svg");
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QIcon(new PaletteIconEngine(file.readAll()));
}

}  // namespace tarnlog
