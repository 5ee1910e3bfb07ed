#pragma once

#include <QLineEdit>

class QAbstractItemView;

namespace tarnlog {

/// A line in which words to look for are typed; Down leads into the view that it filters, Escape empties it.
class FilterBox : public QLineEdit {
  Q_OBJECT
 public:
  FilterBox(QAbstractItemView& view, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QAbstractItemView& view_;
};

}  // namespace tarnlog
