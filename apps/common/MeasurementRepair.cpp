#include "apps/common/MeasurementRepair.h"

#include <sys/mman.h>

#include <cerrno>
#include <string_view>

#include "apps/common/BadInput.h"
#include "platform/text/Told.h"
#include "samples/MdfFinisher.h"

namespace tarnlog {

namespace {

/// The file as bytes, of which the system reads what is looked at.
class Mapped {
 public:
  explicit Mapped(const FileToRepair& file) : size_(file.size()) {
    if (size_ == 0) return;
    bytes_ = ::mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, file.descriptor().get(), 0);
    if (bytes_ == MAP_FAILED) throw systemError(file.path(), errno);
  }
  ~Mapped() {
    if (size_ != 0) ::munmap(bytes_, size_);
  }
  Mapped(const Mapped&) = delete;
  Mapped& operator=(const Mapped&) = delete;

  std::string_view view() const { return {static_cast<const char*>(bytes_), size_}; }

 private:
  std::size_t size_;
  void* bytes_ = nullptr;
};

/// The copy as the closing of a measurement file wants it.
class CopyStream : public FileStream {
 public:
  explicit CopyStream(RepairedCopy& copy) : copy_(copy) {}
  void write(std::string_view bytes) override { copy_.add(bytes); }
  void writeOrOwe(std::string_view bytes) override { copy_.add(bytes); }
  void writeAt(std::uint64_t offset, std::string_view bytes) override { copy_.overwrite(offset, bytes); }
  void sync() override { copy_.finish(); }
  bool failing() const override { return false; }

 private:
  RepairedCopy& copy_;
};

MdfFinish planFor(const FileToRepair& file, std::string_view bytes) {
  try {
    return planMdfFinish(bytes);
  } catch (const TarnError& error) {
    throw BadInput(file.path() + ": " + error.description());
  }
}

}  // namespace

std::string repairMeasurement(const FileToRepair& file) {
  const Mapped original(file);
  const MdfFinish plan = planFor(file, original.view());
  if (plan.finished) return Told::tr("{}: whole, nothing to do", file.path()) + "\n";
  RepairedCopy copy(file);
  copy.add(original.view().substr(0, plan.keep));
  CopyStream stream(copy);
  finishMdf(stream, plan);
  const std::string kept = copy.take();
  std::string told = plan.records == 1
                         ? Told::tr("{}: closed, {} answer or mark", file.path(), plan.records)
                         : Told::tr("{}: closed, {} answers and marks", file.path(), plan.records);
  if (plan.cutBytes != 0) told += ", " + Told::tr("{} bytes of what was cut dropped", plan.cutBytes);
  return told + "\n" + Told::tr("{}: the original is {}", file.path(), kept) + "\n";
}

}  // namespace tarnlog
