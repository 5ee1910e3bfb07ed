#include "exports/Mf4Writing.h"

#include <exception>
#include <memory>

#include "exports/ExportFile.h"
#include "exports/Mf4Export.h"

namespace tarnlog {

namespace {

/// The output as a stream. An MdfFile goes on after a write that failed, as a recording must; an export must
/// not, so `sync` raises the failure again.
class ExportStream : public FileStream {
 public:
  explicit ExportStream(ExportFile& file) : file_(file) {}
  void write(std::string_view bytes) override {
    try {
      file_.write(bytes);
    } catch (...) {
      failure_ = std::current_exception();
      throw;
    }
  }
  void writeOrOwe(std::string_view bytes) override {
    skipOnFailure([&] { write(bytes); });
  }
  void writeAt(std::uint64_t offset, std::string_view bytes) override { file_.overwrite(offset, bytes); }
  void sync() override {
    if (failure_) std::rethrow_exception(failure_);
  }
  bool failing() const override { return failure_ != nullptr; }

 private:
  ExportFile& file_;
  std::exception_ptr failure_;
};

}  // namespace

void writeMf4(const std::vector<RecordHead>& recordings, const ReadRecord& read, const ExportChoice& choice,
              ExportFile& output) {
  Mf4Survey survey(recordings, choice);
  read(survey);
  Mf4Export mf4(recordings, choice, survey, std::make_unique<ExportStream>(output));
  read(mf4);
  mf4.finish();
}

}  // namespace tarnlog
