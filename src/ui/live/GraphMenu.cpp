#include "ui/live/GraphMenu.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMessageBox>
#include <QStandardPaths>

#include "ui/live/GraphReading.h"

namespace tarnlog {
namespace {

QString suggestedPath(const QString& title) {
  QString name = title;
  for (QChar& c : name)
    if (!c.isLetterOrNumber() && c != QLatin1Char(' ') && c != QLatin1Char('-')) c = QLatin1Char('_');
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
  return QDir(folder).filePath((name.isEmpty() ? QStringLiteral("graph") : name) + QStringLiteral(".png"));
}

}  // namespace

GraphMenu::GraphMenu(GraphBlock& block, const Picture& picture) : QMenu(&block.shown()) {
  setAttribute(Qt::WA_DeleteOnClose);
  const auto add = [this](const QString& text, const char* name, auto action) {
    addAction(text, this, std::move(action))->setObjectName(QLatin1String(name));
  };
  add(tr("&Save picture..."), "savePicture", [this, picture] { savePicture(picture()); });
  add(tr("Copy &picture"), "copyPicture", [picture] { QGuiApplication::clipboard()->setPixmap(picture()); });
  add(tr("&Copy points"), "copyPoints",
      [&block] { QGuiApplication::clipboard()->setText(pointsTable(block)); });
}

/// The dialog belongs to the window, which stays when the graph goes.
void GraphMenu::savePicture(const QPixmap& picture) {
  QWidget* const owner = parentWidget()->window();
  auto* const dialog = new QFileDialog(
      owner, tr("Save picture"), suggestedPath(parentWidget()->accessibleName()), tr("Pictures (*.png)"));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setDefaultSuffix(QStringLiteral("png"));
  QObject::connect(dialog, &QFileDialog::fileSelected, owner, [picture, owner](const QString& path) {
    if (picture.save(path, "PNG")) return;
    auto* const box =
        new QMessageBox(QMessageBox::Warning, tr("Save picture"),
                        tr("The picture could not be written to %1.").arg(QDir::toNativeSeparators(path)),
                        QMessageBox::Ok, owner);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
  });
  dialog->open();
}

}  // namespace tarnlog
