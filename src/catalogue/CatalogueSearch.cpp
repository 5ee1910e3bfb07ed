#include "catalogue/CatalogueSearch.h"

#include <algorithm>
#include <cstring>

#include "catalogue/FoldedText.h"

namespace tarnlog {

namespace {

/// Ends each text; no word has it.
constexpr char kEnd = '\n';

std::vector<std::string> wordsOf(std::string_view text) {
  std::vector<std::string> words;
  const std::string plain = folded(text);
  constexpr const char* kBlanks = " \t\r\n";
  for (std::size_t at = plain.find_first_not_of(kBlanks); at != std::string::npos;
       at = plain.find_first_not_of(kBlanks, at)) {
    const std::size_t end = std::min(plain.find_first_of(kBlanks, at), plain.size());
    words.push_back(plain.substr(at, end - at));
    at = end;
  }
  return words;
}

bool contains(const std::string& text, std::string_view word) { return text.find(word) != std::string::npos; }

}  // namespace

CatalogueSearch::CatalogueSearch(const SessionDocument& document) {
  const XmlElement root = document.document().documentNode().firstChild("Tarnlog2000");
  for (XmlElement uce = root.firstChild("uce"); uce; uce = uce.nextSibling("uce")) {
    ecus_.push_back({uce.attributeOrEmpty("c"), folded(uce.attributeOrEmpty("name")), requests_.size()});
    for (XmlElement request = uce.firstChild("request"); request; request = request.nextSibling("request"))
      addRequest(request);
  }
  ecus_.push_back({{}, {}, requests_.size()});
  requests_.push_back({kNoKey, {}, keys_.size()});
  starts_.push_back(static_cast<Position>(texts_.size()));
}

void CatalogueSearch::addRequest(XmlElement request) {
  requests_.push_back({keyNumber(request), folded(request.attributeOrEmpty("name")), keys_.size()});
  for (XmlElement data = request.firstChild("data"); data; data = data.nextSibling("data")) {
    keys_.push_back(keyNumber(data));
    starts_.push_back(static_cast<Position>(texts_.size()));
    appendFolded(texts_, data.attributeOrEmpty("name"));
    texts_ += kEnd;
    appendFolded(texts_, data.attributeOrEmpty("unit"));
    texts_ += kEnd;
  }
}

void CatalogueSearch::find(std::string_view text, const CatalogueKeys& leftOut, Found& found) {
  found.elements.clear();
  found.ecus.clear();
  if (ecus_.empty()) return;
  const auto words = wordsOf(text);
  passed_.assign(keys_.size(), 0);
  std::uint8_t count = 0;
  for (const std::string& word : words)
    if (count < UINT8_MAX) pass(word, count++);
  for (std::size_t e = 0; e + 1 < ecus_.size(); ++e) {
    std::size_t inEcu = 0;
    for (std::size_t r = ecus_[e].firstRequest; r < ecus_[e + 1].firstRequest; ++r) {
      const std::size_t before = inEcu;
      for (std::size_t d = requests_[r].firstData; d < requests_[r + 1].firstData; ++d) {
        if (passed_[d] != count || leftOut.has(keys_[d])) continue;
        found.elements.add(keys_[d]);
        ++inEcu;
      }
      if (inEcu != before) found.elements.add(requests_[r].key);
    }
    if (inEcu == 0) continue;
    found.elements.add(keyNumber(ecus_[e].key));
    found.ecus.push_back({ecus_[e].key, inEcu});
  }
}

/// Lets the data that have passed so many words pass one more where this word occurs.
void CatalogueSearch::pass(std::string_view word, std::uint8_t passed) {
  for (std::size_t e = 0; e + 1 < ecus_.size(); ++e) {
    const std::size_t firstRequest = ecus_[e].firstRequest;
    const std::size_t endRequest = ecus_[e + 1].firstRequest;
    if (contains(ecus_[e].name, word)) {
      passAll(passed, requests_[firstRequest].firstData, requests_[endRequest].firstData);
      continue;
    }
    for (std::size_t r = firstRequest; r < endRequest; ++r) {
      const std::size_t first = requests_[r].firstData;
      const std::size_t end = requests_[r + 1].firstData;
      if (contains(requests_[r].name, word))
        passAll(passed, first, end);
      else
        passData(word, passed, first, end);
    }
  }
}

void CatalogueSearch::passAll(std::uint8_t passed, std::size_t first, std::size_t end) {
  for (std::size_t d = first; d < end; ++d)
    if (passed_[d] == passed) ++passed_[d];
}

void CatalogueSearch::passData(std::string_view word, std::uint8_t passed, std::size_t first,
                               std::size_t end) {
  const char* const texts = texts_.data();
  std::size_t data = first;
  while (data < end) {
    const void* const hit =
        memmem(texts + starts_[data], starts_[end] - starts_[data], word.data(), word.size());
    if (hit == nullptr) return;
    const auto position = static_cast<Position>(static_cast<const char*>(hit) - texts);
    while (starts_[data + 1] <= position) ++data;
    if (passed_[data] == passed) ++passed_[data];
    ++data;
  }
}

bool CatalogueSearch::matches(XmlElement data, std::string_view text) {
  std::string texts;
  for (XmlElement element = data; element; element = element.parent()) {
    appendFolded(texts, element.attributeOrEmpty("name"));
    texts += kEnd;
  }
  appendFolded(texts, data.attributeOrEmpty("unit"));
  for (const std::string& word : wordsOf(text))
    if (!contains(texts, word)) return false;
  return true;
}

}  // namespace tarnlog
