#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "mdf/LittleEndian.h"
#include "mdf/Mdf.h"
#include "platform/files/ReadableFile.h"

namespace tarnlog {

/// A block of an MDF 4 file, all but a data block's records.
struct Mf4Block {
  std::uint64_t place = 0;
  std::vector<std::uint64_t> links;
  std::string data;

  /// A field; its kind's size has been checked.
  template <class T>
  T field(std::size_t at) const {
    return mdf::get<T>(data.data() + at);
  }
  std::uint64_t link(std::size_t position) const { return position < links.size() ? links[position] : 0; }
};

/// Reads blocks. What is wrong with one is raised as a TarnError with its place and name.
class Mf4Blocks {
 public:
  explicit Mf4Blocks(const ReadableFile& file) : file_(file) {}

  Mf4Block read(std::uint64_t place, const mdf::BlockKind& expected) const;
  /// Of a TX or MD block; empty without one.
  std::string text(std::uint64_t place) const;
  /// The id of the block that begins there, such as "##DT".
  std::string id(std::uint64_t place) const;
  /// What its head says, which for a data block may be wrong while the file is written.
  std::uint64_t length(std::uint64_t place) const;

  const ReadableFile& file() const { return file_; }

 private:
  std::string bytes(std::uint64_t place, std::uint64_t count, std::string_view of) const;

  const ReadableFile& file_;
};

/// Raises "byte 512: CN block: text".
[[noreturn]] void refuseBlock(std::uint64_t place, std::string_view id, const std::string& text);

}  // namespace tarnlog
