#include "platform/text/Told.h"

#include <utility>

namespace tarnlog {

namespace {

Told::Translator& current() {
  static Told::Translator translator;
  return translator;
}

thread_local int english = 0;

}  // namespace

Told::English::English() { ++english; }
Told::English::~English() { --english; }

void Told::setTranslator(Translator translator) { current() = std::move(translator); }

std::string Told::tr(const char* source) {
  std::string text = english == 0 && current() ? current()(source) : std::string();
  return text.empty() ? source : text;
}

std::string Told::filled(const char* source, fmt::format_args args) {
  try {
    return fmt::vformat(tr(source), args);
  } catch (const fmt::format_error&) {
    return fmt::vformat(source, args);
  }
}

}  // namespace tarnlog
