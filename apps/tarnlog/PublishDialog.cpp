#include "apps/tarnlog/PublishDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>
#include <exception>

#include "apps/common/PublishOptions.h"
#include "apps/tarnlog/LivePublishing.h"
#include "ui/common/Convert.h"
#include "ui/common/Dialogs.h"
#include "ui/common/Icons.h"
#include "ui/common/Notice.h"

namespace tarnlog {

PublishDialog::PublishDialog(SettingsStore& settings, Dialogs& dialogs, QWidget* parent)
    : QDialog(parent),
      settings_(settings),
      dialogs_(dialogs),
      to_(new QLineEdit),
      access_(new QLineEdit),
      failure_(new Notice) {
  setObjectName("publishDialog");
  setWindowTitle(tr("Publish values"));
  const PublishChoice choice(settings);
  to_->setObjectName("publishTo");
  to_->setText(toQString(choice.to()));
  to_->setPlaceholderText("mqtts://HOST[:PORT]/TOPIC");
  access_->setObjectName("publishAccess");
  access_->setText(toQString(choice.access()));
  access_->setToolTip(
      tr("A JSON file with user, password, ca, certificate and key, as the broker wants them"));
  auto* const browseButton = new QToolButton;
  browseButton->setIcon(tarnIcon("load"));
  browseButton->setToolTip(tr("Choose the file"));
  browseButton->setAccessibleName(browseButton->toolTip());
  auto* const accessRow = new QHBoxLayout;
  accessRow->addWidget(access_, 1);
  accessRow->addWidget(browseButton);
  auto* const what =
      new QLabel(tr("Each answer goes to an MQTT broker as it comes, from the next acquisition on. "
                    "Measurement data (MF4) of "
                    "the whole acquisition are written, too: what the broker has missed is published from "
                    "there. Without an "
                    "address nothing is published."));
  what->setWordWrap(true);
  auto* const form = new QFormLayout;
  form->addRow(tr("&Broker:"), to_);
  auto* const accessLabel = new QLabel(tr("&File with user and password:"));
  accessLabel->setBuddy(access_);
  form->addRow(accessLabel, accessRow);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(what);
  column->addLayout(form);
  column->addWidget(failure_);
  column->addWidget(buttons);
  resize(560, sizeHint().height());
  connect(browseButton, &QToolButton::clicked, this, &PublishDialog::browse);
  connect(buttons, &QDialogButtonBox::accepted, this, &PublishDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void PublishDialog::browse() {
  const auto file =
      dialogs_.fileToOpen(this, {windowTitle(), access_->text(), tr("Access (*.json)|*.json"), {}});
  if (file) access_->setText(*file);
}

void PublishDialog::accept() {
  PublishOptions options;
  options.to = fromQString(to_->text().trimmed());
  options.access = fromQString(access_->text().trimmed());
  try {
    if (!options.to.empty()) publishSetup(options, [](const std::string&) {});
  } catch (const std::exception& error) {
    return failure_->setText(toQString(error.what()));
  }
  PublishChoice(settings_).set(options.to, options.access);
  QDialog::accept();
}

void addPublishing(QMenu& menu, SettingsStore& settings, Dialogs& dialogs, QWidget& window) {
  menu.addAction(QObject::tr("&Publish values..."), &window,
                 [&] {
                   auto* const dialog = new PublishDialog(settings, dialogs, &window);
                   dialog->setAttribute(Qt::WA_DeleteOnClose);
                   dialog->open();
                 })
      ->setObjectName("publishValues");
}

}  // namespace tarnlog
