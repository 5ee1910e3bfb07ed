#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/CatalogueKeys.h"
#include "catalogue/SessionDocument.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog {

/// Finds data by what is typed: every word must occur in the data's name or unit, its request's name or its
/// ECU's name; case and accents do not count. Holds the folded texts of a document, one behind the other, so
/// that a look through all of them is one pass over memory.
class CatalogueSearch {
 public:
  CatalogueSearch() = default;
  explicit CatalogueSearch(const SessionDocument& document);

  /// The data found, with the requests and ECUs above them. Data in `leftOut` are not looked for.
  struct Found {
    CatalogueKeys elements;
    struct EcuCount {
      std::string_view key;  ///< of the ECU, in the document
      std::size_t data;
    };
    std::vector<EcuCount> ecus;  ///< those with something found, in document order
  };
  void find(std::string_view text, const CatalogueKeys& leftOut, Found& found);

  /// Whether `find` of that text would find this data element.
  static bool matches(XmlElement data, std::string_view text);

 private:
  using Position = std::uint32_t;
  struct Ecu {
    std::string_view key;
    std::string name;
    std::size_t firstRequest;
  };
  struct Request {
    KeyNumber key;
    std::string name;
    std::size_t firstData;
  };

  void addRequest(XmlElement request);
  void pass(std::string_view word, std::uint8_t passed);
  void passData(std::string_view word, std::uint8_t passed, std::size_t first, std::size_t end);
  void passAll(std::uint8_t passed, std::size_t first, std::size_t end);

  /// Each list ends with one entry more, which begins where the last one ends.
  std::vector<Ecu> ecus_;
  std::vector<Request> requests_;
  std::vector<KeyNumber> keys_;   ///< of the data
  std::vector<Position> starts_;  ///< where the data's texts begin
  std::string texts_;
  std::vector<std::uint8_t> passed_;  ///< for each data, how many words were found so far
};

}  // namespace tarnlog
