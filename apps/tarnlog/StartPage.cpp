#include "apps/tarnlog/StartPage.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QFont>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

#include "host/vehicle/Vehicle.h"
#include "ui/common/Convert.h"
#include "ui/common/Icons.h"

namespace tarnlog {

namespace {

constexpr int kWidth = 560;
constexpr int kPath = Qt::UserRole;
constexpr int kLink = Qt::UserRole + 1;

QLabel* heading(const QString& text) {
  auto* const label = new QLabel(text);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * 1.6);
  label->setFont(font);
  return label;
}

QStringList filesOf(const QMimeData& data) {
  QStringList paths;
  for (const QUrl& url : data.urls())
    if (url.isLocalFile()) paths << url.toLocalFile();
  return paths;
}

}  // namespace

StartPage::StartPage(QWidget* parent)
    : QWidget(parent),
      vehicles_(new QListWidget),
      car_(new QPushButton(tarnIcon("plug"), tr("&Connect to a car..."))),
      other_(new QPushButton(tarnIcon("load"), tr("&Open vehicle..."))),
      record_(new QPushButton(tr("&Look at a record..."))) {
  setAcceptDrops(true);
  car_->setObjectName("connectCar");
  other_->setObjectName("otherVehicle");
  record_->setObjectName("lookAtRecord");
  vehicles_->setObjectName("vehicles");
  vehicles_->setAccessibleName(tr("Vehicles"));
  vehicles_->setIconSize({24, 24});
  vehicles_->setSpacing(2);
  vehicles_->setTextElideMode(Qt::ElideMiddle);
  auto* const hint = new QLabel(tr(
      "A vehicle description tells which control units a vehicle has and what they can be asked. It can be "
      "dropped here, and so can a configuration, a record or a trace."));
  hint->setWordWrap(true);

  auto* const page = new QWidget;
  auto* const column = new QVBoxLayout(page);
  column->setSpacing(12);
  column->addStretch(1);
  column->addWidget(heading(tr("Choose a vehicle")));
  column->addWidget(hint);
  column->addWidget(vehicles_, 4);
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(car_);
  buttons->addWidget(other_);
  buttons->addWidget(record_);
  buttons->addStretch();
  column->addLayout(buttons);
  column->addStretch(1);
  page->setMaximumWidth(std::max(kWidth, column->minimumSize().width()));  // some languages need more
  auto* const row = new QHBoxLayout(this);
  row->addStretch(1);
  row->addWidget(page, 100);
  row->addStretch(1);

  connect(vehicles_, &QListWidget::itemActivated, this,
          [this](const QListWidgetItem* item) { choose(*item); });
  connect(car_, &QPushButton::clicked, this, &StartPage::carWanted);
  connect(other_, &QPushButton::clicked, this, &StartPage::otherVehicleWanted);
  connect(record_, &QPushButton::clicked, this, &StartPage::recordWanted);
}

void StartPage::setVehicles(const std::vector<CarConnection>& connections,
                            const std::vector<std::string>& recent,
                            const std::vector<std::string>& examples) {
  vehicles_->clear();
  for (const CarConnection& connection : connections) addConnection(connection);
  for (const std::string& path : recent) addVehicle(toQString(path), false);
  for (const std::string& path : examples)
    if (std::find(recent.begin(), recent.end(), path) == recent.end()) addVehicle(toQString(path), true);
  vehicles_->setVisible(vehicles_->count() > 0);
  vehicles_->setCurrentRow(0);
  QWidget* const first = vehicles_->count() > 0 ? static_cast<QWidget*>(vehicles_) : car_;
  first->setFocus();
}

HelpPage StartPage::helpPage() {
  return {tr("Keys of the first page"),
          {
              {tr("Up, Down, Enter"), tr("Choose and open a vehicle")},
              {tr("Alt+C"), tr("Connect to a car")},
              {tr("Alt+O, Ctrl+Shift+O"), tr("Open vehicle: a description of one")},
              {tr("Alt+L"), tr("Look at a record that was made")},
              {tr("Ctrl+O"), tr("Open configuration: it waits for the vehicle")},
              {tr("Alt+F, Alt+H"), tr("The menus File and Help")},
              {tr("Ctrl+Q"), tr("Quit")},
          }};
}

void StartPage::dragEnterEvent(QDragEnterEvent* event) {
  if (!filesOf(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void StartPage::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  emit filesDropped(filesOf(*event->mimeData()));
}

void StartPage::choose(const QListWidgetItem& item) {
  const QString path = item.data(kPath).toString();
  const QString link = item.data(kLink).toString();
  if (link.isEmpty())
    emit vehicleChosen(path);
  else
    emit connectionChosen({fromQString(path), fromQString(link)});
}

void StartPage::addConnection(const CarConnection& connection) {
  const QString path = toQString(connection.vehicle);
  const QString link = toQString(connection.link);
  const bool asked = connection.vehicle == host::kObdCar;
  const QString known = toQString(connection.name);
  const QString usual = asked ? tr("OBD car") : QFileInfo(path).fileName().section('.', 0, 0);
  const QString name = known.isEmpty() ? usual : known;
  auto* const item = new QListWidgetItem(tarnIcon("plug"), name + "\n" + link, vehicles_);
  item->setData(kPath, path);
  item->setData(kLink, link);
  item->setToolTip(asked ? link : path + "\n" + link);
}

void StartPage::addVehicle(const QString& path, bool example) {
  const QFileInfo file(path);
  const QString name = file.fileName().section('.', 0, 0);
  const QString place = example ? tr("simulated example") : QDir::toNativeSeparators(file.path());
  auto* const item = new QListWidgetItem(tarnIcon("ecu"), name + "\n" + place, vehicles_);
  item->setData(kPath, path);
  item->setToolTip(path);
}

}  // namespace tarnlog
