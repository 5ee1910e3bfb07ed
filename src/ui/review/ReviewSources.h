#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QStringList>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "exports/PartExport.h"
#include "records/ForeignTable.h"
#include "ui/review/ReviewScene.h"

namespace tarnlog {

/// The files behind the records of a scene: reads them in the background, puts what is read into the scene,
/// and goes on with those that are still being written.
class ReviewSources : public QObject {
  Q_OBJECT
 public:
  /// What `isBeingRecorded` lacks, if there is such a rule, is not told.
  ReviewSources(ReviewScene& scene, std::function<bool(const std::string& path)> isBeingRecorded,
                QObject* parent = nullptr);
  ~ReviewSources() override;

  /// Behind those that are there: all are laid over the first one, at the start of recording.
  void add(const std::string& path);
  /// A table of another program.
  void add(const std::string& path, const ForeignTableChoice& choice);
  /// The file of an event of this record: its times are the record's.
  void addOver(const std::string& path, std::size_t record);
  void remove(std::size_t record);
  void clear();
  /// Another recording of the record's file.
  void showRecording(std::size_t record, std::size_t recording);
  /// Of what is read it keeps what is there.
  void cancelReading();

  /// Of records in the scene and those that will be there.
  std::size_t count() const { return sources_.size(); }
  /// The first one that is being read: its name, and how far it is, 0 to 1.
  struct Progress {
    QString name;
    double part = 0;
  };
  std::optional<Progress> reading() const;
  /// The file of a record of the scene.
  std::string pathOf(std::size_t record) const;
  /// The whole of this record, to be written elsewhere.
  PartChoice wholeOf(std::size_t record) const;
  std::vector<std::string> paths() const;

 signals:
  /// How far it is, or what is read.
  void progressed();
  /// It is a record, and the scene has it.
  void opened(const QString& path);
  void finished(const QString& path);
  /// `missing` has a sentence for each matter. It is empty when nothing is missing any more.
  void lacking(const QString& path, const QStringList& missing);
  /// It is not looked at.
  void failed(const QString& path, const QString& why, bool foreignTable);

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  struct Source;

  void add(const std::shared_ptr<Source>& source);
  void poll();
  void pollSource(Source& source);
  void show(Source& source);
  void addToScene(Source& source);
  void tellMissing(Source& source, bool ended);
  void tellEnd(Source& source);
  void dropFailed();
  bool isOpen(const Source& source) const;
  Source* sourceOf(std::size_t record) const;
  void schedule(std::int64_t pollTook);

  ReviewScene& scene_;
  std::function<bool(const std::string& path)> isBeingRecorded_;
  std::vector<std::shared_ptr<Source>> sources_;
  QBasicTimer timer_;
};

}  // namespace tarnlog
