#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tarnlog::record {

/// Characters of a UTF-8 text.
std::size_t widthOf(const std::string& text);

/// A table for the terminal: columns lie under each other, two blanks apart. What would act on a terminal
/// stands in its cells as digits.
class TextTable {
 public:
  enum class Align { Left, Right };

  /// A column for each; rows may be shorter, and have blanks before them.
  explicit TextTable(std::vector<Align> columns, std::size_t indent = 0)
      : columns_(std::move(columns)), indent_(indent) {}

  void add(std::vector<std::string> cells);
  std::size_t width() const;
  std::string text() const;

 private:
  std::vector<std::size_t> widths() const;

  std::vector<Align> columns_;
  std::size_t indent_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace tarnlog::record
