#pragma once

#include <memory>
#include <string>
#include <vector>

#include "records/Mf4Layout.h"
#include "records/Mf4Rows.h"
#include "records/Record.h"

namespace tarnlog {

class Mf4Stream;

/// MDF 4 files: finished, unfinished, cut; of this recorder, and of others as far as they use what it uses.
class Mf4Reader : public RecordReader {
 public:
  /// Raises a TarnError as `readLayout` does.
  explicit Mf4Reader(const ReadableFile& file);
  ~Mf4Reader() override;
  /// In the order of the times, whatever the order in the file.
  void read(RecordConsumer& consumer) override;
  /// In the order of the times among themselves, while the file is written; not when it has been finished.
  bool readOn(RecordConsumer& consumer) override;
  bool isOpenEnded() const override { return !layout_.finished; }

 private:
  using Streams = std::vector<std::unique_ptr<Mf4Stream>>;

  Streams openStreams() const;
  void merge(RecordConsumer& consumer) const;
  void tellMissing();
  void tellDamage(const Mf4Rows& rows, const Mf4DataGroup& data);

  const ReadableFile& file_;
  Mf4Layout layout_;
  Streams streams_;  ///< of what has been read
};

}  // namespace tarnlog
