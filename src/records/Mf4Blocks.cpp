#include "records/Mf4Blocks.h"

#include "platform/base/TarnError.h"
#include "platform/text/TextEncoding.h"

namespace tarnlog {

namespace {

constexpr std::uint64_t kLongest = 16 * 1024 * 1024;  ///< of what is no data block

bool isId(std::string_view id) {
  if (id.size() != 4 || !id.starts_with("##")) return false;
  const auto capital = [](char c) { return c >= 'A' && c <= 'Z'; };
  return capital(id[2]) && capital(id[3]);
}

/// "##CN" is the CN block.
std::string called(std::string_view id) { return std::string(id.starts_with("##") ? id.substr(2) : id); }

}  // namespace

void refuseBlock(std::uint64_t place, std::string_view id, const std::string& text) {
  throw TarnError(1, "Mf4Reader", "byte " + std::to_string(place) + ": " + called(id) + " block: " + text);
}

std::string Mf4Blocks::bytes(std::uint64_t place, std::uint64_t count, std::string_view of) const {
  if (place > file_.size() || count > file_.size() - place) refuseBlock(place, of, "the file ends inside it");
  std::string bytes(static_cast<std::size_t>(count), '\0');
  if (file_.readAt(place, bytes.data(), bytes.size()) < bytes.size())
    refuseBlock(place, of, "the file ends inside it");
  return bytes;
}

std::string Mf4Blocks::id(std::uint64_t place) const {
  std::string id = bytes(place, 4, "next");
  if (!isId(id)) throw TarnError(1, "Mf4Reader", "byte " + std::to_string(place) + ": expected a block");
  return id;
}

std::uint64_t Mf4Blocks::length(std::uint64_t place) const {
  return mdf::get<std::uint64_t>(bytes(place, mdf::kBlockHead, id(place)).data() + 8);
}

Mf4Block Mf4Blocks::read(std::uint64_t place, const mdf::BlockKind& expected) const {
  const std::string found = place >= file_.size() ? std::string(expected.id) : id(place);
  if (found != expected.id) refuseBlock(place, found, "expected a block " + called(expected.id));
  const std::string head = bytes(place, mdf::kBlockHead, found);
  const auto length = mdf::get<std::uint64_t>(head.data() + 8);
  const auto links = mdf::get<std::uint64_t>(head.data() + 16);
  if (length > kLongest || links > length / sizeof links ||
      length < mdf::kBlockHead + links * sizeof links + expected.data || links < expected.links)
    refuseBlock(place, found,
                "a length of " + std::to_string(length) + " with " + std::to_string(links) +
                    " links is not possible");
  const std::string all = bytes(place, length, found);
  Mf4Block block{place, {}, all.substr(mdf::kBlockHead + links * sizeof links)};
  for (std::uint64_t i = 0; i < links; ++i)
    block.links.push_back(mdf::get<std::uint64_t>(all.data() + mdf::kBlockHead + i * sizeof links));
  return block;
}

std::string Mf4Blocks::text(std::uint64_t place) const {
  if (place == 0) return {};
  const bool xml = place < file_.size() && id(place) == mdf::kXml.id;
  const std::string data = read(place, xml ? mdf::kXml : mdf::kText).data;
  std::string text = data.substr(0, data.find('\0'));
  return isUtf8(text) ? text : utf8FromWindows1252(text);  // what some programs take for UTF-8
}

}  // namespace tarnlog
