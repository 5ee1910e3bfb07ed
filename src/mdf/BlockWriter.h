#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "mdf/LittleEndian.h"
#include "mdf/Mdf.h"

namespace tarnlog::mdf {

/// The data of a block, field after field.
class Fields {
 public:
  template <class T>
  Fields& add(T value) {
    char bytes[sizeof value];
    put(bytes, value);
    bytes_.append(bytes, sizeof bytes);
    return *this;
  }
  Fields& zeros(std::size_t count) {
    bytes_.append(count, '\0');
    return *this;
  }
  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

using Links = std::vector<std::uint64_t>;

/// Blocks in memory that are to stand in a file one after another, from a place on that is a multiple of 8.
class BlockWriter {
 public:
  explicit BlockWriter(std::uint64_t place) : place_(place) {}

  /// Appends a block and returns its place. Missing links are 0.
  std::uint64_t add(const BlockKind& kind, Links links, std::string_view data);
  std::uint64_t add(const BlockKind& kind, const Links& links, const Fields& fields) {
    return add(kind, links, fields.bytes());
  }
  std::uint64_t addText(std::string_view text) { return addZeroEnded(kText, text); }
  std::uint64_t addXml(std::string_view xml) { return addZeroEnded(kXml, xml); }

  void setLink(std::uint64_t block, std::size_t link, std::uint64_t target);
  /// Bytes without any block, such as the identification.
  void append(std::string_view bytes) { bytes_.append(bytes); }

  /// Where the next block will stand.
  std::uint64_t end() const { return place_ + bytes_.size(); }
  const std::string& bytes() const { return bytes_; }

 private:
  std::uint64_t addZeroEnded(const BlockKind& kind, std::string_view text);
  void pad();

  std::uint64_t place_;
  std::string bytes_;
};

/// Where a link of a block stands in the file.
constexpr std::uint64_t linkPlace(std::uint64_t block, std::size_t link) {
  return block + kBlockHead + link * sizeof(std::uint64_t);
}

/// Where a field of a block without further links stands in the file.
constexpr std::uint64_t fieldPlace(std::uint64_t block, const BlockKind& kind, std::size_t field) {
  return linkPlace(block, kind.links) + field;
}

}  // namespace tarnlog::mdf
