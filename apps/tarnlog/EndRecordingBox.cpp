#include "apps/tarnlog/EndRecordingBox.h"

#include <QPushButton>

namespace tarnlog {

void EndRecordingBox::ask(QWidget* parent, std::function<void(bool end)> answer) {
  auto* const box = new QMessageBox(QMessageBox::Question, tr("Recording"),
                                    tr("A recording is running. End it?"), QMessageBox::NoButton, parent);
  box->setObjectName("endRecording");
  box->setAttribute(Qt::WA_DeleteOnClose);
  const QPushButton* const end = box->addButton(tr("&End recording"), QMessageBox::DestructiveRole);
  QPushButton* const keep = box->addButton(tr("&Keep recording"), QMessageBox::RejectRole);
  box->setDefaultButton(keep);
  box->setEscapeButton(keep);
  QObject::connect(box, &QDialog::finished, box,
                   [box, end, answer = std::move(answer)] { answer(box->clickedButton() == end); });
  box_ = box;
  box->open();
}

void EndRecordingBox::withdraw() {
  if (box_ != nullptr) box_->reject();
}

}  // namespace tarnlog
