#pragma once

#include <memory>
#include <sstream>
#include <string>

#include "config/oTarnParameters.h"
#include "platform/ferrox3/Value.h"
#include "tests/support/ScopeText.h"

namespace tarnlog::test {

/// Configurations as text: "a:G b:I1 c:X1 d:D e:B f:N" is a Graph with the key a, a curve and an X axis on
/// the graph of item 1, a digital value, a bar and an item without display.
class ScopeList : public oTarnParameters {
 public:
  explicit ScopeList(const std::string& items) : oTarnParameters(MemorySettingsStore()) {
    std::istringstream words(items);
    for (std::string word; words >> word;) add(word);
  }

  /// The items as they stand. What triggers watch follows: "start=2 stop=1".
  std::string text() const {
    std::string text = scopesText(*this, &oTarnScope::DataKey);
    if (startTrigger->typeTrigger == oTarnTrigger::kChannel)
      text += " start=" + std::to_string(startTrigger->DataIndex);
    if (stopTrigger->typeTrigger == oTarnTrigger::kChannel)
      text += " stop=" + std::to_string(stopTrigger->DataIndex);
    return text;
  }

  ScopeList& moved(const std::string& key, const std::string& target) {
    changeScopeOrder(*Item(key), *Item(target));
    return *this;
  }
  ScopeList& removed(std::int32_t position) {
    removeScope(position);
    return *this;
  }
  ScopeList& corrected() {
    CheckAndCorrect();
    return *this;
  }

 private:
  void add(const std::string& word) {
    auto scope = std::make_unique<oTarnScope>();
    scope->index = Count() + 1;
    scope->varType = ferrox3::kDouble;
    scope->setScopeType(static_cast<DisplayKind>(std::string(kScopeLetters).find(word[2])));
    scope->DataKey = word.substr(0, 1);
    if (std::int32_t* const reference = scope->graphReference()) *reference = std::stoi(word.substr(3));
    AddScope(std::move(scope));
  }
};

}  // namespace tarnlog::test
