#pragma once

#include <QWidget>

namespace tarnlog {

/// A small panel beside the view that tells its keys. Nothing waits for it; Escape and F1 close it.
class KeyboardHelp : public QWidget {
  Q_OBJECT
 public:
  explicit KeyboardHelp(QWidget* parent);

 private:
  void addKeys(const QString& keys, const QString& what);
};

}  // namespace tarnlog
