#include "ui/review/ReviewPicture.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFontInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QSvgGenerator>
#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

#include "platform/base/TarnError.h"
#include "ui/common/Convert.h"
#include "ui/review/GraphSheet.h"
#include "ui/review/TimeAxis.h"

namespace tarnlog {
namespace {

constexpr int kMargin = 12;
constexpr int kGap = 6;    ///< between graphs
constexpr int kLines = 7;  ///< of text, that curves are high at least
constexpr QSize kLeast(200, 120);
constexpr int kMostHeight = 20'000;

struct Words {
  Q_DECLARE_TR_FUNCTIONS(ReviewPicture)
};

[[noreturn]] void fail(const QString& path, const QString& why) {
  const QString text =
      Words::tr("The picture %1 could not be written: %2").arg(QDir::toNativeSeparators(path), why);
  throw TarnError(1, "writePicture", fromQString(text));
}

/// Black on white, whatever the desktop's colours: pictures go into documents. A font in pixels looks the
/// same in both kinds of files.
ReviewLook lookOfPictures() {
  ReviewLook look;
  for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Window})
    look.palette.setColor(role, Qt::white);
  for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText})
    look.palette.setColor(role, Qt::black);
  look.font = QGuiApplication::font();
  look.font.setPixelSize(std::max(QFontInfo(look.font).pixelSize(), 11));
  return look;
}

QString titleOf(const ReviewScene& scene) {
  QStringList names;
  for (const LookedAtRecord& record : scene.records())
    names.append(names.isEmpty()
                     ? toQString(record.name)
                     : QStringLiteral("(%1) %2").arg(names.size() + 1).arg(toQString(record.name)));
  const QString date = beginningText(scene, ReviewLook().locale);
  return names.join(QStringLiteral(", ")) + (date.isEmpty() ? QString() : QStringLiteral(", ") + date);
}

int totalOf(const std::vector<int>& heights) { return std::accumulate(heights.begin(), heights.end(), 0); }

/// What each graph needs.
std::vector<int> leastHeights(const ReviewScene& scene, int width, const ReviewLook& look) {
  std::vector<int> heights;
  for (std::size_t graph = 0; graph < scene.graphs().size(); ++graph)
    heights.push_back(GraphSheet::leastHeight(scene, graph, width, look, false, kLines));
  return heights;
}

/// Title, time axis and gaps.
int heightAround(const ReviewScene& scene, const ReviewLook& look) {
  return 2 * kMargin + 3 * QFontMetrics(look.font).height() + static_cast<int>(scene.graphs().size()) * kGap;
}

int heightNeeded(const ReviewScene& scene, int width) {
  const ReviewLook look = lookOfPictures();
  return heightAround(scene, look) + totalOf(leastHeights(scene, width - 2 * kMargin, look));
}

/// Bars of states have what they need, the others share the rest.
std::vector<int> heights(const ReviewScene& scene, const QSize& room, const ReviewLook& look) {
  std::vector<int> result = leastHeights(scene, room.width(), look);
  const int needed = totalOf(result);
  if (needed > room.height()) {  // a picture cannot be as high as that
    for (int& each : result) each = static_cast<int>(std::int64_t{each} * room.height() / needed);
    return result;
  }
  const auto& graphs = scene.graphs();
  const auto bars = std::ranges::count(graphs, GraphKind::States, &ReviewGraph::kind);
  const auto sharing = std::max(static_cast<int>(graphs.size()) - static_cast<int>(bars), 1);
  for (std::size_t graph = 0; graph < result.size(); ++graph)
    if (graphs[graph].kind != GraphKind::States) result[graph] += (room.height() - needed) / sharing;
  return result;
}

/// Its plot area.
QRect paintGraph(QPainter& painter, const ReviewScene& scene, std::size_t graph, const QRect& place,
                 const ReviewLook& look, SeenRecords& seen) {
  GraphSheet sheet;
  sheet.layOut(scene, graph, place.size(), look, false);
  sheet.see(seen, sheet.plotArea().width());
  painter.save();
  painter.translate(place.topLeft());
  painter.setRenderHint(QPainter::Antialiasing);
  sheet.paintCurves(painter);
  painter.setRenderHint(QPainter::Antialiasing, false);
  sheet.paintAround(painter, {}, false);
  sheet.paintOver(painter);
  painter.restore();
  return sheet.plotArea().translated(place.topLeft());
}

void paintPicture(QPainter& painter, const ReviewScene& scene, const QSize& size) {
  const ReviewLook look = lookOfPictures();
  const int line = QFontMetrics(look.font).height();
  const QRect all = QRect(QPoint(), size).adjusted(kMargin, kMargin, -kMargin, -kMargin);
  painter.fillRect(QRect(QPoint(), size), look.base());
  QFont bold = look.font;
  bold.setBold(true);
  painter.setFont(bold);
  painter.setPen(look.palette.color(QPalette::WindowText));
  painter.drawText(QRect(all.left(), all.top(), all.width(), line), Qt::AlignLeft | Qt::AlignVCenter,
                   QFontMetrics(bold).elidedText(titleOf(scene), Qt::ElideMiddle, all.width()));
  const int top = all.top() + line + kGap;
  const QSize room(all.width(), size.height() - heightAround(scene, look));
  SeenRecords seen;
  QRect place(all.left(), top, all.width(), 0);
  QRect area = all;
  for (std::size_t graph = 0; const int height : heights(scene, room, look)) {
    place.setHeight(height);
    area = paintGraph(painter, scene, graph, place, look, seen);
    place.moveTop(place.bottom() + 1 + kGap);
    ++graph;
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
  area.moveBottom(place.top() - kGap - 1);
  TimeAxis::paint(painter, scene, area, look);
}

QByteArray svgOf(const ReviewScene& scene, const QSize& size) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setSize(size);
  generator.setViewBox(QRect(QPoint(), size));
  generator.setTitle(titleOf(scene));
  QPainter painter(&generator);
  paintPicture(painter, scene, size);
  painter.end();
  return bytes;
}

QByteArray pngOf(const ReviewScene& scene, const QSize& size) {
  QImage image(size, QImage::Format_RGB32);
  QPainter painter(&image);
  paintPicture(painter, scene, size);
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return bytes;
}

}  // namespace

void writePicture(const ReviewScene& scene, const QString& path, QSize size) {
  size = size.expandedTo(kLeast);
  const bool svg = path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive);
  if (!svg && !path.endsWith(QLatin1String(".png"), Qt::CaseInsensitive))
    fail(path, Words::tr("its name must end with .svg or .png"));
  size.setHeight(
      std::clamp(heightNeeded(scene, size.width()), size.height(), std::max(size.height(), kMostHeight)));
  const QByteArray bytes = svg ? svgOf(scene, size) : pngOf(scene, size);
  QSaveFile file(path);
  const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
  if (!written) fail(path, file.errorString());
}

}  // namespace tarnlog
