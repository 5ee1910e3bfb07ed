#include "ui/review/PartWriter.h"

#include <exception>
#include <utility>

namespace tarnlog {

PartWriter::PartWriter(PartChoice part) : part_(std::move(part)), thread_([this] { run(); }) {}

PartWriter::~PartWriter() {
  cancel();
  thread_.join();
}

void PartWriter::run() {
  try {
    written_ = exportPart(part_, cancelled_);
  } catch (const std::exception& error) {
    failure_ = error.what();
  }
  done_ = true;
}

}  // namespace tarnlog
