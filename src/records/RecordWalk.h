#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/base/TarnError.h"

namespace tarnlog {

/// The file is none that the recorder made.
class NotARecord : public TarnError {
 public:
  using TarnError::TarnError;
};

NotARecord tooManyColumns(const std::string& source);

/// What is wrong with an XML record or event file, and what was mended.
struct RecordFaults {
  bool record = false;          ///< the root element is that of a record
  bool closed = false;          ///< the root's end tag is there
  std::uint64_t cutRows = 0;    ///< unfinished rows in the middle of the file; their whole cells are kept
  std::uint64_t addedEnds = 0;  ///< end tags that were missing and were inserted
  std::uint64_t droppedBytes = 0;
  std::uint64_t wholeBytes = 0;    ///< up to behind the last whole child of the root; 0: there is none
  std::uint64_t wholeDropped = 0;  ///< `droppedBytes` up to there

  bool whole() const { return closed && cutRows == 0 && addedEnds == 0 && droppedBytes == 0; }
};

/// Reads up to `size` bytes and returns their number; 0 at the end.
using ReadBlock = std::function<std::size_t(char* block, std::size_t size)>;
/// A part of the document. It ends after the root's start tag, after a child of the root, or at the end.
using TakePiece = std::function<void(std::string_view piece)>;

/// Reads an XML record, a block at a time, and passes it on as a well-formed document: the root is closed, an
/// unfinished element at the end is dropped, and an unfinished row in the middle is closed before the next
/// one begins. The pieces make up the document. Raises NotARecord when one element is longer than 16 MB.
RecordFaults walkRecord(const ReadBlock& read, const TakePiece& take);

}  // namespace tarnlog
