#include "records/TableReader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "records/TableBuilder.h"
#include "records/TextHeader.h"
#include "records/TextTableReader.h"

namespace tarnlog {

namespace {

/// Counts what is read of a file, and pauses before each block.
class CountedFile : public ReadableFile {
 public:
  CountedFile(const ReadableFile& file, TableReader::Pause pause) : file_(file), pause_(std::move(pause)) {}
  std::uint64_t size() const override { return file_.size(); }
  std::size_t readAt(std::uint64_t place, char* to, std::size_t most) const override {
    pause_();
    const std::size_t count = file_.readAt(place, to, most);
    read_ += count;
    return count;
  }
  /// Some of it may have been read twice.
  std::uint64_t bytesRead() const { return std::min(read_, size()); }

 private:
  const ReadableFile& file_;
  TableReader::Pause pause_;
  mutable std::uint64_t read_ = 0;
};

using Opening = std::function<std::unique_ptr<RecordReader>(const ReadableFile&)>;

/// Files that a `RecordReader` reads; from the beginning again where it cannot go on.
class WholeTableReader : public TableReader {
 public:
  WholeTableReader(const ReadableFile& file, Opening opening, Pause pause)
      : file_(file, std::move(pause)), opening_(std::move(opening)) {
    open();
  }

  void readOn() override {
    whole_ = wasRead_ ? table() : nullptr;
    const bool goesOn = wasRead_ && !std::exchange(interrupted_, true) && reader_->readOn(*builder_);
    if (!goesOn) readAll();
    wasRead_ = true;
    interrupted_ = false;
    whole_ = nullptr;
    table_.missing = reader_->missing();
    builder_->tellMissing(table_.missing);
  }
  bool isOpenEnded() const override { return reader_->isOpenEnded(); }
  std::shared_ptr<RecordTable> table() override {
    builder_->finishRows();
    const RecordTable& newest = whole_ == nullptr ? table_ : *whole_;
    return newest.recordings.empty() ? nullptr : std::make_shared<RecordTable>(newest);
  }
  std::uint64_t bytesRead() const override { return file_.bytesRead(); }

 private:
  void readAll() {
    if (wasRead_) open();
    reader_->read(*builder_);
  }

  void open() {
    reader_ = opening_(file_);
    table_ = {};
    builder_ = std::make_unique<TableBuilder>(table_);
    for (const RecordHead& head : reader_->recordings()) builder_->addRecording(head);
  }

  CountedFile file_;
  Opening opening_;
  std::unique_ptr<RecordReader> reader_;
  RecordTable table_;
  std::unique_ptr<TableBuilder> builder_;
  std::shared_ptr<RecordTable> whole_;  ///< what was there before it is read on
  bool wasRead_ = false;
  bool interrupted_ = false;  ///< the last reading failed
};

}  // namespace

std::unique_ptr<TableReader> openTable(const ReadableFile& file, const std::string& name,
                                       TableReader::Pause pause) {
  std::array<char, kTextBeginning.size()> bytes{};
  const std::string_view beginning(bytes.data(), file.readAt(0, bytes.data(), bytes.size()));
  if (beginning == kTextBeginning) return std::make_unique<TextTableReader>(file, name, std::move(pause));
  return std::make_unique<WholeTableReader>(
      file, [name](const ReadableFile& counted) { return openRecord(counted, name); }, std::move(pause));
}

std::unique_ptr<TableReader> openTable(const ReadableFile& file, const ForeignTableChoice& choice,
                                       TableReader::Pause pause) {
  return std::make_unique<WholeTableReader>(
      file, [choice](const ReadableFile& counted) { return openForeignTable(counted, choice); },
      std::move(pause));
}

}  // namespace tarnlog
