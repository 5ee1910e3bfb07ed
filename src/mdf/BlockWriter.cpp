#include "mdf/BlockWriter.h"

namespace tarnlog::mdf {

std::uint64_t BlockWriter::add(const BlockKind& kind, Links links, std::string_view data) {
  const std::uint64_t at = end();
  if (links.size() < kind.links) links.resize(kind.links);
  const std::uint64_t length = linkPlace(0, links.size()) + data.size();
  bytes_.append(kind.id);
  bytes_.append(Fields().add(std::uint32_t{0}).add(length).add(std::uint64_t{links.size()}).bytes());
  for (const std::uint64_t link : links) bytes_.append(Fields().add(link).bytes());
  bytes_.append(data);
  pad();
  return at;
}

/// The padding belongs to the block.
std::uint64_t BlockWriter::addZeroEnded(const BlockKind& kind, std::string_view text) {
  std::string padded(text);
  padded.append(kAlignment - text.size() % kAlignment, '\0');
  return add(kind, {}, padded);
}

void BlockWriter::setLink(std::uint64_t block, std::size_t link, std::uint64_t target) {
  put(bytes_.data() + (linkPlace(block, link) - place_), target);
}

void BlockWriter::pad() { bytes_.append((kAlignment - bytes_.size() % kAlignment) % kAlignment, '\0'); }

}  // namespace tarnlog::mdf
