#include "catalogue/CatalogueKeys.h"

namespace tarnlog {

KeyNumber keyNumber(std::string_view key) {
  constexpr std::size_t kLongest = 10;  // the document's counter has 31 bits
  if (key.size() < 2 || key.size() > kLongest + 1 || key[0] != 'c') return kNoKey;
  std::uint64_t number = 0;
  for (const char c : key.substr(1)) {
    if (c < '0' || c > '9') return kNoKey;
    number = number * 10 + static_cast<std::uint64_t>(c - '0');
  }
  return number <= INT32_MAX ? static_cast<KeyNumber>(number) : kNoKey;
}

}  // namespace tarnlog
