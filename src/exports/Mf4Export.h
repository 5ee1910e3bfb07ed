#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "records/Record.h"
#include "records/RecordTexts.h"
#include "samples/MdfFile.h"
#include "samples/MdfRecord.h"

namespace tarnlog {

/// What has to be known of a record before a measurement file can be made of it: which columns hold texts,
/// and how long before its zero it begins.
class Mf4Survey : public RecordConsumer {
 public:
  Mf4Survey(const std::vector<RecordHead>& recordings, const ExportChoice& choice);

  void recording(std::size_t position) override { recording_ = position; }
  void row(const RecordRow& row) override;
  void note(const RecordNote& note) override { noteTime(note.time); }

  bool holdsText(std::size_t recording, std::size_t group, std::size_t column) const {
    return texts_[recording][group][column];
  }
  /// Microseconds from the zero of the first recording: that of this one, and of the earliest sample that
  /// came before it, or 0.
  std::int64_t zero(std::size_t recording) const { return zeros_[recording]; }
  std::int64_t first() const { return first_; }

 private:
  void noteTime(double time);

  const ExportChoice& choice_;
  std::vector<std::vector<std::vector<bool>>> texts_;
  std::vector<std::int64_t> zeros_;
  std::int64_t first_ = 0;
  std::size_t recording_ = 0;
};

/// Writes a record as a measurement file (MDF 4.10): a channel group for each of its groups, numbers as
/// doubles, marks as events. Several recordings stand in one file, each with groups of its own.
class Mf4Export : public RecordConsumer {
 public:
  /// The stream holds nothing yet. Recordings, choice and survey outlive this.
  Mf4Export(const std::vector<RecordHead>& recordings, const ExportChoice& choice, const Mf4Survey& survey,
            std::unique_ptr<FileStream> stream);

  void recording(std::size_t position) override { recording_ = position; }
  void row(const RecordRow& row) override;
  void note(const RecordNote& note) override;
  /// Closes the file. To be called at the end; raises what the stream raised.
  void finish();

 private:
  /// A group of the record, and what the file has of it.
  struct Target {
    std::size_t group = 0;
    bool answers = false;              ///< it tells the times of the requests
    std::vector<std::size_t> columns;  ///< those that are taken
  };

  MdfGroup groupFor(std::size_t recording, std::size_t position, const std::vector<std::string>& names,
                    Target& target) const;
  std::vector<MdfGroup> makeGroups();
  MdfAbout about() const;
  std::int64_t timeOf(double seconds) const;
  void setValue(const MdfColumn& column, const RecordValue& value);

  const std::vector<RecordHead>& recordings_;
  const ExportChoice& choice_;
  const Mf4Survey& survey_;
  std::vector<std::vector<Target>> targets_;  ///< by recording and group
  MdfLayout layout_;
  MdfFile file_;
  MdfRecord record_;
  std::string text_;
  std::size_t recording_ = 0;
  std::int64_t lastMark_;
};

}  // namespace tarnlog
