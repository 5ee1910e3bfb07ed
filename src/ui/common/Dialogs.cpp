#include "ui/common/Dialogs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace tarnlog {

namespace {

/// The toolkit takes "Name (pattern)" for each pair of name and pattern. Here files may lack an extension:
/// "*.*" would hide them from "All files".
QStringList nameFilters(const QString& pairs) {
  const QStringList parts = pairs.split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString name = parts[i].section(" (", 0, 0);
    filters << name + " (" + (parts[i + 1] == "*.*" ? QString("*") : parts[i + 1]) + ")";
  }
  return filters;
}

void prepare(QFileDialog& dialog, const FileQuestion& question) {
  dialog.setObjectName(question.name);
  dialog.setNameFilters(nameFilters(question.filter));
  dialog.setDefaultSuffix(question.defaultSuffix);
  if (question.proposed.isEmpty()) return;
  const QFileInfo proposed(question.proposed);
  dialog.setDirectory(proposed.isDir() ? proposed.filePath() : proposed.path());
  if (!proposed.isDir()) dialog.selectFile(proposed.fileName());
}

std::optional<QString> answerOf(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().constFirst();
}

}  // namespace

std::optional<QString> QtDialogs::fileToOpen(QWidget* parent, const FileQuestion& question) {
  QFileDialog dialog(parent, question.title);
  dialog.setFileMode(QFileDialog::ExistingFile);
  prepare(dialog, question);
  return answerOf(dialog);
}

std::optional<QString> QtDialogs::fileToSave(QWidget* parent, const FileQuestion& question) {
  QFileDialog dialog(parent, question.title);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  prepare(dialog, question);
  return answerOf(dialog);
}

void QtDialogs::error(QWidget* parent, const QString& title, const QString& text) {
  QMessageBox box(QMessageBox::Critical, title, QString(text).remove('\r'), QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.exec();
}

Dialogs::Changed QtDialogs::changedWork(QWidget* parent, const QString& what) {
  QMessageBox box(QMessageBox::Warning, tr("Unsaved changes"), tr("%1 has been changed.").arg(what),
                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, parent);
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(tr("Save the changes? They are lost otherwise."));
  box.setDefaultButton(QMessageBox::Save);
  switch (box.exec()) {
    case QMessageBox::Save:
      return Changed::Save;
    case QMessageBox::Discard:
      return Changed::Discard;
    default:
      return Changed::Cancel;
  }
}

Dialogs::Incomplete QtDialogs::incompleteWork(QWidget* parent, const QString& what) {
  QMessageBox box(QMessageBox::Warning, tr("Save configuration"),
                  tr("Parts of %1 do not fit this vehicle and were left out.").arg(what), QMessageBox::Cancel,
                  parent);
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(tr("Saving it in place loses them. Save what is left under another name?"));
  const QPushButton* const overwrite = box.addButton(tr("Save in &place"), QMessageBox::DestructiveRole);
  QPushButton* const saveAs = box.addButton(tr("Save &as..."), QMessageBox::AcceptRole);
  box.setDefaultButton(saveAs);
  box.exec();
  if (box.clickedButton() == saveAs) return Incomplete::SaveAs;
  return box.clickedButton() == overwrite ? Incomplete::Save : Incomplete::Cancel;
}

}  // namespace tarnlog
