#include "apps/tarnlog/ConnectDialog.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "apps/tarnlog/LinkAdvice.h"
#include "host/vehicle/Vehicle.h"
#include "ui/common/Convert.h"
#include "ui/common/Guide.h"
#include "ui/common/Icons.h"
#include "ui/common/MessageTable.h"
#include "ui/common/Notice.h"

namespace tarnlog {

namespace {

constexpr const char* kReplay = "replay:";

QToolButton* browseButton(const char* name, const QString& toolTip) {
  auto* const button = new QToolButton;
  button->setObjectName(name);
  button->setIcon(tarnIcon("load"));
  button->setToolTip(toolTip);
  button->setAccessibleName(toolTip);
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

}  // namespace

ConnectDialog::ConnectDialog(const std::vector<CarConnection>& recent, const std::vector<LinkChoice>& choices,
                             AskFile askFile, const Guide& guide, QWidget* parent)
    : QDialog(parent),
      askFile_(std::move(askFile)),
      links_(new QListWidget),
      link_(new QLineEdit),
      browseLink_(browseButton("browseLink", tr("Choose a trace"))),
      askCar_(new QRadioButton(tr("&Ask the car which data it offers (OBD)"))),
      described_(new QRadioButton(tr("Vehicle &description:"))),
      vehicle_(new QLineEdit),
      browseVehicle_(browseButton("browseVehicle", tr("Choose a vehicle description"))),
      failure_(new Notice),
      messages_(new QPushButton(tr("&What the messages mean"))) {
  setObjectName("connectDialog");
  setWindowTitle(tr("Connect to a car"));
  links_->setObjectName("links");
  links_->setAccessibleName(tr("Ways to a car"));
  links_->setIconSize({24, 24});
  links_->setSpacing(2);
  links_->setTextElideMode(Qt::ElideMiddle);
  for (const CarConnection& connection : recent) addRecent(connection);
  for (const LinkChoice& choice : choices) addChoice(choice);

  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  connect_ = buttons->addButton(tr("&Connect"), QDialogButtonBox::ActionRole);
  connect_->setObjectName("connect");
  auto* const column = new QVBoxLayout(this);
  column->addWidget(new QLabel(tr("How is the car reached?")));
  column->addWidget(links_, 1);
  column->addLayout(createLinkRow());
  column->addSpacing(8);
  column->addLayout(createVehicleRows());
  column->addSpacing(8);
  column->addLayout(createFailureRow(guide));
  column->addWidget(buttons);
  resize(560, 480);

  connect(links_, &QListWidget::currentRowChanged, this, &ConnectDialog::choose);
  connect(links_, &QListWidget::itemActivated, connect_, [this] { connect_->click(); });
  connect(connect_, &QPushButton::clicked, this, &ConnectDialog::connectWanted);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect_->setDefault(true);
  links_->setCurrentRow(0);
  links_->setFocus();
}

QBoxLayout* ConnectDialog::createLinkRow() {
  auto* const label = new QLabel(tr("&Link:"));
  label->setBuddy(link_);
  link_->setObjectName("link");
  link_->setToolTip(
      tr("elm327:///dev/ttyUSB0?baud=38400 - an ELM327 adapter on USB or Bluetooth\n"
         "elm327://192.168.0.10:35000 - an ELM327 adapter on Wi-Fi\n"
         "doip://* or doip://192.168.1.10 - a car on Ethernet\n"
         "isotp://can0?tx=7E0&rx=7E8 - a CAN interface\n"
         "replay:drive.trace - a trace of an earlier drive"));
  auto* const row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(link_, 1);
  row->addWidget(browseLink_);
  connect(link_, &QLineEdit::textChanged, this, &ConnectDialog::showState);
  connect(browseLink_, &QToolButton::clicked, this, &ConnectDialog::browseLink);
  return row;
}

QBoxLayout* ConnectDialog::createFailureRow(const Guide& guide) {
  messages_->setObjectName("showMessages");
  messages_->setAutoDefault(false);
  messages_->setEnabled(bool(guide.messages));
  messages_->hide();
  connect(messages_, &QPushButton::clicked, this, [this, guide] { showMessageTable(guide, *this); });
  auto* const row = new QHBoxLayout;
  row->addWidget(failure_, 1);
  row->addWidget(messages_, 0, Qt::AlignTop);
  return row;
}

QBoxLayout* ConnectDialog::createVehicleRows() {
  askCar_->setObjectName("askCar");
  askCar_->setChecked(true);
  described_->setObjectName("described");
  vehicle_->setObjectName("vehicle");
  vehicle_->setAccessibleName(tr("Vehicle description"));
  auto* const row = new QHBoxLayout;
  row->addWidget(described_);
  row->addWidget(vehicle_, 1);
  row->addWidget(browseVehicle_);
  auto* const rows = new QVBoxLayout;
  rows->addWidget(new QLabel(tr("What is known about it?")));
  rows->addWidget(askCar_);
  rows->addLayout(row);
  connect(described_, &QRadioButton::toggled, this, &ConnectDialog::showState);
  connect(vehicle_, &QLineEdit::textChanged, this, &ConnectDialog::showState);
  connect(browseVehicle_, &QToolButton::clicked, this, &ConnectDialog::browseVehicle);
  return rows;
}

void ConnectDialog::addRecent(const CarConnection& connection) {
  const bool asked = connection.vehicle == host::kObdCar;
  const QString known = toQString(connection.name);
  const QString usual = asked ? tr("OBD car") : QFileInfo(toQString(connection.vehicle)).fileName();
  const QString car = known.isEmpty() ? usual : known;
  connections_.push_back(connection);
  new QListWidgetItem(tarnIcon("ecu"), tr("%1, as before").arg(car) + "\n" + toQString(connection.link),
                      links_);
}

void ConnectDialog::addChoice(const LinkChoice& choice) {
  const QString device = toQString(choice.url).section("//", 1);
  const auto text = [&]() -> QString {
    switch (choice.kind) {
      case LinkChoice::Kind::SerialAdapter:
        return choice.found ? tr("ELM327 adapter on %1").arg(device)
                            : tr("ELM327 adapter on USB or Bluetooth (none is plugged in)");
      case LinkChoice::Kind::NetworkAdapter:
        return tr("ELM327 adapter on Wi-Fi");
      case LinkChoice::Kind::Ethernet:
        return tr("Car on Ethernet (DoIP)");
      case LinkChoice::Kind::Can:
        return choice.found ? tr("CAN interface %1").arg(device) : tr("CAN interface (none is there)");
      case LinkChoice::Kind::Replay:
        return tr("Trace of an earlier drive");
    }
    return {};
  };
  connections_.push_back({{}, choice.url});
  new QListWidgetItem(tarnIcon("plug"), text() + "\n" + toQString(choice.url), links_);
}

/// A way that was not used before leaves alone what is known about the car.
void ConnectDialog::choose(int row) {
  if (row < 0) return;
  const CarConnection& chosen = connections_.at(static_cast<std::size_t>(row));
  link_->setText(toQString(chosen.link));
  if (chosen.vehicle == host::kObdCar) askCar_->setChecked(true);
  if (!chosen.vehicle.empty() && chosen.vehicle != host::kObdCar) {
    described_->setChecked(true);
    vehicle_->setText(toQString(chosen.vehicle));
  }
}

void ConnectDialog::showState() {
  const QString link = link_->text().trimmed();
  browseLink_->setVisible(link.startsWith(kReplay));
  vehicle_->setEnabled(described_->isChecked());
  browseVehicle_->setEnabled(described_->isChecked());
  connect_->setEnabled(!link.isEmpty() && link != kReplay &&
                       (askCar_->isChecked() || !vehicle_->text().trimmed().isEmpty()));
  setFailure({});
}

void ConnectDialog::browseLink() {
  askFile_(tr("Choose a trace"), link_->text().trimmed().mid(int(qstrlen(kReplay))),
           tr("Traces") + " (*.trace)|*.trace|" + tr("All files") + "|*.*",
           [dialog = QPointer(this)](const QString& file) {
             if (dialog != nullptr) dialog->link_->setText(kReplay + file);
           });
}

void ConnectDialog::browseVehicle() {
  askFile_(tr("Choose a vehicle description"), vehicle_->text().trimmed(),
           tr("Vehicles") + " (*.json)|*.json|" + tr("All files") + "|*.*",
           [dialog = QPointer(this)](const QString& file) {
             if (dialog != nullptr) dialog->vehicle_->setText(file);
           });
}

CarConnection ConnectDialog::connection() const {
  const std::string vehicle =
      askCar_->isChecked() ? std::string(host::kObdCar) : fromQString(vehicle_->text().trimmed());
  return {vehicle, fromQString(link_->text().trimmed())};
}

void ConnectDialog::setFailure(const QString& text) {
  const QString advice = LinkAdvice::on(text, connection());
  failure_->setText(advice.isEmpty() ? text : text + '\n' + advice);
  messages_->setVisible(!text.isEmpty() && messages_->isEnabled());
}

}  // namespace tarnlog
