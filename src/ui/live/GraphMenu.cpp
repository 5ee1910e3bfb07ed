#include "ui/live/GraphMenu.h"

#include <QActionGroup>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMessageBox>
#include <QStandardPaths>

#include "ui/common/MenuItems.h"
#include "ui/live/GraphChoices.h"
#include "ui/live/GraphReading.h"
#include "ui/live/LookBack.h"

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

GraphMenu::GraphMenu(GraphBlock& block, const Picture& picture) : QMenu(&block.shown()), block_(block) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAccessibleName(block.shown().accessibleName());
  addDeed(*this, tr("&Save picture..."), "savePicture", [this, picture] { savePicture(picture()); });
  addDeed(*this, tr("Copy &picture"), "copyPicture",
          [picture] { QGuiApplication::clipboard()->setPixmap(picture()); });
  addDeed(*this, tr("&Copy points"), "copyPoints",
          [&block] { QGuiApplication::clipboard()->setText(pointsTable(block)); });
}

void GraphMenu::addChoices(GraphChoices& choices, const std::function<void()>& changed) {
  addSeparator();
  if (block_.shown().plotCount() > 1) addScales(choices, changed);
  addChoice(*this, tr("&Times in the grid"), "times", choices.times(), [&choices, changed](bool on) {
    choices.setTimes(on);
    changed();
  });
  addChoice(*this, tr("T&hick curves"), "thick", choices.thickCurves(), [&choices, changed](bool on) {
    choices.setThickCurves(on);
    changed();
  });
  addMemory(choices, changed);
}

void GraphMenu::addScales(GraphChoices& choices, const std::function<void()>& changed) {
  auto* const scales = new QActionGroup(this);
  const std::string name = block_.name();
  const bool own = choices.ownScales(name);
  for (const bool each : {false, true}) {
    const QString text = each ? tr("&Each curve its own scale") : tr("&One scale for all");
    scales->addAction(addChoice(*this, text, each ? "ownScales" : "oneScale", own == each,
                                [&choices, changed, name, each](bool) {
                                  choices.setOwnScales(name, each);
                                  changed();
                                }));
  }
  if (!own) return;
  auto* const curves = new QActionGroup(this);
  QMenu* const which = addMenu(tr("&Axis of"));
  for (int plot = 1; plot <= block_.shown().plotCount(); ++plot) {
    const bool checked = block_.shown().chosenScale() == plot;
    const QString curve = itemText(toQString(block_.description(plot).name));
    curves->addAction(addChoice(*which, curve, "axis", checked, [&choices, changed, name, plot](bool) {
      choices.setAxis(name, plot);
      changed();
    }));
  }
}

void GraphMenu::addMemory(GraphChoices& choices, const std::function<void()>& changed) {
  QMenu* const memory = addMenu(tr("&Memory for looking back"));
  auto* const sizes = new QActionGroup(this);
  for (const int megabytes : {16, 64, 256, 1024}) {
    const bool checked = choices.megabytes() == megabytes;
    sizes->addAction(addChoice(*memory, tr("%1 MB").arg(megabytes), "megabytes", checked,
                               [&choices, changed, megabytes](bool) {
                                 choices.setMegabytes(megabytes);
                                 changed();
                               }));
  }
}

void GraphMenu::addLookBack(LookBack& lookBack, std::int64_t point) {
  addSeparator();
  addDeed(*this, tr("&Fit all\tF"), "fitAll", [&lookBack] { lookBack.fitAll(); });
  addDeed(*this, tr("Cursor &A\tA"), "cursorA",
          [&lookBack, point] { lookBack.setCursor(CWGraph::CursorA, point); });
  addDeed(*this, tr("Cursor &B\tB"), "cursorB",
          [&lookBack, point] { lookBack.setCursor(CWGraph::CursorB, point); });
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
