#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "platform/screen/Controls.h"

namespace tarnlog {

/// The elements of one kind of control, by their numbers from 1.
template <class Made>
class ControlArray {
 public:
  /// The element of this number, made when it is not there yet; null for a number below 1.
  template <class Make>
  Made* load(std::int16_t index, Make make) {
    if (index < 1) return nullptr;
    std::unique_ptr<Made>& element = elements_[index];
    if (element == nullptr) element = make();
    return element.get();
  }

  /// Frees exactly this control and gives its number; 0 when it is none of these.
  std::int16_t unload(const Control* control) {
    for (auto element = elements_.begin(); element != elements_.end(); ++element) {
      if (element->second.get() != control) continue;
      const std::int16_t index = element->first;
      elements_.erase(element);
      return index;
    }
    return 0;
  }

  Made* find(std::int16_t index) const {
    const auto element = elements_.find(index);
    return element == elements_.end() ? nullptr : element->second.get();
  }

  template <class Action>
  void each(Action action) const {
    for (const auto& [index, element] : elements_) action(*element);
  }
  bool empty() const { return elements_.empty(); }

 private:
  std::map<std::int16_t, std::unique_ptr<Made>> elements_;
};

}  // namespace tarnlog
