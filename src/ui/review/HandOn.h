#pragma once

#include <QBasicTimer>
#include <QList>
#include <QObject>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "exports/PartExport.h"
#include "ui/review/ReviewEnvironment.h"
#include "ui/review/ReviewScene.h"

class QAction;
class QWidget;

namespace tarnlog {

class NoticeBar;
class PartWriter;

/// Takes what is looked at out of the program: a picture, the part between the cursors (what is seen, where
/// they are not set) as a file for other programs, the table of figures.
class HandOn : public QObject {
  Q_OBJECT
 public:
  struct Desk {
    ReviewScene& scene;
    NoticeBar& notices;
    QWidget& window;
    std::function<PartChoice(std::size_t record)> wholeOf;
    std::function<void()> copyFigures;
    std::function<void(const QString& path)> savePicture;  ///< raises a TarnError
  };

  HandOn(Desk desk, const ReviewEnvironment& environment, QObject* parent);
  ~HandOn() override;

  /// Of a menu; their keys act where they are added.
  const QList<QAction*>& actions() const { return actions_; }
  /// After records came or went, or another curve was chosen.
  void showActions();

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  QAction* add(const char* name, const QString& text, const QKeySequence& keys, void (HandOn::*act)());
  void savePicture();
  void saveCsv() { savePart(PartChoice::Format::Csv); }
  void saveMf4() { savePart(PartChoice::Format::Mf4); }
  void copyFigures() { desk_.copyFigures(); }
  void savePart(PartChoice::Format format);
  std::optional<QString> askFor(PartChoice::Format format, const QString& proposed);
  PartChoice partOf(std::size_t record) const;
  std::size_t record() const;
  void namePart();
  void tellWritten();
  void failed(const QString& what);

  Desk desk_;
  const ReviewEnvironment& environment_;
  QList<QAction*> actions_;
  QAction* csv_ = nullptr;
  QAction* mf4_ = nullptr;
  QAction* onlyShown_ = nullptr;
  std::unique_ptr<PartWriter> writer_;
  QBasicTimer poll_;
};

}  // namespace tarnlog
