#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace tarnlog {

/// What a walk over an XML record or event file found, and what it had to do.
struct RecordFaults {
  bool record = false;          ///< the root element is that of a record
  bool closed = false;          ///< the root element has its end
  std::uint64_t cutRows = 0;    ///< rows that another one follows before their end: whole cells are kept
  std::uint64_t addedEnds = 0;  ///< elements closed since rows follow them
  std::uint64_t droppedBytes = 0;

  bool whole() const { return closed && cutRows == 0 && addedEnds == 0 && droppedBytes == 0; }
};

/// Fills the block and returns how much of it; 0 at the end.
using ReadBlock = std::function<std::size_t(char* block, std::size_t size)>;
/// A part of the document that ends where a child of the root has just begun or ended.
using TakePiece = std::function<void(std::string_view piece)>;

/// Reads an XML record, a block at a time, and gives it on as a document that is whole: the root is closed,
/// an unfinished element at the end is dropped, and rows follow each other where one was cut and another
/// glued to it. The pieces make up the document. Raises BadInput when one element does not end within a
/// sensible length.
RecordFaults walkRecord(const ReadBlock& read, const TakePiece& take);

}  // namespace tarnlog
