#pragma once

#include <QMainWindow>

#include "ui/acquisition/AcqView.h"

namespace tarnlog {

/// A window that holds the acquisition view. Closing it ends the acquisition first, whatever it is doing: the
/// window goes when the files are closed.
class AcqWindow : public QMainWindow {
  Q_OBJECT
 public:
  explicit AcqWindow(const AcqView::Environment& environment, QWidget* parent = nullptr);

  AcqView& view() { return *view_; }
  TarnAcq& acq() { return view_->acq(); }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  AcqView* view_;
  bool closing_ = false;
  bool stopped_ = false;
};

}  // namespace tarnlog
